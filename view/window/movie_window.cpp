#include "view/window/movie_window.h"

#include <xcb/xcb.h>

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QWidget>

#include "platform/text.h"
#include "view/controls/video_surface.h"

namespace korvane {
namespace {

// Qt ends the program where there is no display, so it is looked for first.
bool hasDisplay() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("xcb")) return true;
  xcb_connection_t* server = xcb_connect(nullptr, nullptr);
  const bool stands = !xcb_connection_has_error(server);
  xcb_disconnect(server);
  if (stands) qputenv("QT_QPA_PLATFORM", "xcb");  // a disc is drawn into a window of X11
  return stands || (platform.isEmpty() && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"));
}

QRect third(const QRect& room) {
  QRect small(QPoint(), room.size() / 3);
  small.moveCenter(room.center());
  return small;
}

}  // namespace

// Frames are painted on the page itself; a disc draws into a native child that covers it.
class MovieWindow::Page : public QWidget {
 public:
  Page() : QWidget(nullptr, Qt::FramelessWindowHint) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    setWindowTitle(u"Korvane movies"_s);
    disc.setAttribute(Qt::WA_NativeWindow);
    disc.setPalette(Qt::black);
    disc.setAutoFillBackground(true);
    disc.hide();
  }

  void follow(VideoPicture* picture) {
    picture_ = picture;
    surface_.follow(picture, VideoFit::Whole, picture ? size() * devicePixelRatioF() : QSize());
  }

  QWidget disc{this};

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    surface_.paint(painter, event->region());
  }
  void resizeEvent(QResizeEvent*) override {
    disc.setGeometry(rect());
    if (picture_) follow(picture_);
  }

 private:
  VideoSurface surface_{*this};
  VideoPicture* picture_ = nullptr;
};

std::unique_ptr<QCoreApplication> MovieWindow::application(int& argc, char** argv, QString* error) {
  if (!hasDisplay()) {
    *error = u"there is no display to show movies on; start it where there is one (DISPLAY)"_s;
    return nullptr;
  }
  auto made = std::make_unique<QApplication>(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return made;
}

std::unique_ptr<MovieScreen> MovieWindow::make(const QString& place, QString* error) {
  static const QRegularExpression part(u"^(\\d{1,5})x(\\d{1,5})\\+(\\d{1,5})\\+(\\d{1,5})$"_s);
  if (const auto found = part.match(place); found.hasMatch()) {
    const auto number = [&](int i) { return found.captured(i).toInt(); };
    const QRect room(number(3), number(4), number(1), number(2));
    if (!room.isEmpty()) return std::unique_ptr<MovieScreen>(new MovieWindow(room, false));
  }
  bool isNumber = false;
  const uint screen = place.toUInt(&isNumber);
  const QList<QScreen*> screens = QGuiApplication::screens();
  if (isNumber && screen < static_cast<uint>(screens.size()))
    return std::unique_ptr<MovieScreen>(new MovieWindow(screens[screen]->geometry(), true));
  *error = u"--screen takes the number of a screen, 0 to %1, or WxH+X+Y, not %2"_s
               .arg(screens.size() - 1)
               .arg(place);
  return nullptr;
}

MovieWindow::MovieWindow(QRect room, bool whole)
    : room_(room), whole_(whole), page_(std::make_unique<Page>()) {
  setLarge(true);
}

MovieWindow::~MovieWindow() {
  showNothing();
}

void MovieWindow::showFrames(VideoPicture& picture) {
  showNothing();
  page_->follow(&picture);
}

void MovieWindow::showDisc(DvdPlayer& player) {
  showNothing();
  disc_ = &player;
  page_->disc.show();
  player.setWindow(page_->disc.winId());
}

void MovieWindow::showNothing() {
  if (DvdPlayer* disc = std::exchange(disc_, nullptr)) disc->setWindow(0);
  page_->disc.hide();
  page_->follow(nullptr);
}

void MovieWindow::setLarge(bool large) {
  page_->setGeometry(large ? room_ : third(room_));
  large&& whole_ ? page_->showFullScreen() : page_->showNormal();
  page_->raise();
}

}  // namespace korvane

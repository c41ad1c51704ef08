// Pictures on the console's window: frames that a widget paints, and a player that draws by itself.
#include <QJsonArray>
#include <QScreen>
#include <QTemporaryDir>

#include "tests/fakes/fake_video_player.h"
#include "tests/window/small_console.h"
#include "tests/window/x_drawer.h"
#include "view/controls/surface_widget.h"
#include "view/remote/control_commands.h"

namespace korvane {
namespace {

const QColor kBlack(0, 0, 0), kRed(255, 0, 0), kGreen(0, 255, 0);
constexpr quint32 kRedPixel = 0xffff0000;

// Counts what is painted while it lives.
class Painted : public QObject {
 public:
  Painted() { qApp->installEventFilter(this); }
  QStringList take() { return std::exchange(names_, {}); }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) names_ << watched->objectName();
    return false;
  }
  QStringList names_;
};

class Frames : public SmallConsole {
 protected:
  Frames() {
    page.visible = true;
    page.video = &player.picture();
    settle(20);
  }
  ~Frames() override { host.close(); }

  FakeVideoPlayer player;
  FakeVideoPicture& shown = player.shown;
  Surface& page = control<Surface>("MoviePic", 0);
  Surface& screen = control<Surface>("MoviePic", 1);
};

TEST_F(Frames, LieInTheMiddleOfBlackInTheShapeOfTheFit) {
  const struct {
    VideoFit fit;
    QSize frame;  // unscaled where the room of 160 x 120 has its size, else of before a change
    QRect red;
  } cases[] = {
      {VideoFit::Whole, {160, 80}, {0, 20, 160, 80}},
      {VideoFit::Whole, {90, 120}, {35, 0, 90, 120}},
      {VideoFit::Whole, {158, 79}, {1, 20, 158, 79}},  // rounded by the player
      {VideoFit::Whole, {40, 20}, {0, 20, 160, 80}},
      {VideoFit::Whole, {1000, 1500}, {40, 0, 80, 120}},
      {VideoFit::Filled, {160, 120}, {0, 0, 160, 120}},
      {VideoFit::Filled, {240, 120}, {0, 0, 160, 120}},
      {VideoFit::Filled, {20, 30}, {0, 0, 160, 120}},
      {VideoFit::Stretched, {160, 120}, {0, 0, 160, 120}},
      {VideoFit::Stretched, {10, 90}, {0, 0, 160, 120}},
  };
  for (const auto& [fit, frame, red] : cases) {
    SCOPED_TRACE(testing::Message()
                 << static_cast<int>(fit) << ' ' << frame.width() << 'x' << frame.height());
    page.fit = fit;
    shown.show(frame.width(), frame.height(), kRedPixel);
    settle();
    const QImage seen = host.stage().grab(widget("MoviePic", 0).geometry()).toImage();
    QRect is;
    for (int y = 0; y < seen.height(); ++y)
      for (int x = 0; x < seen.width(); ++x)
        if (seen.pixelColor(x, y) == kRed)
          is |= QRect(x, y, 1, 1);
        else
          EXPECT_EQ(seen.pixelColor(x, y), kBlack);
    EXPECT_EQ(is, red);
  }
  shown.show(0, 0, 0);
  EXPECT_EQ(colourAt("MoviePic", 0), kBlack) << "closed";
}

TEST_F(Frames, ANewOneRepaintsItsPlaceAndNothingElse) {
  shown.show(160, 80, kRedPixel);
  settle(20);
  Painted painted;
  for (int i = 0; i < 3; ++i) shown.show(160, 80, kRedPixel);
  settle();
  EXPECT_EQ(painted.take(), QStringList(u"MoviePic(0)"_s)) << "one paint for all that have come";
}

TEST_F(Frames, ThePlayerKnowsTheRoomAndWhenThereIsNone) {
  EXPECT_EQ(shown.rooms.last(), u"160x120 0"_s);
  page.fit = VideoFit::Filled;
  EXPECT_EQ(shown.rooms.last(), u"160x120 1"_s);
  form.move(page, {620, 120, 80, 60});
  EXPECT_EQ(shown.rooms.last(), u"80x60 1"_s);
  page.visible = false;
  EXPECT_EQ(shown.rooms.last(), u"0x0 1"_s);
  page.visible = true;
  EXPECT_EQ(shown.rooms.last(), u"80x60 1"_s);
  page.video = nullptr;
  EXPECT_EQ(shown.rooms.last(), u"0x0 1"_s);
}

TEST_F(Frames, GoFromThePageToTheScreenInEitherOrder) {
  shown.show(160, 120, kRedPixel);
  screen.visible = true;
  for (const bool givesFirst : {true, false}) {
    for (Surface* to : {&screen, &page}) {
      SCOPED_TRACE(testing::Message() << givesFirst << ' ' << to->index);
      Surface& from = to == &page ? screen : page;
      if (givesFirst) from.video = nullptr;
      to->video = &player.picture();
      if (!givesFirst) from.video = nullptr;
      EXPECT_EQ(colourAt("MoviePic", to->index), kRed) << "the frame at hand";
      EXPECT_EQ(colourAt("MoviePic", from.index), kBlack);
      const QSize room = widget("MoviePic", to->index).size();
      EXPECT_EQ(shown.rooms.last(), u"%1x%2 0"_s.arg(room.width()).arg(room.height()));
      shown.show(160, 120, 0xff00ff00);
      EXPECT_EQ(colourAt("MoviePic", to->index), kGreen) << "hears of the next";
      shown.show(160, 120, kRedPixel);
    }
  }
  tap("MoviePic", 0);
  EXPECT_TRUE(take().contains(u"MoviePic click"_s));
  host.close();
  shown.show(160, 120, 0xff00ff00);  // nobody is there to hear it
  EXPECT_EQ(shown.rooms.last(), u"0x0 0"_s);
}

class Native : public SmallConsole {
 protected:
  Native() {
    surface.drawer = [this](quintptr window) { drawer.draw(window); };
    host.stage().move(0, 0);
    surface.visible = true;
    // A busy machine may take its time for the first paint.
    comes([this] { return seen(free) == kGreen; });
  }
  ~Native() override { host.close(); }

  QPoint onScreen(QPoint at) { return host.stage().mapToGlobal(at); }
  QColor seen(QPoint at) {
    settle(50);
    return host.stage().screen()->grabWindow(host.stage().winId()).toImage().pixelColor(at);
  }
  QJsonObject run(const QJsonObject& command) {
    QJsonObject answer;
    commands.run(command, [&](QJsonObject with) { answer = with; });
    comes([&] { return !answer.isEmpty(); });
    return answer;
  }

  XDrawer drawer;
  ControlCommands commands{host};
  Surface& surface = control<Surface>("MSWebDVD1");
  const QPoint free{700, 450}, below{860, 455}, card{640, 384}, beside{760, 520};
};

TEST_F(Native, WhatLiesAboveIsSeenAndPressed) {
  EXPECT_EQ(seen(free), kGreen);
  EXPECT_TRUE(drawer.underFinger(onScreen(free)));
  EXPECT_NE(seen(below), kGreen) << "a check of the same form";
  EXPECT_FALSE(drawer.underFinger(onScreen(below)));
  control<Check>("chkOn").visible = false;
  EXPECT_EQ(seen(below), kGreen);
  EXPECT_TRUE(drawer.underFinger(onScreen(below)));

  QTimer::singleShot(100, &host.stage(), [&] {
    EXPECT_NE(seen(card), kGreen) << "the message";
    EXPECT_EQ(seen(beside), kGreen) << "plays on beside it";
    const QRect around = host.view(box)->geometry();
    EXPECT_EQ(
        seen(host.view(box)->mapTo(&host.stage(), QPoint(around.width() - 2, around.height() - 2))),
        kGreen)
        << "and around its corners";
    EXPECT_FALSE(drawer.underFinger(onScreen(card)));
    EXPECT_FALSE(drawer.underFinger(onScreen(beside))) << "the message keeps the presses";
    host.hide(box);
  });
  host.showModal(box);
  EXPECT_EQ(seen(card), kGreen);
  EXPECT_TRUE(drawer.underFinger(onScreen(beside)));
}

TEST_F(Native, ThePlayerHasAWindowWhileItShowsAndNoLonger) {
  EXPECT_EQ(drawer.given.size(), 1);
  const quintptr window = drawer.given.first();
  EXPECT_NE(window, 0U);
  surface.visible = false;
  EXPECT_EQ(drawer.given, (QList<quintptr>{window, 0}));
  EXPECT_NE(seen(free), kGreen);
  surface.visible = true;
  EXPECT_EQ(drawer.given.size(), 3);
  form.move(surface, {620, 550, 100, 40});
  EXPECT_NE(seen(free), kGreen);
  EXPECT_EQ(seen({700, 570}), kGreen);
  host.close();
  EXPECT_EQ(drawer.given.size(), 4);
  EXPECT_EQ(drawer.given.last(), 0U) << "before the window goes";
}

TEST_F(Native, APressIsThePlayersUnlessItLeavesItToTheForm) {
  const QJsonObject press{
      {u"command"_s, u"press"_s}, {u"name"_s, u"MSWebDVD1"_s}, {u"x"_s, 80}, {u"y"_s, 100}};
  take();
  EXPECT_EQ(run(press)["ok"_L1], QJsonValue(true));
  QStringList got;
  EXPECT_TRUE(comes([&] { return !(got << drawer.presses()).isEmpty(); }));
  EXPECT_EQ(got, QStringList(u"80,100"_s));
  EXPECT_EQ(take(), QStringList());
  surface.drawerPressed = false;
  EXPECT_TRUE(comes([&] { return !drawer.underFinger(onScreen(free)); }));
  run(press);
  settle(50);
  EXPECT_EQ(drawer.presses(), QStringList());
  EXPECT_EQ(take(),
            (QStringList{u"MSWebDVD1 press"_s, u"MSWebDVD1 release"_s, u"MSWebDVD1 click"_s}));
}

TEST_F(Native, TheScreenshotHasThePlayersPictureAndWhatLiesAbove) {
  QTemporaryDir directory;
  const QString file = directory.filePath(u"seen.png"_s);
  const auto shot = [&] {
    EXPECT_EQ(run({{u"command"_s, u"screenshot"_s}, {u"file"_s, file}})["ok"_L1], QJsonValue(true));
    return QImage(file);
  };
  const QImage painted = host.stage().grab().toImage(), whole = shot();
  EXPECT_EQ(whole.size(), painted.size());
  EXPECT_EQ(whole.pixelColor(free), kGreen);
  for (const QPoint at : {below, QPoint(300, 30), QPoint(5, 5), QPoint(1275, 763)})
    EXPECT_EQ(whole.pixelColor(at), painted.pixelColor(at)) << at.x();
  EXPECT_EQ(run({{u"command"_s, u"get"_s}, {u"name"_s, u"MSWebDVD1"_s}})["native"_L1],
            QJsonValue(true));
  host.show(box);
  EXPECT_NE(shot().pixelColor(card), kGreen);
}

}  // namespace
}  // namespace korvane

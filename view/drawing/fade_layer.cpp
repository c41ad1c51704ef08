#include "view/drawing/fade_layer.h"

#include <QEventLoop>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

namespace korvane {
namespace {

constexpr int kWaitingPressMs = 4, kFrameMs = 16;

}  // namespace

FadeLayer::FadeLayer(QPixmap picture, QRect place, QWidget* parent)
    : QWidget(parent), picture_(std::move(picture)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(place);
}

void FadeLayer::run(int milliseconds) {
  length_ = std::max(1, milliseconds);
  clock_.start();
  raise();
  show();
  // A press that waits comes before the first frame: what it opens is then painted, and nothing
  // before it. A handler that yields, yields to that frame too.
  QWidget& below = *parentWidget();
  below.setUpdatesEnabled(false);
  QTimer first;
  const auto paint = [&] {
    first.stop();
    below.setUpdatesEnabled(true);
    below.repaint();  // an update that was asked for meanwhile is not asked for again
  };
  connect(&first, &QTimer::timeout, this, paint);
  first.start(kWaitingPressMs);
  QTimer frames;
  frames.setTimerType(Qt::PreciseTimer);
  connect(&frames, &QTimer::timeout, this, [this] { update(); });
  frames.start(kFrameMs);
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
  if (first.isActive()) paint();
}

void FadeLayer::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setOpacity(std::clamp(1.0 - static_cast<double>(clock_.elapsed()) / length_, 0.0, 1.0));
  painter.drawPixmap(event->rect(), picture_, event->rect());
}

}  // namespace korvane

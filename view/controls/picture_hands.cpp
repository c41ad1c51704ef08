#include "view/controls/picture_hands.h"

#include <QLineF>

namespace korvane {
namespace {

using Hand = PictureArea::Hand;

constexpr double kStep = 1.25;              // of a tap that zooms
constexpr double kLeast = 1, kMost = 1600;  // percent
constexpr double kSlack = 12, kSwipe = 60;  // form units: a tap may wander, a swipe is longer
constexpr double kSideways = 2;             // how much more sideways than upright a swipe goes
constexpr double kLeastWindow = 24;         // form units
constexpr double kNear = 1.001;             // of the zoom that fits, and it does fit

}  // namespace

std::optional<ZoomedPlace> PictureHands::place() const {
  const Picture& picture = area_.picture();
  if (!picture.pixels || !area_.beside().empty() || on_.size().isEmpty()) return std::nullopt;
  const QSize size(picture.pixels->width, picture.pixels->height);
  if (size.isEmpty()) return std::nullopt;
  return ZoomedPlace(size, QSizeF(on_.size()) * on_.devicePixelRatioF(), area_.zoom(),
                     {area_.middleX(), area_.middleY()});
}

void PictureHands::show(const ZoomedPlace& to) {
  area_.zoom = to.percent();
  area_.middleX = to.middle().x();
  area_.middleY = to.middle().y();
}

void PictureHands::down(QPointF at) {
  held_ = true;
  drags_ = moves_ = false;
  from_ = at_ = at;
  start_ = place();
}

void PictureHands::move(QPointF at) {
  at_ = at;
  if (!held_ || pinches_) return;
  const Hand hand = area_.hand();
  if (!drags_) {
    if (hand == Hand::Press && !area_.gestures()) return;
    if (QLineF(from_, at).length() <= face_.px(kSlack)) return;
    drags_ = true;
    const bool holds = hand == Hand::Move ||
                       (area_.gestures() && hand != Hand::ZoomWindow && hand != Hand::Magnify);
    moves_ = changing_ = holds && start_ && start_->larger();
  }
  if (moves_ && start_) show(start_->moved(start_->percent(), device(from_), device(at)));
}

PictureHands::Meant PictureHands::up(QPointF at) {
  if (!std::exchange(held_, false)) return Meant::Nothing;
  changing_ = false;
  if (drags_) return dragged(at);
  switch (area_.hand()) {
    case Hand::Press:
      return Meant::Tap;
    case Hand::ZoomIn:
      zoomAbout(at, kStep);
      return start_ ? Meant::Zoomed : Meant::Nothing;
    case Hand::ZoomOut:
      zoomAbout(at, 1 / kStep);
      return start_ ? Meant::Zoomed : Meant::Nothing;
    case Hand::Move:
    case Hand::ZoomWindow:
    case Hand::Magnify:
      return Meant::Nothing;
  }
  Q_UNREACHABLE();
}

PictureHands::Meant PictureHands::dragged(QPointF at) {
  if (moves_) return Meant::Zoomed;
  const Hand hand = area_.hand();
  if (hand == Hand::Magnify) return Meant::Nothing;
  if (hand == Hand::ZoomWindow) {
    const QRectF part = QRectF(from_, at).normalized();
    if (!start_ || std::min(part.width(), part.height()) < face_.px(kLeastWindow))
      return Meant::Nothing;
    const ZoomedPlace to =
        start_->filled(QRectF(device(part.topLeft()), device(part.bottomRight())));
    show(to.percent() <= kMost
             ? to
             : start_->moved(kMost, device(part.center()), device(part.center())));
    return Meant::Zoomed;
  }
  const QPointF way = at - from_;
  const bool swipe =
      std::abs(way.x()) > face_.px(kSwipe) && std::abs(way.x()) > kSideways * std::abs(way.y());
  if (!swipe || !area_.gestures()) return Meant::Nothing;
  return way.x() < 0 ? Meant::SwipeOn : Meant::SwipeBack;
}

void PictureHands::zoomAbout(QPointF at, double factor) {
  if (!start_) return;
  const double percent = std::clamp(start_->percent() * factor, kLeast, kMost);
  show(start_->moved(percent, device(at), device(at)));
}

void PictureHands::pinch(QPointF first, QPointF other) {
  const QPointF middle = (first + other) / 2;
  const double apart = std::max(1.0, QLineF(first, other).length());
  if (!pinches_) {
    start_ = place();
    held_ = false;
    pinches_ = true;
    changing_ = start_.has_value();
    middle_ = middle;
    apart_ = apart;
  }
  if (!start_) return;
  const double least = start_->fitted();
  const double percent =
      std::clamp(start_->percent() * apart / apart_, least, std::max(least, kMost));
  if (percent <= least * kNear) {
    area_.zoom = 0;
    area_.middleX = area_.middleY = 0.5;
  } else {
    show(start_->moved(percent, device(middle_), device(middle)));
  }
}

PictureHands::Meant PictureHands::endPinch() {
  changing_ = false;
  return std::exchange(pinches_, false) && start_ ? Meant::Zoomed : Meant::Nothing;
}

void PictureHands::cancel() {
  held_ = pinches_ = changing_ = false;
}

void PictureHands::pictureChanged() {
  if (pinches_) {
    cancel();
  } else if (held_) {
    const bool dragging = drags_;
    down(at_);
    drags_ = dragging;
  }
}

std::optional<QRectF> PictureHands::window() const {
  if (!held_ || !drags_ || area_.hand() != Hand::ZoomWindow) return std::nullopt;
  return QRectF(from_, at_).normalized();
}

std::optional<QPointF> PictureHands::magnified() const {
  if (!held_ || area_.hand() != Hand::Magnify || !start_) return std::nullopt;
  return at_;
}

}  // namespace korvane

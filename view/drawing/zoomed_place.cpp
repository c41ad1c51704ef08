#include "view/drawing/zoomed_place.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr double kHair = 0.5;  // pixels that a picture may be larger and still fit

double within(double middle, double length, double area) {
  if (length <= area) return 0.5;
  const double half = area / 2 / length;
  return std::clamp(middle, half, 1 - half);
}

QSizeF fit(QSizeF picture, QSizeF area) {
  return picture.scaled(area, Qt::KeepAspectRatio);
}

}  // namespace

ZoomedPlace::ZoomedPlace(QSizeF picture, QSizeF area, double percent, QPointF middle)
    : picture_(picture), area_(area), percent_(percent > 0 ? percent : fitted()) {
  const QSizeF shown = picture_ * (percent_ / 100);
  middle_ = QPointF(within(middle.x(), shown.width(), area_.width()),
                    within(middle.y(), shown.height(), area_.height()));
}

double ZoomedPlace::fitted() const {
  return fit(picture_, area_).width() / picture_.width() * 100;
}

QRectF ZoomedPlace::rect() const {
  const QSizeF shown = picture_ * (percent_ / 100);
  return QRectF(QPointF(area_.width() / 2 - middle_.x() * shown.width(),
                        area_.height() / 2 - middle_.y() * shown.height()),
                shown);
}

bool ZoomedPlace::larger() const {
  const QSizeF shown = rect().size();
  return shown.width() > area_.width() + kHair || shown.height() > area_.height() + kHair;
}

ZoomedPlace ZoomedPlace::moved(double percent, QPointF from, QPointF to) const {
  const QRectF now = rect();
  const QSizeF shown = picture_ * (percent / 100);
  const QPointF held((from.x() - now.left()) / now.width(), (from.y() - now.top()) / now.height());
  return {picture_, area_, percent,
          held + QPointF((area_.width() / 2 - to.x()) / shown.width(),
                         (area_.height() / 2 - to.y()) / shown.height())};
}

ZoomedPlace ZoomedPlace::filled(const QRectF& part) const {
  const double larger = fit(part.size(), area_).width() / part.width();
  return moved(percent_ * larger, part.center(), QPointF(area_.width() / 2, area_.height() / 2));
}

}  // namespace korvane

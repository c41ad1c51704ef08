// Where a picture lies in its area, whole or zoomed: a value of device pixels, from the area's
// upper left corner.
#pragma once

#include <QRectF>

namespace korvane {

class ZoomedPlace {
 public:
  // `percent` of the picture's own pixels, 0 for what fits it in; `middle` is the point of the
  // picture, in shares of its sides, that lies in the middle of the area. Neither size is empty. An
  // edge that would come inside an area that the picture is larger than stays at the area's edge,
  // and a picture that is smaller lies in the middle.
  ZoomedPlace(QSizeF picture, QSizeF area, double percent, QPointF middle);

  double percent() const { return percent_; }
  double fitted() const;  // the percent that fits it in
  QPointF middle() const { return middle_; }
  QRectF rect() const;  // of the whole picture
  bool larger() const;  // than the area, one way or both

  // At that percent, with the point that lies at `from` now at `to`, as far as the edges let it.
  ZoomedPlace moved(double percent, QPointF from, QPointF to) const;
  // With `part` of the area as large as the area.
  ZoomedPlace filled(const QRectF& part) const;

 private:
  QSizeF picture_, area_;
  double percent_;
  QPointF middle_;
};

}  // namespace korvane

// What fingers do to a picture area: they zoom its picture and move it. Decides and sets the zoom
// and the middle of the control; fires nothing and paints nothing.
#pragma once

#include <optional>

#include "view/controls/control_widget.h"
#include "view/drawing/zoomed_place.h"

namespace korvane {

class PictureHands {
 public:
  // `on` is the widget that shows the area; both outlive it.
  PictureHands(PictureArea& area, const Face& face, const QWidget& on)
      : area_(area), face_(face), on_(on) {}

  // Where the picture lies; nothing where there is none that can be zoomed: of decoded pixels and
  // not beside another one.
  std::optional<ZoomedPlace> place() const;

  // Fingers, in the pixels of the widget.
  enum class Meant { Nothing, Tap, Zoomed, SwipeOn, SwipeBack };
  void down(QPointF at);
  void move(QPointF at);
  Meant up(QPointF at);                      // Zoomed: the values of the control are final
  void pinch(QPointF first, QPointF other);  // two of them, from their second one on
  Meant endPinch();
  void cancel();

  void pictureChanged();                     // what is held goes on with the new one
  bool moving() const { return changing_; }  // the next picture will be another
  // What is to be drawn above the picture while the finger is down, in the widget's pixels.
  std::optional<QRectF> window() const;      // the rectangle to zoom into
  std::optional<QPointF> magnified() const;  // the place under the loupe

 private:
  void show(const ZoomedPlace& to);
  void zoomAbout(QPointF at, double factor);
  Meant dragged(QPointF at);
  QPointF device(QPointF at) const { return at * on_.devicePixelRatioF(); }

  PictureArea& area_;
  const Face& face_;
  const QWidget& on_;
  bool held_ = false, drags_ = false, moves_ = false, pinches_ = false, changing_ = false;
  QPointF from_, at_;                 // where the finger came down, where it is
  std::optional<ZoomedPlace> start_;  // the picture when it came
  QPointF middle_;                    // of two fingers when they came
  double apart_ = 1;                  //   and how far they were from each other
};

}  // namespace korvane

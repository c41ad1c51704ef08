// A picture of any file or of the theme, whole or zoomed, or two side by side; a change fades.
//
// What is shown stays until the next picture is drawn, which happens on another thread where it is
// not of the theme and has not the size of its place already. Only pixels can be zoomed, and no
// pair.
#pragma once

#include "view/controls/picture_hands.h"
#include "view/controls/press_widget.h"

class QTouchEvent;

namespace korvane {

class PictureAreaWidget : public PressWidget {
 public:
  PictureAreaWidget(PictureArea& area, Face& face, QWidget* parent);

  void mirror(Aspect aspect) override;
  void place() override;
  void cancelPress() override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void fingerDown(QPointF at, bool second) override;
  void fingerMoved(QPointF at) override;
  void fingerLeft(QPointF at, bool second) override;

 private:
  // What is to be seen; all places and sizes below are device pixels.
  struct Scene {
    Picture picture, beside;
    double zoom = 0;
    QPointF middle;
    bool pair() const { return !beside.empty(); }
    bool zoomed() const { return zoom > 0 && picture.pixels && !pair(); }
  };
  Scene wanted() const;
  QSize area() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }
  QSize room(const Scene& scene) const;  // of each picture

  bool ready(const Scene& scene);
  void adopt(const Scene& scene);  // from now on it is shown, or fades in
  void endFade();
  QPixmap seen();  // what shows now, without what lies below the area

  void paintSeen(QPainter& painter);
  void paintScene(QPainter& painter, const Scene& scene);
  void paintFitted(QPainter& painter, const Picture& picture, const QRect& room);
  void paintLoupe(QPainter& painter, QPointF at);
  void paintWindow(QPainter& painter, const QRectF& window);

  void touched(const QTouchEvent& event);
  void meant(PictureHands::Meant what, QPointF at, bool second);
  void measure();  // keeps the control's `fitted`

  PictureArea& area_;
  PictureHands hands_;
  Scene shown_;
  bool fresh_ = true;  // nothing is seen yet that could fade
  QPixmap before_;     // what fades; null while nothing does
  QElapsedTimer fading_;
  int fadeMs_ = 0;
  QBasicTimer frame_;
  bool touching_ = false, pinched_ = false;
  QElapsedTimer sinceTap_;  // of a touch
  QPointF tappedAt_;
};

}  // namespace korvane

// A tile with a caption, a picture, or both.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class ButtonWidget : public PressWidget {
 public:
  ButtonWidget(Button& button, Face& face, QWidget* parent);

  void mirror(Aspect aspect) override;
  void place() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawAhead();
  double iconSide() const;
  bool wide() const;  // the icon stands before the caption
  void drawRing(QPainter& painter, double radius);
  void drawPicture(QPainter& painter, const QRectF& area, QSize size);
  void drawIconAndCaption(QPainter& painter, const QRectF& inner);
  void drawCaption(QPainter& painter, const QRectF& area, Qt::Alignment alignment);

  Button& button_;
};

}  // namespace korvane

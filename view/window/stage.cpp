#include "view/window/stage.h"

#include <QCloseEvent>
#include <QPaintEvent>
#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {

Stage::Stage() {
  setObjectName(u"stage"_s);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
}

void Stage::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(event->rect(), style::kGround);
}

void Stage::resizeEvent(QResizeEvent*) {
  if (resized) resized();
}

void Stage::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (closed) closed();
}

void Stage::keyPressEvent(QKeyEvent* event) {
  if (pressedKey) pressedKey(*event);
}

void Stage::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange && minimised) minimised(isMinimized());
  QWidget::changeEvent(event);
}

void DimLayer::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(event->rect(), QColor(4, 6, 9, 165));
}

void DimLayer::mousePressEvent(QMouseEvent*) {}

}  // namespace korvane

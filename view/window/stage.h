// The console's one window, in which forms lie above each other.
#pragma once

#include <QWidget>
#include <functional>

namespace korvane {

class Stage : public QWidget {
 public:
  Stage();

  std::function<void()> resized;
  std::function<void()> closed;  // the desktop asks to close the window
  std::function<void(QKeyEvent&)> pressedKey;
  std::function<void(bool)> minimised;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
};

// Darkens what lies below a modal form and takes the presses meant for it.
class DimLayer : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace korvane

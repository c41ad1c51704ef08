// The console's one window, in which forms lie above each other.
#pragma once

#include <QWidget>
#include <functional>

namespace korvane {

class Stage : public QWidget {
 public:
  Stage();

  // What its owner hears; each may be unset.
  std::function<void()> resized;               // before the first paint of the new size
  std::function<void()> closed;                // the desktop asks to close it; it stays
  std::function<void(QKeyEvent&)> pressedKey;  // one that no field in it has taken
  std::function<void(bool)> minimised;         // by the desktop; false when it is back

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

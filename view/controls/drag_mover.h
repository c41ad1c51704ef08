// Lets a finger drag a window by what lies in it; a drag clicks nothing.
#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

namespace korvane {

class DragMover : public QObject {
 public:
  // Moves the window of `handle` when `handle`, or with `all` anything in it, is dragged. Owned by
  // it.
  DragMover(QWidget* handle, bool all);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* handle_;
  QPoint from_, start_;  // the finger and the window, on the desktop
  bool held_ = false, dragged_ = false;
};

}  // namespace korvane

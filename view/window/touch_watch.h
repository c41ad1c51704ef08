// Watches the fingers and buttons on all windows of the program, wherever they come down, and keeps
// a touch from what lies there when it is asked to.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>

namespace korvane {

class TouchWatch : public QObject {
 public:
  TouchWatch();

  // As Touches::tell.
  std::function<bool(bool left, bool right)> changed;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool change();  // true when the event is kept from the window

  bool finger_ = false, keeping_ = false, down_ = false;
  Qt::MouseButtons buttons_;
  QElapsedTimer sinceKept_;  // the beginning of the last touch that was
};

}  // namespace korvane

#include "view/window/touch_watch.h"

#include <QApplication>
#include <QMouseEvent>

namespace korvane {

TouchWatch::TouchWatch() {
  qApp->installEventFilter(this);
}

// The windows alone, which have each event once and before their widgets. A finger comes as a touch
// and, unless somebody takes that, as the left button too.
bool TouchWatch::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWindowType()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
      buttons_ = static_cast<QMouseEvent*>(event)->buttons();
      return change();
    case QEvent::TouchBegin:
      finger_ = true;
      return change();
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      finger_ = false;
      return change();
    case QEvent::MouseMove:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchUpdate:
      return keeping_;
    default:
      return false;
  }
}

bool TouchWatch::change() {
  const bool begins = !std::exchange(down_, finger_ || buttons_) && down_;
  const bool kept =
      changed && changed(finger_ || (buttons_ & Qt::LeftButton), bool(buttons_ & Qt::RightButton));
  if (begins) {
    const bool second =
        sinceKept_.isValid() && !sinceKept_.hasExpired(QApplication::doubleClickInterval());
    keeping_ = kept || second;
    if (kept) sinceKept_.start();
  }
  const bool keep = keeping_;
  if (!down_) keeping_ = false;
  return keep;
}

}  // namespace korvane

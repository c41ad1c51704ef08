#include "view/window/tray_icon.h"

#include <QApplication>
#include <QElapsedTimer>

namespace korvane {

bool TrayIcon::add(const QString& tip, std::function<void()> restore) {
  if (!QSystemTrayIcon::isSystemTrayAvailable()) return false;
  tray_ = std::make_unique<QSystemTrayIcon>(icon_);
  tray_->setToolTip(tip);
  QObject::connect(tray_.get(), &QSystemTrayIcon::activated, tray_.get(),
                   [this, restore = std::move(restore),
                    since = QElapsedTimer()](QSystemTrayIcon::ActivationReason reason) mutable {
                     const bool single = reason == QSystemTrayIcon::Trigger;
                     const bool second = single && since.isValid() &&
                                         since.elapsed() < QApplication::doubleClickInterval();
                     if (single) since.restart();
                     if (!second && reason != QSystemTrayIcon::DoubleClick) return;
                     since.invalidate();
                     pump_.later(restore);
                   });
  tray_->show();
  return true;
}

// Deleted later, since this may be called from within the icon's own event.
void TrayIcon::remove() {
  if (!tray_) return;
  tray_->hide();
  tray_.release()->deleteLater();
}

}  // namespace korvane

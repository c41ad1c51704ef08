// The tray of the desktop.
#pragma once

#include <QIcon>
#include <QSystemTrayIcon>
#include <memory>

#include "platform/machine.h"
#include "platform/pump.h"

namespace korvane {

class TrayIcon : public Tray {
 public:
  TrayIcon(Pump& pump, QIcon icon) : pump_(pump), icon_(std::move(icon)) {}

  // `restore` runs from the event loop. Touch desktops report a double tap as two presses: two
  // within the system's double click time count as one.
  bool add(const QString& tip, std::function<void()> restore) override;
  void remove() override;

 private:
  Pump& pump_;
  QIcon icon_;
  std::unique_ptr<QSystemTrayIcon> tray_;
};

}  // namespace korvane

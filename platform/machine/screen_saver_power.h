// The screen kept on, through Inhibit and UnInhibit of org.freedesktop.ScreenSaver on the session
// bus (the desktop's idle inhibition, which covers both its screen saver and the screen's power).
//
// Calls are sent and not waited for. Without a bus, or without that service, nothing happens.
#pragma once

#include <QDBusConnection>
#include <memory>

#include "platform/machine.h"

namespace korvane {

class ScreenSaverPower : public ScreenPower {
 public:
  ScreenSaverPower();                                     // the session bus, when first needed
  explicit ScreenSaverPower(const QDBusConnection& bus);  // another bus
  ~ScreenSaverPower() override;                           // gives back what it holds

  // The values last written, since the desktop answers none of its own; both active before that.
  Saved read() const override { return saved_; }
  void write(const Saved& values) override;  // both powers off keeps the screen on
  void setScreenSaverActive(bool on) override;

 private:
  class Inhibition;
  Inhibition& inhibition();

  Saved saved_{true, true, 0, 0};
  bool saverActive_ = true;
  std::unique_ptr<Inhibition> inhibition_;

  void apply();
};

}  // namespace korvane

// Shutdown and restart through org.freedesktop.login1 of the system bus (systemd-logind, its
// PowerOff(interactive) and Reboot(interactive)).
#pragma once

#include <QDBusConnection>

#include "platform/machine.h"

namespace korvane {

class LoginSession : public Session {
 public:
  LoginSession() = default;                                  // the system bus, when first needed
  explicit LoginSession(QDBusConnection bus) : bus_(bus) {}  // another bus

  // Waits up to 3 s for the answer of the bus. The flag 4 (force) changes nothing: the console has
  // closed what it holds, and who else may object is the machine's own policy.
  bool exitWindows(int flags) override;

  // The method that the flags mean; empty when they mean none.
  static QString methodOf(int flags);

 private:
  std::optional<QDBusConnection> bus_;
};

}  // namespace korvane

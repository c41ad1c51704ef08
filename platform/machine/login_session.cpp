#include "platform/machine/login_session.h"

#include <QDBusMessage>

namespace korvane {

QString LoginSession::methodOf(int flags) {
  enum { ShutDown = 1, Restart = 2, PowerOff = 8 };
  if (flags & Restart) return u"Reboot"_s;
  if (flags & (ShutDown | PowerOff)) return u"PowerOff"_s;
  return {};
}

bool LoginSession::exitWindows(int flags) {
  constexpr int kPatience = 3000;  // ms
  const QString method = methodOf(flags);
  if (method.isEmpty()) return false;
  if (!bus_) bus_ = QDBusConnection::systemBus();
  QDBusMessage call =
      QDBusMessage::createMethodCall(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                                     u"org.freedesktop.login1.Manager"_s, method);
  call << false;  // ask nobody for a password
  return bus_->isConnected() &&
         bus_->call(call, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace korvane

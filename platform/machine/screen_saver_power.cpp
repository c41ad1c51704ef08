#include "platform/machine/screen_saver_power.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>

namespace korvane {
namespace {

constexpr int kPatience = 2000;  // ms until an answer is given up

QDBusMessage call(const QString& method) {
  return QDBusMessage::createMethodCall(u"org.freedesktop.ScreenSaver"_s,
                                        u"/org/freedesktop/ScreenSaver"_s,
                                        u"org.freedesktop.ScreenSaver"_s, method);
}

// Asking for a session bus that was never started would start one and wait for it.
bool sessionBusRuns() {
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
         QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1);
}

}  // namespace

// One wish, on or off, and the cookie by which the bus knows it. A wish that changes while an
// answer is out is followed when the answer has come.
class ScreenSaverPower::Inhibition {
 public:
  explicit Inhibition(std::optional<QDBusConnection> bus) : bus_(std::move(bus)) {}
  ~Inhibition() { want(false); }

  void want(bool on) {
    wanted_ = on;
    if (!bus_ || !bus_->isConnected() || asked_) return;
    if (on && !cookie_) ask();
    if (!on && cookie_) release();
  }

 private:
  void ask() {
    QDBusMessage message = call(u"Inhibit"_s);
    message << u"Korvane"_s << u"A movie or pictures are on the screen"_s;
    asked_ = std::make_unique<QDBusPendingCallWatcher>(bus_->asyncCall(message, kPatience));
    QObject::connect(asked_.get(), &QDBusPendingCallWatcher::finished, asked_.get(),
                     [this](QDBusPendingCallWatcher* done) { answered(*done); });
  }

  void answered(QDBusPendingCallWatcher& watcher) {
    const QDBusPendingReply<uint> reply = watcher;
    asked_.release()->deleteLater();
    if (reply.isError()) return;
    cookie_ = reply.value();
    want(wanted_);
  }

  void release() {
    QDBusMessage message = call(u"UnInhibit"_s);
    message << *cookie_;
    cookie_.reset();
    bus_->send(message);
  }

  std::optional<QDBusConnection> bus_;
  std::unique_ptr<QDBusPendingCallWatcher> asked_;
  std::optional<uint> cookie_;
  bool wanted_ = false;
};

ScreenSaverPower::ScreenSaverPower() = default;

ScreenSaverPower::ScreenSaverPower(const QDBusConnection& bus)
    : inhibition_(std::make_unique<Inhibition>(bus)) {}

ScreenSaverPower::~ScreenSaverPower() = default;

ScreenSaverPower::Inhibition& ScreenSaverPower::inhibition() {
  if (!inhibition_)
    inhibition_ = std::make_unique<Inhibition>(
        sessionBusRuns() ? std::optional(QDBusConnection::sessionBus()) : std::nullopt);
  return *inhibition_;
}

void ScreenSaverPower::write(const Saved& values) {
  saved_ = values;
  apply();
}

void ScreenSaverPower::setScreenSaverActive(bool on) {
  saverActive_ = on;
  apply();
}

void ScreenSaverPower::apply() {
  const bool screenStaysOn = !saverActive_ || (!saved_.powerOffActive && !saved_.lowPowerActive);
  inhibition().want(screenStaysOn);
}

}  // namespace korvane

// The disks service of the system bus, UDisks2 (org.freedesktop.UDisks2, its reference manual):
// what drives and media there are, kept up to date, and calls to them. It works without root, by
// the machine's own policy.
//
// All answers come from the event loop; no call here waits for the bus.
#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QMap>
#include <QTimer>
#include <QVariantMap>

#include <functional>
#include <memory>

#include "platform/pump.h"
#include "platform/text.h"

class QDBusPendingCall;

namespace korvane {

class Udisks {
 public:
  // Interfaces of an object, without the "org.freedesktop.UDisks2." before them, and their values.
  using Object = QMap<QString, QVariantMap>;
  using Objects = QMap<QDBusObjectPath, Object>;

  // The pump is not owned and must outlive this. Nothing is asked before start().
  explicit Udisks(Pump& pump) : pump_(pump) {}
  Udisks(Pump& pump, const QDBusConnection& bus) : pump_(pump), bus_(bus) {}  // another bus
  ~Udisks();
  Udisks(const Udisks&) = delete;

  // Asks for all there is, and starts the service where it can be started; nothing the second time.
  void start();
  // It runs and has answered. Without a bus or the service never, and not any more once it ends.
  bool runs() const { return runs_; }
  const Objects& objects() const { return objects_; }  // none while it does not run
  std::function<void()> changed = [] {};               // runs() or objects() may tell otherwise now

  // Calls a method, as ("/org/.../drives/X", "Drive", "Eject", {options}); `done` hears what is
  // wrong, in the service's words, or an empty text. Given up after `seconds`.
  void call(const QDBusObjectPath& object, const QString& interface, const QString& method,
            const QVariantList& arguments, int seconds,
            std::function<void(const QString& trouble)> done);

  // A value of a file's path, which UDisks2 gives as bytes with a 0 at their end.
  static QString pathOf(const QVariant& value);

 private:
  using Answered = std::function<void(const QDBusPendingCall&)>;

  void listen();
  void refresh();
  void answered(const QDBusPendingCall& reply);
  void ended();
  void await(const QDBusPendingCall& call, Answered then);

  Pump& pump_;
  std::optional<QDBusConnection> bus_;  // once it is known
  bool started_ = false, runs_ = false, asked_ = false, again_ = false;
  Objects objects_;
  QTimer soon_;  // news in a burst are one; owns the calls whose answers are out
  std::unique_ptr<QDBusServiceWatcher> owner_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

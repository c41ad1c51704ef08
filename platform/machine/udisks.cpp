#include "platform/machine/udisks.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr int kPatience = 5000;  // ms until an answer is given up; the service may have to start
constexpr int kBurst = 50;       // ms between news and the look at what is new

QString service() {
  return u"org.freedesktop.UDisks2"_s;
}

QDBusMessage callOf(const QString& path, const QString& interface, const QString& method) {
  return QDBusMessage::createMethodCall(service(), path, interface, method);
}

// Without the interfaces of others, as those of D-Bus itself.
Udisks::Object named(const Udisks::Object& interfaces) {
  const QString prefix = service() + u'.';
  Udisks::Object object;
  for (const auto& [name, values] : interfaces.asKeyValueRange())
    if (name.startsWith(prefix)) object.insert(name.sliced(prefix.size()), values);
  return object;
}

}  // namespace

Udisks::~Udisks() = default;

void Udisks::start() {
  if (std::exchange(started_, true)) return;
  if (bus_) return listen();
  // The way to a bus may be long: it greets, and a machine may have none.
  const auto made = std::make_shared<std::optional<QDBusConnection>>();
  pump_.aside([made] { *made = QDBusConnection::systemBus(); },
              [this, made, weak = std::weak_ptr(alive_)] {
                if (weak.expired()) return;
                bus_ = *made;
                listen();
              });
}

void Udisks::listen() {
  if (!bus_->isConnected()) return;
  owner_ = std::make_unique<QDBusServiceWatcher>(service(), *bus_,
                                                 QDBusServiceWatcher::WatchForOwnerChange);
  QObject::connect(owner_.get(), &QDBusServiceWatcher::serviceOwnerChanged, &soon_,
                   [this](const QString&, const QString&, const QString& now) {
                     now.isEmpty() ? ended() : soon_.start();
                   });
  soon_.setSingleShot(true);
  soon_.setInterval(kBurst);
  soon_.callOnTimeout([this] { refresh(); });
  const QString manager = u"org.freedesktop.DBus.ObjectManager"_s;
  for (const QString& news : {u"InterfacesAdded"_s, u"InterfacesRemoved"_s})
    bus_->connect(service(), {}, manager, news, &soon_, SLOT(start()));
  bus_->connect(service(), {}, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, &soon_,
                SLOT(start()));
  refresh();
}

void Udisks::refresh() {
  again_ = asked_;
  if (std::exchange(asked_, true)) return;
  await(bus_->asyncCall(callOf(u"/org/freedesktop/UDisks2"_s,
                               u"org.freedesktop.DBus.ObjectManager"_s, u"GetManagedObjects"_s),
                        kPatience),
        [this](const QDBusPendingCall& reply) { answered(reply); });
}

void Udisks::answered(const QDBusPendingCall& reply) {
  asked_ = false;
  const QVariant value = reply.reply().arguments().value(0);
  if (reply.isError() || value.metaType() != QMetaType::fromType<QDBusArgument>()) return ended();
  const auto all = qdbus_cast<QMap<QDBusObjectPath, Object>>(value);
  objects_.clear();
  for (const auto& [path, interfaces] : all.asKeyValueRange())
    objects_.insert(path, named(interfaces));
  runs_ = true;
  if (std::exchange(again_, false)) refresh();
  changed();
}

void Udisks::ended() {
  objects_.clear();
  if (std::exchange(runs_, false)) changed();
}

void Udisks::await(const QDBusPendingCall& call, Answered then) {
  auto* watcher = new QDBusPendingCallWatcher(call, &soon_);  // which owns it
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                   [then = std::move(then)](QDBusPendingCallWatcher* done) {
                     done->deleteLater();
                     then(*done);
                   });
}

void Udisks::call(const QDBusObjectPath& object, const QString& interface, const QString& method,
                  const QVariantList& arguments, int seconds,
                  std::function<void(const QString& trouble)> done) {
  if (!bus_ || !bus_->isConnected())
    return pump_.later([done = std::move(done)] { done(u"The service of disks does not run."_s); });
  QDBusMessage message = callOf(object.path(), service() + u'.' + interface, method);
  message.setArguments(arguments);
  await(bus_->asyncCall(message, seconds * 1000),
        [done = std::move(done)](const QDBusPendingCall& reply) {
          done(reply.isError() ? reply.error().message() : QString());
        });
}

QString Udisks::pathOf(const QVariant& value) {
  return toPath(value.toByteArray().constData());
}

}  // namespace korvane

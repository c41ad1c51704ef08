// A D-Bus daemon of a test's own.
#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QProcess>

#include "platform/text.h"

namespace korvane {

class PrivateBus {
 public:
  PrivateBus() {
    daemon_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    EXPECT_TRUE(daemon_.waitForReadyRead(10'000)) << "dbus-daemon must be installed";
    address = QString::fromLatin1(daemon_.readLine().trimmed());
  }
  ~PrivateBus() {
    for (const QString& name : names_) QDBusConnection::disconnectFromBus(name);
    daemon_.kill();
    daemon_.waitForFinished();
  }
  // A connection of that name, which ends with this.
  QDBusConnection connect(const QString& name) {
    names_ << name;
    return QDBusConnection::connectToBus(address, name);
  }
  QString address;

 private:
  QProcess daemon_;
  QStringList names_;
};

}  // namespace korvane

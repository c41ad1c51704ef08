// The server of lying_server.py for the time of a test.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>

#include "platform/text.h"

namespace korvane {

class LyingServer {
 public:
  explicit LyingServer(const QStringList& arguments = {}) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(u"python3"_s, QStringList{QStringLiteral(LYING_SERVER)} + arguments);
    EXPECT_TRUE(process_.waitForStarted());
    while (!process_.canReadLine() && process_.waitForReadyRead(10'000)) {
    }
    port = process_.readLine().trimmed().toUShort();
    EXPECT_GT(port, 0);
  }
  ~LyingServer() {
    process_.kill();
    process_.waitForFinished(3000);
  }
  QString address() const { return u"127.0.0.1:%1"_s.arg(port); }

  quint16 port = 0;

 private:
  QProcess process_;
};

}  // namespace korvane

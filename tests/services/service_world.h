// The door of a service between fakes.
#pragma once

#include <gtest/gtest.h>

#include "services/server/record_server.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/fake_tcp_server.h"
#include "tests/fakes/print.h"

namespace korvane {

struct HeardLog : ServiceLog {
  using ServiceLog::ServiceLog;
  void write(const QByteArray& line) override { text += line; }
  QByteArray text;
};

// "MUSIC|PLAY$" as bytes: '|' for the end of a field, '~' within one, '$' for the end of a record.
inline QByteArray bytes(QByteArray text) {
  return text.replace('|', '\0').replace('~', '\2').replace('$', '\1');
}

struct ServiceWorld : testing::Test {
  using Peer = TcpServer::Peer;

  // Lets time pass in steps of the door's own looks.
  void pass(int milliseconds) {
    for (int i = 0; i < milliseconds; i += 25) {
      system.clock.advance(25);
      doorTicker.fire();
    }
  }
  void takeTurns() {  // until nobody waits for one
    while (turns.running()) turns.fire();
  }
  void say(Peer peer, const QByteArray& text) { tcp.arrive(peer, bytes(text)); }
  QByteArray heard(Peer peer) {  // since the last call, in the signs of bytes()
    return tcp.take(peer).replace('\0', '|').replace('\2', '~').replace('\1', '$');
  }

  FakeSystem system;
  FakeTcpServer tcp;
  FakeTicker doorTicker, turns;
  HeardLog log{system.clock, "test"};
  AllowList allow;
  ServerLimits limits;
};

}  // namespace korvane

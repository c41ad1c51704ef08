// A listening socket in a test's hand: peers join, send, stop reading and leave when it says so.
#pragma once

#include <map>

#include "platform/tcp_server.h"
#include "platform/ticker.h"

namespace korvane {

class FakeTcpServer : public TcpServer {
 public:
  void setEvents(Events* events) override { events_ = events; }
  bool listen(const QString&, quint16, QString*) override { return true; }
  quint16 port() const override { return 7411; }
  void send(Peer peer, const QByteArray& bytes) override {
    sent[peer] << bytes;
    if (deaf.contains(peer)) waiting[peer] += bytes.size();
  }
  qint64 unsent(Peer peer) const override { return waiting.contains(peer) ? waiting.at(peer) : 0; }
  void drop(Peer peer) override { dropped << peer; }
  void hold(Peer peer, bool on) override {
    held.removeAll(peer);
    if (on) held << peer;
  }

  Peer join(const QString& address = u"127.0.0.1"_s) {
    return events_->joined(++last_, address) ? last_ : 0;
  }
  void arrive(Peer peer, const QByteArray& bytes) { events_->arrived(peer, bytes); }
  void leave(Peer peer) {
    held.removeAll(peer);
    events_->left(peer);
  }
  QByteArray take(Peer peer) {
    return std::exchange(sent[peer], {}).join();
  }  // since the last call

  std::map<Peer, QByteArrayList> sent;  // each send whole
  std::map<Peer, qint64> waiting;
  QList<Peer> deaf, dropped, held;

 private:
  Events* events_ = nullptr;
  Peer last_ = 0;
};

// Ticks when the test says so.
class FakeTicker : public Ticker {
 public:
  void start(int milliseconds) override { period = milliseconds; }
  void stop() override { period = 0; }
  bool running() const override { return period > 0; }
  void fire() {
    if (running() && tick) tick();
  }
  int period = 0;
};

}  // namespace korvane

// A listening TCP socket and the connections that others made to it. Called from the thread of
// the event loop only.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace korvane {

class TcpServer {
 public:
  using Peer = quint64;  // number of a connection; never given twice

  // Heard from the event loop. Any call of the server is allowed inside.
  class Events {
   public:
    virtual ~Events() = default;
    // A connection from that numeric address; false ends it at once, and it is not heard of again.
    virtual bool joined(Peer peer, const QString& address) = 0;
    virtual void arrived(Peer peer, const QByteArray& bytes) = 0;
    virtual void took(Peer peer) = 0;  // the peer's machine has taken some of what was sent
    virtual void left(Peer peer) = 0;  // the peer ended it or is out of reach
  };

  virtual ~TcpServer() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  // At a numeric address of this machine ("0.0.0.0" and "::" are all of them) and a port; 0 takes
  // any free one. False with `error` in words.
  virtual bool listen(const QString& address, quint16 port, QString* error) = 0;
  virtual quint16 port() const = 0;  // the one taken; 0 while not listening

  virtual void send(Peer peer, const QByteArray& bytes) = 0;  // one write; nothing once it has gone
  virtual qint64 unsent(Peer peer) const = 0;  // bytes that the peer's machine has not taken yet
  virtual void drop(Peer peer) = 0;            // at once, without an event

  // Held, a peer is not read any further and has to wait; let go, it is heard again, from the event
  // loop. What it sent before its connection ended is heard either way.
  virtual void hold(Peer peer, bool held) = 0;
};

}  // namespace korvane

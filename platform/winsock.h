// A TCP connection with the members and state numbers of the Winsock control. Called from the event
// loop's thread only; no call waits for the network.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace korvane {

class Winsock {
 public:
  enum State {
    Closed = 0,
    Open = 1,
    Listening = 2,
    ConnectionPending = 3,
    ResolvingHost = 4,
    HostResolved = 5,
    Connecting = 6,
    Connected = 7,
    Closing = 8,
    Error = 9
  };

  // What the owner of a connection hears, always from the event loop, never from inside a call.
  class Events {
   public:
    virtual ~Events() = default;
    virtual void Connect() = 0;                       // the connection stands
    virtual void Close() = 0;                         // the peer ended it
    virtual void DataArrival(qint64 bytesTotal) = 0;  // that many bytes wait for GetData

    // The connection failed, or none came about; state() is Error until the next Connect or Close.
    virtual void Error(const QString& description) = 0;
  };

  virtual ~Winsock() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  QString RemoteHost;  // a name or a numeric address
  quint16 RemotePort = 0;
  // The numeric address of this machine to connect from; empty for whichever leads there. One that
  // the machine does not have, or no longer has, ends the attempt with Error.
  QString LocalHost;

  // Starts connecting to RemoteHost:RemotePort and returns. What stood before ends, unheard.
  virtual void Connect() = 0;
  virtual void Close() = 0;  // ends the connection at once, without an event
  virtual State state() const = 0;
  virtual void SendData(const QByteArray& bytes) = 0;  // dropped unless Connected
  virtual QByteArray GetData(qint64 count) = 0;        // at most `count` bytes of what has arrived
  virtual QString LocalIP() const = 0;                 // of this connection, else of the machine
};

}  // namespace korvane

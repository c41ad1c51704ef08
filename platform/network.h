// The machine's place on the network: whether another machine answers an echo request, and the
// addresses of its own adapters. Called from the event loop's thread.
#pragma once

#include <functional>

#include "platform/text.h"

namespace korvane {

class Network {
 public:
  // The status word of an echo: that of the reply (ICMP_ECHO_REPLY), -1 when none was asked for.
  enum EchoStatus {
    InvalidAddress = -1,  // not four numbers with points between
    Reachable = 0,
    Unreachable = 11003,  // no way there
    TimedOut = 11010,     // no answer within the time
    Forbidden = 11050,    // this system lets the program ask for no echo
  };
  static QString words(EchoStatus status);  // "answers", "no answer", ...

  virtual ~Network() = default;

  // Sends one echo request and calls `answered` once from the event loop, after `timeoutMs` at the
  // latest. A second call drops the answer to the first.
  virtual void ping(const QString& address, int timeoutMs,
                    std::function<void(EchoStatus)> answered) = 0;
  virtual void cancelPing() = 0;  // the answer is not heard; nothing when none is waited for

  // The first IPv4 address of each adapter that is up, in their order, without the loopback.
  virtual QStringList localIPAddresses() const = 0;
};

}  // namespace korvane

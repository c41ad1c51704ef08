// When a supervised link is to be tried again, and how it stands in words. Pure: time comes in, and
// no socket is touched. A lost link is tried after half a second, then ever later, up to two
// seconds; so a service that returns is found within three.
#pragma once

#include <optional>

#include "platform/winsock.h"

namespace korvane {

class LinkWatch {
 public:
  enum class State {
    Off,         // nothing to connect to
    Trying,      // no answer to the connection yet
    Stands,      // and answers
    Unanswered,  // stands, but what was asked stays without an answer
    Lost,        // tried again in a moment
  };
  static constexpr int kFirstMs = 500, kLongestMs = 2000;
  static constexpr int kSilentMs = 6000;  // for an answer

  // News of the link, in milliseconds of one monotonic clock.
  void tries(qint64 nowMs);
  void stands(qint64 nowMs);
  void asks(qint64 nowMs);
  void hears(qint64 nowMs);
  void ends(qint64 nowMs, const QString& why);

  // Whether to connect now. `wanted`: somebody is to be connected to; `speaks`: the peer has
  // something to say all the time, as while a song plays.
  bool look(qint64 nowMs, bool wanted, bool speaks, Winsock::State socket);
  void again() { dueMs_ = 0; }  // the next look connects

  State state() const { return state_; }
  QString words(qint64 nowMs) const;  // "connected", "connection refused, again in 2 s", ...
  QString why() const { return why_.isEmpty() ? u"connecting"_s : why_; }  // of the last trouble
  bool rests() const;  // nothing changes but by news or a peer that speaks

 private:
  void later(qint64 nowMs);

  State state_ = State::Off;
  QString why_;
  qint64 dueMs_ = 0;               // of the next try
  std::optional<qint64> askedMs_;  // since when an answer is awaited
  qint64 heardMs_ = 0;             // when the peer spoke last
  int waitMs_ = kFirstMs;          // before the try after the next
};

}  // namespace korvane

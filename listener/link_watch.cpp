#include "listener/link_watch.h"

namespace korvane {

void LinkWatch::tries(qint64 nowMs) {
  if (state_ != State::Unanswered) state_ = State::Trying;
  askedMs_.reset();
  dueMs_ = nowMs + kLongestMs;  // for a peer that drops what is sent to it
}

void LinkWatch::stands(qint64 nowMs) {
  if (state_ != State::Unanswered) state_ = State::Stands;
  askedMs_.reset();
  heardMs_ = nowMs;
}

void LinkWatch::asks(qint64 nowMs) {
  if (!askedMs_) askedMs_ = nowMs;
}

// Only a peer that answers is taken at its word; one that merely accepts is tried ever later too.
void LinkWatch::hears(qint64 nowMs) {
  askedMs_.reset();
  heardMs_ = nowMs;
  waitMs_ = kFirstMs;
  state_ = State::Stands;
}

void LinkWatch::ends(qint64 nowMs, const QString& why) {
  why_ = why;
  later(nowMs);
}

void LinkWatch::later(qint64 nowMs) {
  state_ = State::Lost;
  askedMs_.reset();
  dueMs_ = nowMs + waitMs_;
  waitMs_ = std::min(waitMs_ * 2, kLongestMs);
}

bool LinkWatch::look(qint64 nowMs, bool wanted, bool speaks, Winsock::State socket) {
  if (!wanted) {
    *this = LinkWatch();
    return false;
  }
  if (socket == Winsock::Connected) {
    const bool unanswered = askedMs_ && nowMs - *askedMs_ >= kSilentMs;
    const bool silent = speaks && nowMs - heardMs_ >= kSilentMs;
    if (!unanswered && !silent) return false;
    state_ = State::Unanswered;
    why_ = u"it does not answer"_s;
    return true;
  }
  return nowMs >= dueMs_;
}

bool LinkWatch::rests() const {
  return state_ == State::Off || (state_ == State::Stands && !askedMs_);
}

QString LinkWatch::words(qint64 nowMs) const {
  switch (state_) {
    case State::Off:
      return u"not used"_s;
    case State::Trying:
      return why_.isEmpty() ? u"connecting"_s : u"%1; trying"_s.arg(why_);
    case State::Stands:
      return u"connected"_s;
    case State::Unanswered:
      return why_;
    case State::Lost:
      break;
  }
  const qint64 seconds = (std::max<qint64>(dueMs_ - nowMs, 0) + 999) / 1000;
  return u"%1; again in %2\u00a0s"_s.arg(why_).arg(seconds);
}

}  // namespace korvane

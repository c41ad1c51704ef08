// A connection in a test's hand: it stands, receives, breaks and ends when the test says so.
#pragma once

#include "platform/winsock.h"

namespace korvane {

class FakeWinsock : public Winsock {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void Connect() override {
    ++connects;
    state_ = Connecting;
  }
  void Close() override {
    ++closes;
    state_ = Closed;
    inbox_.clear();
  }
  State state() const override { return state_; }
  void SendData(const QByteArray& bytes) override {
    if (state_ == Connected) sent << bytes;
  }
  QByteArray GetData(qint64 count) override {
    const QByteArray bytes = inbox_.left(count);
    inbox_.remove(0, bytes.size());
    return bytes;
  }
  QString LocalIP() const override { return u"10.0.0.7"_s; }

  void stand() {
    state_ = Connected;
    events_->Connect();
  }
  void arrive(const QByteArray& bytes) {
    inbox_ += bytes;
    events_->DataArrival(inbox_.size());
  }
  void peerCloses() {
    state_ = Closing;
    events_->Close();
  }
  void breakWith(const QString& description) {
    state_ = Error;
    events_->Error(description);
  }
  void setState(State state) { state_ = state; }

  QByteArrayList sent;  // each send whole
  int connects = 0, closes = 0;

 private:
  Events* events_ = nullptr;
  State state_ = Closed;
  QByteArray inbox_;
};

}  // namespace korvane

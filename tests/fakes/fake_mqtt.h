// A broker in a test's hand: it stands, takes, tells and goes when the test says so.
#pragma once

#include "platform/mqtt.h"

namespace korvane {

class FakeMqtt : public Mqtt {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void start() override { started = true; }
  void subscribe(const QString& topic) override { subscribed << topic; }
  int publish(const QString& topic, const QByteArray& payload) override {
    if (!stands_) return 0;
    published << topic.toUtf8() + ' ' + payload;
    waiting << ++last_;
    return last_;
  }

  void stand() {
    stands_ = true;
    events_->brokerStands();
  }
  void lose() {
    stands_ = false;
    waiting.clear();
    events_->brokerLost(u"gone"_s);
  }
  void deliver() {  // all that is under way
    for (const int id : std::exchange(waiting, {})) events_->delivered(id);
  }
  void tell(const QString& topic, const QByteArray& payload) { events_->heard(topic, payload); }
  QByteArrayList take() { return std::exchange(published, {}); }  // "topic payload" each

  QByteArrayList published;
  QStringList subscribed;
  QList<int> waiting;
  bool started = false;

 private:
  Events* events_ = nullptr;
  bool stands_ = false;
  int last_ = 0;
};

}  // namespace korvane

// A connection to an MQTT broker (MQTT 3.1.1). Called from the thread of the event loop only.
#pragma once

#include "platform/text.h"

namespace korvane {

class Mqtt {
 public:
  // Heard from the event loop. Any call of the connection is allowed inside.
  class Events {
   public:
    virtual ~Events() = default;
    virtual void brokerStands() = 0;  // nothing is subscribed, nothing under way
    // It cannot be reached, or the connection broke: what was not delivered is lost. It is tried
    // again, ever less often. Told once for each stretch without a broker.
    virtual void brokerLost(const QString& why) = 0;
    virtual void delivered(int id) = 0;  // the broker has it
    virtual void heard(const QString& topic, const QByteArray& payload) = 0;
  };

  virtual ~Mqtt() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence
  virtual void start() = 0;                    // once; from then on it keeps trying

  // Both do nothing without a broker. What is published is acknowledged (QoS 1), not retained.
  virtual void subscribe(const QString& topic) = 0;
  // A number above 0 that delivered() names, until the broker is lost; 0 when it was not sent.
  virtual int publish(const QString& topic, const QByteArray& payload) = 0;
};

}  // namespace korvane

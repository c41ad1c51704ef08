// Mqtt over libmosquitto, whose connection, name look-up and waits stay on a thread of their own.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/mqtt.h"
#include "platform/pump.h"

struct mosquitto;
struct mosquitto_message;

namespace korvane {

struct MqttBroker {
  QString host = {};
  quint16 port = 1883;
  QString user = {}, password = {};  // empty for none
  QString authority = {};            // file of the certificates that are trusted: by TLS then
};

class MqttMosquitto final : public Mqtt {
 public:
  MqttMosquitto(Pump& pump, MqttBroker broker);  // the pump outlives it
  ~MqttMosquitto() override;                     // ends the connection; waits for the thread

  void setEvents(Events* events) override { here_->events = events; }
  void start() override;
  void subscribe(const QString& topic) override;
  int publish(const QString& topic, const QByteArray& payload) override;

 private:
  // What queued news finds when this has ended: nobody to tell.
  struct Here {
    Events* events = nullptr;
  };

  static void connected(mosquitto* session, void* self, int code);
  static void published(mosquitto* session, void* self, int id);
  static void arrived(mosquitto* session, void* self, const mosquitto_message* message);

  void run();                     // the thread
  QString hold(mosquitto* with);  // one connection until it ends; why it did
  mosquitto* makeSession() const;
  void tell(std::function<void(Events&)> news);  // from any thread
  void setSession(mosquitto* session);

  Pump& pump_;
  const MqttBroker broker_;
  const std::shared_ptr<Here> here_ = std::make_shared<Here>();
  std::mutex mutex_;  // of the two below
  mosquitto* session_ = nullptr;
  bool ending_ = false;
  std::condition_variable end_;
  bool stood_ = false, told_ = false;  // the thread's: this connection; that there is none
  QString refusal_;                    // the thread's: what the broker has said
  std::thread thread_;
};

}  // namespace korvane

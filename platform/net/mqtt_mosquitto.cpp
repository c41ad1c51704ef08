#include "platform/net/mqtt_mosquitto.h"

#include <mosquitto.h>

#include <cerrno>
#include <cstring>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr int kKeepAliveSeconds = 10, kLoopMs = 200, kAcknowledged = 1;
constexpr auto kAnswerTime = 10s;  // for the broker to take a connection
constexpr auto kFirstWait = 250ms, kLongestWait = 8000ms;

MqttMosquitto& of(void* self) {
  return *static_cast<MqttMosquitto*>(self);
}

QString wordsOf(int code) {
  return QString::fromLocal8Bit(code == MOSQ_ERR_ERRNO ? std::strerror(errno)
                                                       : mosquitto_strerror(code));
}

}  // namespace

MqttMosquitto::MqttMosquitto(Pump& pump, MqttBroker broker)
    : pump_(pump), broker_(std::move(broker)) {
  static const int once = mosquitto_lib_init();
  static_cast<void>(once);
}

MqttMosquitto::~MqttMosquitto() {
  here_->events = nullptr;
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    if (session_) mosquitto_disconnect(session_);
  }
  end_.notify_all();
  if (thread_.joinable()) thread_.join();
}

void MqttMosquitto::start() {
  thread_ = std::thread([this] { run(); });
}

void MqttMosquitto::subscribe(const QString& topic) {
  const std::lock_guard lock(mutex_);
  if (session_) mosquitto_subscribe(session_, nullptr, topic.toUtf8().constData(), kAcknowledged);
}

int MqttMosquitto::publish(const QString& topic, const QByteArray& payload) {
  const std::lock_guard lock(mutex_);
  int id = 0;
  if (!session_ ||
      mosquitto_publish(session_, &id, topic.toUtf8().constData(), static_cast<int>(payload.size()),
                        payload.constData(), kAcknowledged, false) != MOSQ_ERR_SUCCESS)
    return 0;
  return id;
}

void MqttMosquitto::tell(std::function<void(Events&)> news) {
  pump_.later([here = here_, news = std::move(news)] {
    if (here->events) news(*here->events);
  });
}

void MqttMosquitto::setSession(mosquitto* session) {
  const std::lock_guard lock(mutex_);
  session_ = session;
}

// Each connection has a session of its own, so that nothing of the last one is sent again: what was
// lost with it is for the owner to say anew.
void MqttMosquitto::run() {
  auto wait = kFirstWait;
  for (;;) {
    mosquitto* session = makeSession();
    const QString why = session ? hold(session) : u"there is no memory for it"_s;
    setSession(nullptr);
    mosquitto_destroy(session);
    if (stood_) wait = kFirstWait;
    if (stood_ || !told_) tell([why](Events& events) { events.brokerLost(why); });
    told_ = true;
    stood_ = false;
    std::unique_lock lock(mutex_);
    if (end_.wait_for(lock, wait, [this] { return ending_; })) return;
    wait = std::min<decltype(wait)>(wait * 2, kLongestWait);
  }
}

mosquitto* MqttMosquitto::makeSession() const {
  mosquitto* session = mosquitto_new(nullptr, true, const_cast<MqttMosquitto*>(this));
  if (!session) return nullptr;
  mosquitto_threaded_set(session, true);
  mosquitto_int_option(session, MOSQ_OPT_TCP_NODELAY, 1);
  mosquitto_connect_callback_set(session, &MqttMosquitto::connected);
  mosquitto_publish_callback_set(session, &MqttMosquitto::published);
  mosquitto_message_callback_set(session, &MqttMosquitto::arrived);
  if (!broker_.user.isEmpty())
    mosquitto_username_pw_set(session, broker_.user.toUtf8().constData(),
                              broker_.password.toUtf8().constData());
  if (!broker_.authority.isEmpty())
    mosquitto_tls_set(session, broker_.authority.toLocal8Bit().constData(), nullptr, nullptr,
                      nullptr, nullptr);
  return session;
}

QString MqttMosquitto::hold(mosquitto* session) {
  refusal_.clear();
  int code = mosquitto_connect_async(session, broker_.host.toUtf8().constData(), broker_.port,
                                     kKeepAliveSeconds);
  const auto begin = std::chrono::steady_clock::now();
  while (code == MOSQ_ERR_SUCCESS) {
    code = mosquitto_loop(session, kLoopMs, 1);
    {
      const std::lock_guard lock(mutex_);
      if (ending_) return {};
    }
    if (!stood_ && std::chrono::steady_clock::now() - begin > kAnswerTime)
      return u"it does not answer"_s;
  }
  return refusal_.isEmpty() ? wordsOf(code) : refusal_;
}

void MqttMosquitto::connected(mosquitto* session, void* self, int code) {
  MqttMosquitto& mqtt = of(self);
  if (code != 0) {
    mqtt.refusal_ = QString::fromLatin1(mosquitto_connack_string(code));
    return;
  }
  mqtt.stood_ = true;
  mqtt.told_ = false;
  mqtt.setSession(session);
  mqtt.tell([](Events& events) { events.brokerStands(); });
}

void MqttMosquitto::published(mosquitto*, void* self, int id) {
  of(self).tell([id](Events& events) { events.delivered(id); });
}

void MqttMosquitto::arrived(mosquitto*, void* self, const mosquitto_message* message) {
  const QByteArray payload(static_cast<const char*>(message->payload), message->payloadlen);
  of(self).tell([topic = QString::fromUtf8(message->topic), payload](Events& events) {
    events.heard(topic, payload);
  });
}

}  // namespace korvane

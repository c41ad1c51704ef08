// korvane-lights: switches the lamps of a cabin over MQTT for its consoles.
#include <QFile>

#include "platform/net/mqtt_mosquitto.h"
#include "services/lights/lights_service.h"
#include "services/lights/simulated_house.h"
#include "services/listener/registered.h"
#include "services/server/service_main.h"

namespace {

using namespace korvane;

constexpr quint16 kBrokerPort = 1883, kSecurePort = 8883;

constexpr Option kOptions[] = {
    {"table", "FILE", "which lamp is which topic; korvane-lights(1) tells its format"},
    {"broker", "HOST[:PORT]",
     "the MQTT broker, 127.0.0.1 by default; port 1883, or 8883 with\n--ca"},
    {"user", "NAME", "its user there"},
    {"password", "FILE", "a file whose first line is the password"},
    {"ca", "FILE", "by TLS; the certificates that are trusted"},
    {"simulate", nullptr,
     "a house in memory in place of a broker; without --table it has\nlamps of its own"},
    kMasterOption,
    kNameOption,
    kAdvertiseOption,
};

constexpr ServiceFrame kFrame{
    "korvane-lights", "Switches the lamps of a cabin over MQTT for its consoles.", kOptions, 7412};

// The bytes of a file, at most so many and one more. Nothing with `error`.
std::optional<QByteArray> bytesOf(const QString& path, qsizetype most, QString* error) {
  QFile file(path);
  if (file.open(QIODevice::ReadOnly)) return file.read(most + 1);
  *error = u"%1: %2"_s.arg(path, file.errorString());
  return std::nullopt;
}

std::optional<QList<TableLamp>> tableOf(const Options& options, QString* error) {
  if (!options.has("table")) {
    if (options.has("simulate")) return readLightTable(SimulatedHouse::table(), error);
    *error = u"--table FILE is missing: which lamp is which topic; or --simulate"_s;
    return std::nullopt;
  }
  const QString path = options.value("table");
  const auto bytes = bytesOf(path, kLongestTable, error);
  if (!bytes) return std::nullopt;
  const auto table = readLightTable(*bytes, error);
  if (!table) *error = u"%1: %2"_s.arg(path, *error);
  return table;
}

std::optional<MqttBroker> brokerOf(const Options& options, QString* error) {
  MqttBroker broker{u"127.0.0.1"_s, options.has("ca") ? kSecurePort : kBrokerPort};
  if (options.has("broker")) {
    const auto named = hostPortOf(options, "broker", broker.port, error);
    if (!named) return std::nullopt;
    broker.host = named->host;
    broker.port = named->port;
  }
  broker.user = options.value("user");
  broker.authority = options.value("ca");
  if (!options.has("password")) return broker;
  constexpr qsizetype kLongestPassword = 4096;
  const auto bytes = bytesOf(options.value("password"), kLongestPassword, error);
  if (!bytes) return std::nullopt;
  broker.password = QString::fromUtf8(bytes->split('\n').first().trimmed());
  return broker;
}

int serve(const Options& options, const ServerOptions& chosen, QString* error) {
  const auto table = tableOf(options, error);
  const auto broker = table ? brokerOf(options, error) : std::nullopt;
  if (!broker) return 1;
  std::optional<HostPort> master;
  if (options.has("master") && !(master = masterOf(options, error))) return 1;

  ServiceParts parts(kFrame.program, chosen);
  std::unique_ptr<Mqtt> mqtt;
  if (options.has("simulate"))
    mqtt = std::make_unique<SimulatedHouse>(parts.pump, *table);
  else
    mqtt = std::make_unique<MqttMosquitto>(parts.pump, *broker);
  TickerQt settling;
  const LightsService lights({parts.server, *mqtt, settling, parts.log, chosen.encoding}, *table);
  if (!parts.listen(error)) return 1;
  parts.log.say(u"%1 lamps"_s.arg(table->size()));
  mqtt->start();
  std::optional<Registered> registered;
  if (master) registered.emplace(options, chosen, *master, parts.tcp.port(), u"X10"_s, parts.log);
  return parts.run();
}

}  // namespace

int main(int argc, char** argv) {
  return serviceMain(argc, argv, kFrame, serve);
}

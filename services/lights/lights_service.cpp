#include "services/lights/lights_service.h"

namespace korvane {
namespace {

constexpr qsizetype kMostFields = 4;
constexpr unsigned kAsked = 1;  // the group of those who have asked for the levels
constexpr int kSettleTickMs = 250;

// A step up or down, never out: the last one down still burns.
int stepped(const TableLamp& lamp, int level, int steps) {
  const double step = 100.0 / lamp.steps;
  const double place = std::round(level / step) + steps;
  return std::clamp(static_cast<int>(std::lround(place * step)),
                    static_cast<int>(std::lround(step)), 100);
}

}  // namespace

LightsService::LightsService(Uses uses, const QList<TableLamp>& table) : uses_(uses) {
  for (const TableLamp& lamp : table) lamps_.push_back({lamp});
  uses_.server.setService(this);
  uses_.mqtt.setEvents(this);
  uses_.settling.tick = [this] { settle(); };
}

LightsService::~LightsService() {
  uses_.settling.stop();
  uses_.settling.tick = nullptr;
  uses_.mqtt.setEvents(nullptr);
  uses_.server.setService(nullptr);
}

void LightsService::record(Peer peer, QByteArrayView bytes) {
  QStringList fields;
  for (const QByteArrayView field : fieldsOf(bytes, kMostFields))
    fields << decode(field, uses_.encoding);
  const QString& word = fields[0];
  if (word == "STATE"_L1) return tellState(peer, fields.value(1));
  static const QStringList words{u"ON"_s, u"OFF"_s, u"DIM"_s, u"BRIGHT"_s, u"LEVEL"_s};
  if (!words.contains(word)) return;
  uses_.server.keep(peer);
  if (Lamp* lamp = find(fields.value(1), fields.value(2)))
    command(word, *lamp, fields.value(3));
  else
    uses_.log.warn(u"connection %1: there is no lamp %2%3"_s.arg(peer).arg(
        printable(fields.value(1), 20), printable(fields.value(2), 20)));
}

LightsService::Lamp* LightsService::find(const QString& house, const QString& unit) {
  bool isNumber = false;
  const int number = unit.toInt(&isNumber);
  if (!isNumber || house.size() != 1) return nullptr;
  const auto found = std::ranges::find_if(lamps_, [&](const Lamp& lamp) {
    return lamp.table.house == house[0].toUpper() && lamp.table.unit == number;
  });
  return found == lamps_.end() ? nullptr : &*found;
}

void LightsService::tellState(Peer peer, const QString& house) {
  uses_.server.keep(peer, kAsked);
  QByteArray all = recordOf({u"BROKER"_s, stands_ ? u"HERE"_s : u"AWAY"_s});
  for (const Lamp& lamp : lamps_)
    if (house.isEmpty() || house == lamp.table.house) all += levelRecord(lamp);
  uses_.server.send(peer, all);
}

void LightsService::command(const QString& word, Lamp& lamp, const QString& value) {
  const TableLamp& table = lamp.table;
  if (word == "ON"_L1) return put(lamp, table.on, 100);
  if (word == "OFF"_L1) return put(lamp, table.off, 0);
  if (word == "LEVEL"_L1) {
    bool isNumber = false;
    const int percent = std::clamp(value.toInt(&isNumber), 0, 100);
    const int level = table.dims || percent == 0 ? percent : 100;
    if (isNumber) put(lamp, payloadOf(table, level), level);
    return;
  }
  const bool down = word == "DIM"_L1;
  const int level = lamp.level.value_or(100);
  if (!table.dims || (down && level == 0)) return;
  const int next = stepped(table, level, down ? -1 : 1);
  put(lamp, payloadOf(table, next), next);
}

void LightsService::put(Lamp& lamp, const QByteArray& payload, int level) {
  lamp.waits = payload;
  lamp.commandedMs = uses_.server.nowMs();
  lamp.reported.reset();
  publish(lamp);
  setLevel(lamp, level);
}

void LightsService::publish(Lamp& lamp) {
  if (!stands_ || lamp.id != 0 || !lamp.waits) return;
  lamp.underWay = *lamp.waits;
  lamp.id = uses_.mqtt.publish(lamp.table.topic, lamp.underWay);
  if (lamp.id != 0) lamp.waits.reset();
}

void LightsService::delivered(int id) {
  for (Lamp& lamp : lamps_) {
    if (lamp.id != id) continue;
    lamp.id = 0;
    return publish(lamp);
  }
}

void LightsService::brokerStands() {
  stands_ = true;
  uses_.log.say(u"the broker is there"_s);
  for (const Lamp& lamp : lamps_)
    if (!lamp.table.state.isEmpty()) uses_.mqtt.subscribe(lamp.table.state);
  for (Lamp& lamp : lamps_) publish(lamp);
  uses_.server.sendAll(recordOf({u"BROKER"_s, u"HERE"_s}), kAsked);
}

void LightsService::brokerLost(const QString& why) {
  stands_ = false;
  uses_.log.warn(u"no broker (%1); it is tried again"_s.arg(printable(why)));
  for (Lamp& lamp : lamps_) {
    if (lamp.id != 0 && !lamp.waits) lamp.waits = lamp.underWay;
    lamp.id = 0;
  }
  uses_.server.sendAll(recordOf({u"BROKER"_s, u"AWAY"_s}), kAsked);
}

void LightsService::heard(const QString& topic, const QByteArray& payload) {
  for (Lamp& lamp : lamps_) {
    if (lamp.table.state != topic) continue;
    const std::optional<int> level = levelTold(lamp.table, payload);
    if (!level) {
      uses_.log.warn(u"%1 tells what is no level: %2"_s.arg(
          lamp.table.name(), printable(QString::fromUtf8(payload.left(200)), 60)));
      continue;
    }
    lamp.reported = level;
  }
  settle();
}

void LightsService::settle() {
  bool waits = false;
  for (Lamp& lamp : lamps_) {
    if (!lamp.reported) continue;
    const bool commanded =
        lamp.commandedMs > 0 && uses_.server.nowMs() - lamp.commandedMs < kSettleMs;
    if (commanded || lamp.waits || lamp.id != 0)
      waits = true;
    else
      setLevel(lamp, *std::exchange(lamp.reported, std::nullopt));
  }
  if (!waits)
    uses_.settling.stop();
  else if (!uses_.settling.running())
    uses_.settling.start(kSettleTickMs);
}

void LightsService::setLevel(Lamp& lamp, int level) {
  if (lamp.level == level) return;
  lamp.level = level;
  uses_.log.say(
      u"%1 %2: %3 %"_s.arg(lamp.table.name(), printable(lamp.table.description, 60)).arg(level));
  uses_.server.sendAll(levelRecord(lamp), kAsked);
}

QByteArray LightsService::levelRecord(const Lamp& lamp) const {
  return recordOf({u"LEVEL"_s, QString(lamp.table.house), QString::number(lamp.table.unit),
                   lamp.level ? QString::number(*lamp.level) : QString()});
}

QByteArray LightsService::recordOf(std::initializer_list<QString> fields) const {
  return encode(replyRecord(fields), uses_.encoding);
}

}  // namespace korvane

#include "control/lights/lamps.h"

namespace korvane {
namespace {

constexpr int kConnectWaitMs = 300;
constexpr int kAssumedStep = 10;  // percent of a DIM or BRIGHT that nobody answers
constexpr qsizetype kLongestRest = 1024;
constexpr const char* kHouse = "A";
constexpr const char* kWords[] = {"ON", "OFF", "DIM", "BRIGHT"};

}  // namespace

QString lampNameKey(int unit) {
  return u"A%1D"_s.arg(unit);
}

QString lampDimKey(int unit) {
  return u"A%1DIM"_s.arg(unit);
}

bool lampKeySet(const QString& text) {
  return text != "NO"_L1;
}

Lamps::Lamps(Uses uses)
    : uses_(uses),
      link_({uses_.x10Control, uses_.pump, uses_.settings, uses_.log, uses_.state.gX10IP,
             uses_.state.gX10Port, "x10Connect"},
            this) {}

void Lamps::read(bool tiles) {
  lamps_.clear();
  for (int unit = 1; unit <= (tiles ? kMostUnits : kUnits); ++unit) {
    const QString description = uses_.settings.readSetting(u"X10", lampNameKey(unit));
    if (!lampKeySet(description)) continue;
    const int named = tiles ? unit : static_cast<int>(lamps_.size()) + 1;
    lamps_.push_back(
        {named, description, lampKeySet(uses_.settings.readSetting(u"X10", lampDimKey(unit)))});
  }
}

bool Lamps::answers() const {
  return uses_.settings.flag(key::X10State);
}

void Lamps::connect() {
  const QString& ip = uses_.state.gX10IP;
  const QString chosen = ip + u':' + uses_.state.gX10Port;
  if (chosen != madeTo_) close();
  if (ip.isEmpty() || ip == "NO"_L1) return;
  madeTo_ = chosen;
  if (link_.connect()) link_.letStand(kConnectWaitMs);
}

void Lamps::close() {
  link_.close();
  forget();
}

void Lamps::send(LampCommand command, int unit) {
  const int before = level(unit).value_or(100);
  link_.send(replyRecord({QString::fromLatin1(kWords[at(command)]), QString::fromLatin1(kHouse),
                          QString::number(unit)}));
  switch (command) {
    case LampCommand::On:
      return assume(unit, 100);
    case LampCommand::Off:
      return assume(unit, 0);
    case LampCommand::Dim:
      return assume(unit, before > 0 ? std::max(before - kAssumedStep, kAssumedStep) : 0);
    case LampCommand::Bright:
      return assume(unit, std::min(before + kAssumedStep, 100));
  }
}

void Lamps::set(int unit, int percent) {
  if (!answers()) return send(percent > 0 ? LampCommand::On : LampCommand::Off, unit);
  link_.send(replyRecord(
      {u"LEVEL"_s, QString::fromLatin1(kHouse), QString::number(unit), QString::number(percent)}));
}

std::optional<int> Lamps::level(int unit) const {
  const auto found = levels_.find(unit);
  return found == levels_.end() ? std::nullopt : std::optional(*found);
}

void Lamps::assume(int unit, int percent) {
  if (answers() || !connected()) return;
  levels_[unit] = percent;
  changed();
}

void Lamps::forget() {
  levels_.clear();
  unfinished_.clear();
  away_ = false;
  changed();
}

void Lamps::linkStands() {
  unfinished_.clear();
  if (answers()) link_.send(replyRecord({u"STATE"_s, QString::fromLatin1(kHouse)}));
  changed();
}

// A record may come in two deliveries.
void Lamps::linkDelivers(const QByteArray& delivery) {
  if (!answers()) return;
  const QByteArray block = unfinished_ + delivery;
  const QByteArray rest = block.sliced(block.lastIndexOf(kRecordEnd) + 1);
  unfinished_ = rest.size() > kLongestRest ? QByteArray() : rest;
  forEachRecord(block, [this](QByteArrayView record) {
    take(ListenerRecord(record, link_.wireText()));
    return true;
  });
  changed();
}

void Lamps::take(const ListenerRecord& record) {
  if (record.name() == "BROKER") away_ = record.field(1) == "AWAY";
  if (record.name() != "LEVEL" || record.field(1) != kHouse) return;
  const std::optional<double> unit = record.whole(2), percent = record.whole(3);
  if (!unit || *unit < 1 || *unit > kMostUnits) return;
  const int lamp = static_cast<int>(*unit);
  if (percent && *percent >= 0 && *percent <= 100)
    levels_[lamp] = static_cast<int>(*percent);
  else
    levels_.remove(lamp);
}

}  // namespace korvane

#include "control/lights/scenes.h"

#include <set>

#include "control/lights/lamps.h"

namespace korvane {
namespace {

constexpr qsizetype kLongestName = 30;

QString nameKey(size_t place) {
  return u"SCENE%1NAME"_s.arg(place + 1);
}
QString levelsKey(size_t place) {
  return u"SCENE%1"_s.arg(place + 1);
}

bool same(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

}  // namespace

QString sceneText(const std::map<int, int>& levels) {
  QString text(Lamps::kMostUnits, u'-');
  for (const auto& [unit, percent] : levels) {
    if (unit < 1 || unit > Lamps::kMostUnits) continue;
    const int tenths = percent > 0 ? std::max(1, (percent + 5) / 10) : 0;
    text[unit - 1] = tenths >= 10 ? QChar(u'X') : QChar(u'0' + tenths);
  }
  while (text.endsWith(u'-')) text.chop(1);
  return text;
}

std::map<int, int> sceneLevels(QStringView text) {
  std::map<int, int> levels;
  for (int unit = 1; unit <= std::min<qsizetype>(text.size(), Lamps::kMostUnits); ++unit) {
    const QChar sign = text[unit - 1];
    if (sign >= u'0' && sign <= u'9') levels[unit] = 10 * (sign.unicode() - u'0');
    if (sign == u'X' || sign == u'x') levels[unit] = 100;
  }
  return levels;
}

void Scenes::read() {
  scenes_.clear();
  for (size_t place = 0; place < kMost; ++place) {
    const QString name = settings_.readSetting(u"X10", nameKey(place)).trimmed();
    const std::map<int, int> levels = sceneLevels(settings_.readSetting(u"X10", levelsKey(place)));
    if (name.isEmpty() || name == "NO"_L1 || levels.empty()) continue;
    scenes_.push_back({name.left(kLongestName), levels, place});
  }
}

bool Scenes::room(const QString& name) const {
  return scenes_.size() < kMost ||
         std::ranges::any_of(scenes_, [&](const Scene& each) { return same(each.name, name); });
}

bool Scenes::keep(const Scene& scene, QString* error) {
  std::set<size_t> taken;
  for (const Scene& each : scenes_) taken.insert(each.place);
  size_t place = 0;
  while (taken.contains(place)) ++place;
  for (const Scene& each : scenes_)
    if (same(each.name, scene.name)) place = each.place;
  const bool kept = put(levelsKey(place), sceneText(scene.levels), error) &&
                    put(nameKey(place), scene.name.left(kLongestName), error);
  read();
  return kept;
}

bool Scenes::remove(const Scene& scene, QString* error) {
  const size_t place = scene.place;
  const bool gone = put(nameKey(place), u"NO"_s, error) && put(levelsKey(place), u"NO"_s, error);
  read();
  return gone;
}

bool Scenes::put(const QString& key, const QString& value, QString* error) {
  return settings_.writeSetting(u"X10", key, value, error);
}

}  // namespace korvane

#include "control/lights/lamp_cells.h"

namespace korvane {

QString levelText(std::optional<int> level) {
  if (!level) return {};
  return *level > 0 ? u"%1 %"_s.arg(*level) : u"off"_s;
}

QString lampPicture(std::optional<int> level) {
  constexpr int kStep = 20;  // between two pictures
  if (!level) return u"lampunknown"_s;
  return u"lamp%1"_s.arg(std::clamp((*level + kStep - 1) / kStep * kStep, 0, 100));
}

QString LampCells::caption(int cell) const {
  if (cell < 0 || cell >= count()) return {};
  const Lamp& lamp = lamps_.all()[static_cast<size_t>(cell)];
  const QString level = levelText(lamps_.level(lamp.unit));
  return level.isEmpty() ? lamp.description : lamp.description + u"  "_s + level;
}

std::optional<Picture> LampCells::picture(int cell) const {
  if (cell < 0 || cell >= count()) return Picture();
  return Picture{u"more"_s,
                 lampPicture(lamps_.level(lamps_.all()[static_cast<size_t>(cell)].unit))};
}

}  // namespace korvane

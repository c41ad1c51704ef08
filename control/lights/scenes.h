// The owner's scenes: lamps with their levels under a name. Section X10 keeps each as two keys:
// "SCENE1NAME", and "SCENE1" with one sign for each unit from A1 on: 0 is off, 1 to 9 are tenths,
// X is full, and any other sign leaves the lamp alone.
#pragma once

#include <map>

#include "core/settings.h"

namespace korvane {

struct Scene {
  QString name;
  std::map<int, int> levels;  // percent by unit
  size_t place = 0;           // of its keys, from 0
};

// A level is rounded to a tenth; one that burns stays above 0.
QString sceneText(const std::map<int, int>& levels);
std::map<int, int> sceneLevels(QStringView text);  // of the first Lamps::kMostUnits signs

class Scenes {
 public:
  static constexpr int kMost = 8;
  explicit Scenes(Settings& settings) : settings_(settings) {}  // outlives it

  void read();  // those whose name and signs stand in the settings
  const std::vector<Scene>& all() const { return scenes_; }
  bool room(
      const QString& name) const;  // for one of that name: another, or in the place of its own

  // Stores it, in the place of one with that name in any case or in the first free one. False with
  // `error` in words when that failed. Yields.
  bool keep(const Scene& scene, QString* error);
  bool remove(const Scene& scene, QString* error);  // one of all(). The same. Yields.

 private:
  bool put(const QString& key, const QString& value, QString* error);

  Settings& settings_;
  std::vector<Scene> scenes_;
};

}  // namespace korvane

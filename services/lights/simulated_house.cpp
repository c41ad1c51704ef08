#include "services/lights/simulated_house.h"

namespace korvane {
namespace {

constexpr struct {
  const char* description;
  bool dims;
} kLamps[] = {
    {"Reading left", true}, {"Reading right", true}, {"Table lamp", true}, {"Ceiling", true},
    {"Galley", false},      {"Aisle", true},         {"Washroom", false},  {"Wardrobe", false},
};

}  // namespace

QByteArray SimulatedHouse::table() {
  QByteArray text;
  int unit = 0;
  for (const auto& [description, dims] : kLamps) {
    const QByteArray number = QByteArray::number(++unit);
    text += "[A" + number + "]\ndescription = " + description + "\ntopic = house/" + number +
            "/set\nstate = house/" + number + "\ndims = " + (dims ? "yes" : "no") + '\n';
  }
  return text;
}

void SimulatedHouse::tell(std::function<void(Events&)> news) {
  pump_.later([here = here_, news = std::move(news)] {
    if (here->events) news(*here->events);
  });
}

void SimulatedHouse::start() {
  tell([](Events& events) { events.brokerStands(); });
}

void SimulatedHouse::subscribe(const QString& topic) {
  const auto lamp = std::ranges::find(table_, topic, &TableLamp::state);
  const QByteArray otherwise = lamp == table_.end() ? QByteArray() : lamp->off;
  tell([topic, payload = states_.value(topic, otherwise)](Events& events) {
    events.heard(topic, payload);
  });
}

int SimulatedHouse::publish(const QString& topic, const QByteArray& payload) {
  const int id = ++last_;
  tell([id](Events& events) { events.delivered(id); });
  for (const TableLamp& lamp : table_) {
    if (lamp.topic != topic || lamp.state.isEmpty()) continue;
    states_[lamp.state] = payload;
    subscribe(lamp.state);
  }
  return id;
}

}  // namespace korvane

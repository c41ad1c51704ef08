// A house in memory in place of a broker: whatever is published arrives, and a lamp that has a
// state topic says there what was published.
#pragma once

#include <memory>

#include "platform/mqtt.h"
#include "platform/pump.h"
#include "services/lights/light_table.h"

namespace korvane {

class SimulatedHouse final : public Mqtt {
 public:
  // Both outlive it. Every lamp is off at first.
  SimulatedHouse(Pump& pump, const QList<TableLamp>& table) : pump_(pump), table_(table) {}
  ~SimulatedHouse() override { here_->events = nullptr; }

  void setEvents(Events* events) override { here_->events = events; }
  void start() override;
  void subscribe(const QString& topic) override;
  int publish(const QString& topic, const QByteArray& payload) override;

  // The lamps of a house for who has no table.
  static QByteArray table();

 private:
  struct Here {
    Events* events = nullptr;
  };
  void tell(std::function<void(Events&)> news);

  Pump& pump_;
  const QList<TableLamp>& table_;
  const std::shared_ptr<Here> here_ = std::make_shared<Here>();
  QHash<QString, QByteArray> states_;  // by topic
  int last_ = 0;
};

}  // namespace korvane

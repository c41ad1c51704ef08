// The lamps of a cabin: takes what consoles send, publishes it to a broker, keeps each lamp's level
// and tells it to those who have asked.
//
// Of a lamp one payload is under way at a time. What comes meanwhile, or while there is no broker,
// takes the place of what waits for it, so that the last one is sent however many come.
#pragma once

#include <vector>

#include "platform/mqtt.h"
#include "services/lights/light_table.h"
#include "services/server/record_server.h"

namespace korvane {

class LightsService : private RecordService, private Mqtt::Events {
 public:
  // What a lamp tells this long after a command is not taken at once: it may tell of the way there.
  static constexpr int kSettleMs = 700;

  struct Uses {  // all must outlive the service
    RecordServer& server;
    Mqtt& mqtt;
    Ticker& settling;
    ServiceLog& log;
    WireText encoding = WireText::Windows1252;
  };
  // It is the server's service and hears the broker until it ends; does not start either.
  LightsService(Uses uses, const QList<TableLamp>& table);
  ~LightsService() override;

 private:
  struct Lamp {
    TableLamp table;
    std::optional<int> level = {};         // percent
    std::optional<QByteArray> waits = {};  // to be published
    QByteArray underWay = {};              // not delivered yet
    int id = 0;                            //   and its number; 0 for none
    qint64 commandedMs = 0;
    std::optional<int> reported = {};  // by the lamp, while it settles
  };

  void record(Peer peer, QByteArrayView bytes) override;
  void left(Peer) override {}
  void brokerStands() override;
  void brokerLost(const QString& why) override;
  void delivered(int id) override;
  void heard(const QString& topic, const QByteArray& payload) override;

  void tellState(Peer peer, const QString& house);
  void command(const QString& word, Lamp& lamp, const QString& value);
  void put(Lamp& lamp, const QByteArray& payload, int level);
  void publish(Lamp& lamp);
  void settle();
  void setLevel(Lamp& lamp, int level);
  Lamp* find(const QString& house, const QString& unit);
  QByteArray recordOf(std::initializer_list<QString> fields) const;
  QByteArray levelRecord(const Lamp& lamp) const;

  const Uses uses_;
  std::vector<Lamp> lamps_;
  bool stands_ = false;
};

}  // namespace korvane

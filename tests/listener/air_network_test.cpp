#include "listener/air_network.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "library/data/schema.h"
#include "tests/fakes/fake_winsock.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

struct AirNetworkTest : testing::Test, Winsock::Events {
  AirNetworkTest() { socket.setEvents(this); }
  void Connect() override {}
  void Close() override {}
  void Error(const QString&) override {}
  void DataArrival(qint64 bytes) override { network->DataArrived(socket, bytes); }

  // What the deliveries say, each message as "CODE SOURCE VALUE UNIT".
  QStringList hears(const QByteArrayList& deliveries) {
    network.emplace(database);
    QStringList heard;
    network->heard = [&heard](const AirNetwork::Message& m) {
      heard << u"%1 %2 %3 %4"_s.arg(m.code, m.source, m.value, m.unit);
    };
    for (const QByteArray& delivery : deliveries) socket.arrive(delivery);
    return heard;
  }

  QTemporaryDir home;
  Database database{home.path()};
  FakeWinsock socket;
  std::optional<AirNetwork> network;
};

TEST_F(AirNetworkTest, TakesMessagesFromAnyDeliveries) {
  const QByteArray tooLong(AirNetwork::kLongestMessage, 'x');
  struct Case {
    QByteArrayList deliveries;
    QStringList heard;
  };
  const Case cases[] = {
      {{"<alt|adc1|35012|ft><GS|IRS1|450|KT>"}, {u"ALT ADC1 35012 FT"_s, u"GS IRS1 450 KT"_s}},
      {{"<AL", "T|ADC1", "|1|FT", ">"}, {u"ALT ADC1 1 FT"_s}},
      {{" \r\n<ALT | ADC1>\n"}, {u"ALT ADC1  "_s}},
      {{"<A>noise><B>>"}, {u"A   "_s, u"B   "_s}},
      {{"<A|1|2|3|4|5>"}, {u"A 1 2 3"_s}},
      {{"<" + tooLong, tooLong + "><B>"}, {u"B   "_s}},
      {{"<" + tooLong + "><B>"}, {u"B   "_s}},
  };
  for (const Case& c : cases)
    EXPECT_EQ(hears(c.deliveries), c.heard) << c.deliveries[0].left(40).constData();
}

TEST_F(AirNetworkTest, NamesComeFromTheTablesWhereThereAreSome) {
  hears({});  // no database at all
  EXPECT_EQ(network->meaning(u"ALT"_s), u"ALT"_s);
  createEmptyDatabase(database.path());
  hears({});  // without the tables
  EXPECT_TRUE(network->sources().isEmpty());
  OpenedDatabase(database)->script(
      "create table Source (srcname text, description text);"
      "insert into Source values ('IRS1', 'inertia'), ('ADC1', 'air data');"
      "create table TransPortCodes (code text, meaning text);"
      "insert into TransPortCodes values (' alt', 'Altitude')");
  hears({});
  EXPECT_EQ(network->sources(), QStringList({u"ADC1"_s, u"IRS1"_s}));
  EXPECT_EQ(network->meaning(u"ALT"_s), u"Altitude"_s);
}

}  // namespace
}  // namespace korvane

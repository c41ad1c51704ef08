// The lights: their table, and their side of the wire between consoles and a broker.
#include "services/lights/lights_service.h"

#include "tests/fakes/fake_mqtt.h"
#include "tests/services/service_world.h"

namespace korvane {
namespace {

constexpr const char* kTable =
    "# the saloon\n"
    "[A1]\ndescription = Reading\ntopic = one/set\nstate = one\ndims = yes\n"
    "level = {\"brightness\": %}\nfull = 254\nsteps = 4\n\n"
    "[a2]\ntopic = two\non = 1\noff = 0\n"
    "[B7]\ntopic=seven\ndims=yes\n";

TEST(LightTable, SaysWhatIsWrongAndWhere) {
  QString error;
  const auto table = readLightTable(kTable, &error);
  ASSERT_TRUE(table) << error.toStdString();
  ASSERT_EQ(table->size(), 3);
  EXPECT_EQ(table->at(0).description, u"Reading"_s);
  EXPECT_EQ(table->at(1).name(), u"A2"_s);
  EXPECT_EQ(payloadOf(table->at(0), 50), "{\"brightness\": 127}");
  EXPECT_EQ(payloadOf(table->at(1), 50), "1");
  EXPECT_EQ(payloadOf(table->at(2), 0), "OFF");
  const struct {
    QByteArray text;
    const char* error;
  } faults[] = {
      {"", "it names no lamp"},
      {"topic = x\n", "line 1: a section as [A1] comes first"},
      {"\n[A1]\n\n[A2]\ntopic=x\n", "line 2: A1 has no topic"},
      {"[A1]\ntopic=x\n[A1]\n", "line 3: A1 stands there twice"},
      {"[A1]\ntopic=x\ntopic=y\n", "line 3: topic stands there twice"},
      {"[A0]\n", "line 1: a lamp is a house from A to P and a unit from 1 to 100, as [A1]"},
      {"[Q1]\n", "line 1: a lamp is a house from A to P and a unit from 1 to 100, as [A1]"},
      {"[A1\n", "line 1: a section ends with ]"},
      {"[A1]\ntopic=a/+/b\n", "line 2: it takes a topic of up to 200 characters, without + and #"},
      {"[A1]\nsteps=0\n", "line 2: it takes a number from 1 to 100"},
      {"[A1]\nfull=1e3\n", "line 2: it takes a number from 1 to 65535"},
      {"[A1]\ndims=maybe\n", "line 2: it takes yes or no"},
      {"[A1]\nlevel=bright\n", "line 2: it needs a % for the number"},
      {"[A1]\ncolour=red\n", "line 2: colour is not understood"},
      {"[A1]\nnonsense\n", "line 2: it is no section and no key = value"},
      {"[A1]\ntopic=\xff\n", "line 2: it is no UTF-8"},
      {"[A1]\ntopic=" + QByteArray(2000, 'x'), "line 2: it is too long"},
      {QByteArray(kLongestTable + 1, '\n'), "it has more than 262144 bytes"},
  };
  for (const auto& [text, wanted] : faults) {
    EXPECT_FALSE(readLightTable(text, &error)) << text.left(40).constData();
    EXPECT_EQ(error, QLatin1StringView(wanted));
  }
}

TEST(LightTable, UnderstandsWhatLampsTell) {
  QString error;
  const QList<TableLamp> table = *readLightTable(kTable, &error);
  const struct {
    int lamp;
    const char* payload;
    int level;  // -1: none
  } reported[] = {
      {0, "ON", 100},
      {0, "OFF", 0},
      {0, "127", 50},
      {0, "1e99", 100},
      {0, "0.2", 1},
      {0, "{\"state\":\"ON\",\"brightness\":64}", 25},
      {0, "{\"state\":\"OFF\",\"brightness\":64}", 0},
      {0, "{\"state\":\"ON\"}", 100},
      {0, "{\"brightness\":\"x\"}", -1},
      {0, "{", -1},
      {0, "nan", -1},
      {0, "", -1},
      {1, "1", 100},
      {1, "0", 0},
      {1, "ON", -1},
  };
  for (const auto& [lamp, payload, level] : reported)
    EXPECT_EQ(levelTold(table[lamp], payload).value_or(-1), level) << payload;
}

struct Lights : ServiceWorld {
  QString error;
  QList<TableLamp> table = *readLightTable(kTable, &error);
  FakeMqtt mqtt;
  FakeTicker settling;
  RecordServer server{{tcp, doorTicker, turns, system.clock, log, allow, limits}};
  LightsService lights{{server, mqtt, settling, log}, table};
  const Peer peer = tcp.join();

  void published(const QByteArrayList& wanted) { EXPECT_EQ(mqtt.take(), wanted); }
};

TEST_F(Lights, EveryRecordAndItsPayload) {
  mqtt.stand();
  EXPECT_EQ(mqtt.subscribed, QStringList{u"one"_s});
  const struct {
    const char *record, *payload, *level;  // `level`: as who has asked hears it; "" for none
  } steps[] = {
      {"ON|A|1$", "one/set ON", "LEVEL|A|1|100$"},
      {"DIM|A|1$", "one/set {\"brightness\": 191}", "LEVEL|A|1|75$"},
      {"DIM|a|1$", "one/set {\"brightness\": 127}", "LEVEL|A|1|50$"},
      {"DIM|A|1$", "one/set {\"brightness\": 64}", "LEVEL|A|1|25$"},
      {"DIM|A|1$", "one/set {\"brightness\": 64}", ""},  // the last step is not off
      {"BRIGHT|A|1$", "one/set {\"brightness\": 127}", "LEVEL|A|1|50$"},
      {"LEVEL|A|1|3$", "one/set {\"brightness\": 8}", "LEVEL|A|1|3$"},
      {"OFF|A|1$", "one/set OFF", "LEVEL|A|1|0$"},
      {"DIM|A|1$", "", ""},
      {"BRIGHT|A|1$", "one/set {\"brightness\": 64}", "LEVEL|A|1|25$"},
      {"LEVEL|A|2|40$", "two 1", "LEVEL|A|2|100$"},
      {"DIM|A|2$", "", ""},
      {"OFF|A|2$", "two 0", "LEVEL|A|2|0$"},
      {"ON|B|7$", "seven ON", "LEVEL|B|7|100$"},
      {"ON|A|9$", "", ""},
      {"on|A|1$", "", ""},
      {"ON$", "", ""},
      {"LEVEL|A|1|x$", "", ""},
  };
  say(peer, "STATE|A$");
  EXPECT_EQ(heard(peer), "BROKER|HERE$LEVEL|A|1|$LEVEL|A|2|$");
  const Peer plain = tcp.join();
  for (const auto& [record, payload, level] : steps) {
    say(plain, record);
    published(*payload ? QByteArrayList{payload} : QByteArrayList());
    EXPECT_EQ(heard(peer), level) << record;
    mqtt.deliver();
  }
  EXPECT_EQ(heard(plain), "") << "who has not asked hears nothing";
  EXPECT_TRUE(log.text.contains("there is no lamp A9"));
}

TEST_F(Lights, TheLastOfEachLampIsSentWhenTheBrokerIsBack) {
  say(peer, "STATE$ON|A|1$ON|A|2$OFF|A|2$");
  EXPECT_TRUE(heard(peer).startsWith("BROKER|AWAY$"));
  mqtt.stand();
  published({"one/set ON", "two 0"});
  mqtt.lose();
  EXPECT_TRUE(heard(peer).contains("BROKER|AWAY$"));
  say(peer, "ON|A|2$OFF|A|2$ON|A|2$");
  published({});
  mqtt.stand();
  published({"one/set ON", "two 1"});  // A1 had not been taken before it went
  mqtt.deliver();
  mqtt.lose();
  mqtt.stand();
  published({});
}

TEST_F(Lights, AFloodKeepsOnePayloadOfALampUnderWay) {
  mqtt.stand();
  for (int i = 0; i < 200; ++i) say(peer, i % 2 ? "OFF|A|1$" : "ON|A|1$");
  takeTurns();
  published({"one/set ON"});
  mqtt.deliver();
  published({"one/set OFF"});
  mqtt.deliver();
  published({});
}

TEST_F(Lights, ALampThatTellsIsTakenOnceItHasSettled) {
  mqtt.stand();
  say(peer, "STATE|A$");
  heard(peer);
  mqtt.tell(u"one"_s, "127");  // a switch on the wall
  EXPECT_EQ(heard(peer), "LEVEL|A|1|50$");
  mqtt.tell(u"one"_s, "nonsense");
  mqtt.tell(u"elsewhere"_s, "ON");
  EXPECT_EQ(heard(peer), "");
  say(peer, "DIM|A|1$");
  EXPECT_EQ(heard(peer), "LEVEL|A|1|25$");
  mqtt.tell(u"one"_s, "120");  // on its way
  settling.fire();
  EXPECT_EQ(heard(peer), "") << "it does not jump back under the finger";
  mqtt.deliver();
  mqtt.tell(u"one"_s, "60");
  system.clock.advance(LightsService::kSettleMs);
  settling.fire();
  EXPECT_EQ(heard(peer), "LEVEL|A|1|24$");
  EXPECT_FALSE(settling.running());
}

}  // namespace
}  // namespace korvane

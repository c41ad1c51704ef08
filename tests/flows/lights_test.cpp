// The lights on the More tab: rows and tiles, with a listener that answers and one that does not.
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

constexpr const char* kAddress = "ShowControl=1\nX10=YES\nX10IP=10.0.0.5\nX10Port=7412\n";
constexpr const char* kLamps =
    "[X10]\nA1D=Reading\nA1DIM=YES\nA2D=NO\nA2DIM=YES\nA4D=Galley\nA4DIM=NO\nA5D=Aisle\nA5DIM="
    "YES\n";

struct Lights : CabinTest {
  enum Button { On, Off, Dim, Bright };

  void given(const QByteArray& startup = {}, const QByteArray& x10 = {}) {
    setting(QByteArray(kAddress) + startup + kLamps + x10);
    start();
  }
  void openMore() { press(u"imgTabs"_s, kMoreTab); }
  FakeWinsock& link() { return *sockets.at(3); }
  void linkStands() {
    link().stand();
    system().pump.settle();
  }
  void arrive(QByteArray records) {
    link().arrive(records.replace('|', '\0').replace('$', '\1'));
    system().pump.settle();
  }
  QByteArray sent() {  // since the last call
    return std::exchange(link().sent, {}).join().replace('\0', '|').replace('\1', '$');
  }
  Grid& rows() { return dynamic_cast<Grid&>(control(u"ssX10"_s)); }
  Sheet& tiles() { return dynamic_cast<Sheet&>(control(u"shtX10"_s)); }
  void chooseRow(int row) {
    rows().row = row;
    EXPECT_TRUE(form().fire(rows(), {Event::Click, 1, row}));
  }
  void tile(Event::Type type, int cell) {
    EXPECT_TRUE(form().fire(tiles(), {type, 0, cell}));
    system().pump.settle();
  }
  QStringList captions() {
    QStringList all;
    for (int cell = 0; cell < tiles().cells().count(); ++cell) all << tiles().cells().caption(cell);
    return all;
  }
  void ticks(int count) {
    for (int i = 0; i < count; ++i)
      if (dynamic_cast<Timer&>(control(u"RepeatTimer"_s)).enabled())
        fire(u"RepeatTimer"_s, Event::Tick);
  }
  bool canDim() {
    EXPECT_EQ(control(u"cmdX10"_s, Dim).enabled(), control(u"cmdX10"_s, Bright).enabled());
    return control(u"cmdX10"_s, Dim).enabled();
  }
  QString stored(const QString& key) { return console().desk.settings.readSetting(u"X10", key); }
};

TEST_F(Lights, ARowIsSentByItsNumberStraightAndErrorsAreResumed) {
  given();
  openMore();
  EXPECT_EQ(column(rows(), 1), (QStringList{u"Reading"_s, u"Galley"_s, u"Aisle"_s}));
  EXPECT_TRUE(shown(u"ssX10"_s) && !shown(u"shtX10"_s) && !shown(u"cmdScene"_s, 0));
  EXPECT_EQ(link().RemoteHost, u"10.0.0.5"_s);
  EXPECT_EQ(link().RemotePort, 7412);
  linkStands();
  EXPECT_EQ(sent(), "") << "nobody is asked anything";
  EXPECT_EQ(caption(u"lblX10"_s), u"X10 listener DISCONNECTED"_s) << "it shows on the next press";
  press(u"cmdX10"_s, On);
  EXPECT_EQ(caption(u"lblX10"_s), u"X10 listener Active"_s);
  EXPECT_TRUE(canDim());
  chooseRow(2);
  EXPECT_FALSE(canDim());
  press(u"cmdX10"_s, Off);
  chooseRow(3);
  EXPECT_TRUE(canDim());
  console().control.lights.ssX10_RowChange(-1);
  EXPECT_TRUE(canDim());
  press(u"cmdX10"_s, Bright);
  EXPECT_EQ(sent(), "ON|A|1$OFF|A|2$BRIGHT|A|3$");

  link().breakWith(u"reset"_s);
  press(u"cmdX10"_s, On);
  EXPECT_EQ(caption(u"lblX10"_s), u"X10 listener DISCONNECTED"_s);
  EXPECT_EQ(sent(), "");
  EXPECT_TRUE(host->opened.isEmpty()) << "no message";
  const int before = link().connects;
  openMore();
  EXPECT_EQ(link().connects, before + 1);
}

TEST_F(Lights, DimRepeatsUntilTheFingerLeaves) {
  given();
  openMore();
  linkStands();
  fire(u"cmdX10"_s, Event::Press, Dim);
  ticks(3);
  fire(u"cmdX10"_s, Event::Release, Dim);
  press(u"cmdX10"_s, Dim);
  ticks(3);
  EXPECT_EQ(sent(), QByteArray("DIM|A|1$").repeated(4));
  fire(u"cmdX10"_s, Event::Press, Dim);
  press(u"imgTabs"_s, kMainTab);
  ticks(3);
  EXPECT_EQ(sent(), "DIM|A|1$") << "a page that is left takes the finger's button with it";
  press(u"imgTabs"_s, kMoreTab);
  fire(u"cmdX10"_s, Event::Press, Bright);
  ticks(2);
  EXPECT_EQ(sent(), "");
}

TEST_F(Lights, PremiseMakesNoRowsAndARemovedTabNoPage) {
  given("Premise=YES\n");
  openMore();
  EXPECT_EQ(console().desk.state.gX10, u"NO"_s);
  EXPECT_TRUE(shown(u"lblNote"_s, 1) && !shown(u"framex10"_s));
  EXPECT_EQ(rows().maxRows(), 0);
  EXPECT_EQ(link().connects, 0);
  setting("X10=YES\nX10IP=10.0.0.5\nX10Port=7412\nShowControl=0\n" + QByteArray(kLamps));
  sockets.clear();
  start();
  EXPECT_LT(control(u"imgTabs"_s, kMoreTab).rect().left, 0);
  host->onModal(u"frmX10Setup"_s, [this](Form& setup) {
    Grid& lamps = controlOf<Grid>(setup, u"ss");
    linkStands();
    setup.fire(lamps, {Event::ButtonClicked, 4, 4});
    setup.fire(lamps, {Event::ButtonClicked, 5, 4});
    korvane::press(setup, u"cmd"_s, 0);
  });
  console().control.x10Setup.open();
  EXPECT_EQ(sent(), "ON|A|4$OFF|A|4$");
  EXPECT_TRUE(host->allDone());
}

TEST_F(Lights, TheNetworkScreenChoosesWhichLightsThereAre) {
  given();
  openMore();
  linkStands();
  const QList<ListenerEntry> others{{u"Galley"_s, u"10.0.0.9"_s, u"7499"_s, u"X10"_s}};
  sockets.at(2)->arrive(QByteArray("NEW|Galley~10.0.0.9~7499~X10$")
                            .replace('|', '\0')
                            .replace('~', '\2')
                            .replace('$', '\1'));
  EXPECT_EQ(console().desk.state.gX10IP, u"10.0.0.5"_s) << "what the master names is no choice";
  const auto onNetwork = [&](std::vector<int> presses) {
    host->onModal(u"frmNetwork"_s, [presses](Form& network) {
      EXPECT_EQ(controlOf<Grid>(network, u"Grid").cell(5, 1), QString());
      for (const int index : presses) korvane::press(network, u"cmdAble"_s, index);
      korvane::press(network, u"cmdDone"_s);
    });
    console().listener.network.loadit(others);
  };
  onNetwork({0});
  EXPECT_EQ(console().desk.state.gX10IP, u"10.0.0.9"_s);
  press(u"cmdX10"_s, On);
  EXPECT_EQ(sent(), "ON|A|1$") << "nothing reconnects there";
  openMore();
  EXPECT_EQ(link().RemoteHost, u"10.0.0.9"_s);
  EXPECT_EQ(link().RemotePort, 7499);
  linkStands();
  onNetwork({0, 1});
  EXPECT_EQ(console().desk.state.gX10IP, QString());
  EXPECT_EQ(link().state(), Winsock::Closed);
  press(u"cmdX10"_s, On);
  EXPECT_EQ(sent(), "");
}

TEST_F(Lights, SetupNamesTheLamps) {
  given();
  const auto setup = [&](int leaves) {
    host->onModal(u"frmX10Setup"_s, [this, leaves](Form& form) {
      Grid& lamps = controlOf<Grid>(form, u"ss");
      ASSERT_EQ(lamps.maxRows(), 16);
      EXPECT_EQ(lamps.cell(1, 4) + lamps.cell(2, 4) + lamps.cell(3, 4), u"A4Galley"_s);
      EXPECT_EQ(lamps.cell(2, 2) + lamps.cell(3, 2), u"✓"_s);
      typed(u"Washroom"_s);
      form.fire(lamps, {Event::Click, 2, 2});
      form.fire(lamps, {Event::Click, 3, 2});
      typed(u"no"_s);
      form.fire(lamps, {Event::Click, 2, 4});
      typed(QString());
      form.fire(lamps, {Event::Click, 2, 5});
      korvane::press(form, u"cmd"_s, leaves);
    });
    console().control.x10Setup.open();
  };
  const QByteArray before = home.get(u"Morvanta.INI"_s);
  setup(0);
  EXPECT_EQ(home.get(u"Morvanta.INI"_s), before);
  openMore();
  setup(1);
  EXPECT_EQ(stored(u"A2D"_s) + stored(u"A2DIM"_s), u"WashroomNO"_s);
  EXPECT_EQ(stored(u"A4D"_s) + stored(u"A5D"_s), u"NOAisle"_s);
  EXPECT_EQ(column(rows(), 1), (QStringList{u"Reading"_s, u"Washroom"_s, u"Aisle"_s}))
      << "the open page shows it at once";
}

TEST_F(Lights, AListenerThatAnswersIsAskedAndShown) {
  given({}, "X10State=YES\n");
  openMore();
  linkStands();
  EXPECT_EQ(sent(), "STATE|A$");
  EXPECT_EQ(caption(u"lblX10"_s), u"X10 listener Active"_s);
  arrive("BROKER|HERE$LEVEL|A|1|40$LEVEL|A|2|0$LEV");
  arrive("EL|A|3|$LEVEL|B|1|9$LEVEL|A|0|9$LEVEL|A|1e9|9$LEVEL|A|x|9$LEVEL|A|1|400000$LEVEL$$");
  EXPECT_EQ(column(rows(), 3), (QStringList{QString(), u"off"_s, QString()}));
  arrive("LEVEL|A|1|40$" + QByteArray(5000, 'x'));
  arrive("$LEVEL|A|3|100$");
  EXPECT_EQ(column(rows(), 3), (QStringList{u"40 %"_s, u"off"_s, u"100 %"_s}));
  arrive("BROKER|AWAY$");
  EXPECT_TRUE(caption(u"lblX10"_s).contains("cannot be reached"_L1));
  link().peerCloses();
  system().pump.settle();
  EXPECT_EQ(caption(u"lblX10"_s), u"X10 listener DISCONNECTED"_s);
  EXPECT_EQ(column(rows(), 3), QStringList(3)) << "what it told is not known any more";
}

TEST_F(Lights, TilesSwitchAndDim) {
  given({}, "X10State=YES\nLightTiles=YES\nA50D=Hull\nA50DIM=YES\n");
  openMore();
  linkStands();
  EXPECT_EQ(sent(), "STATE|A$");
  arrive("LEVEL|A|1|40$LEVEL|A|4|0$LEVEL|A|50|100$");
  EXPECT_EQ(captions(),
            (QStringList{u"Reading  40 %"_s, u"Galley  off"_s, u"Aisle"_s, u"Hull  100 %"_s}));
  QStringList pictures;
  for (int cell = 0; cell < 4; ++cell) pictures << tiles().cells().picture(cell)->name;
  EXPECT_EQ(pictures, (QStringList{u"lamp40"_s, u"lamp0"_s, u"lampunknown"_s, u"lamp100"_s}));
  const auto tap = [this](int cell) {
    tile(Event::Press, cell);
    tile(Event::Release, cell);
    tile(Event::Click, cell);
    return sent();
  };
  EXPECT_EQ(tap(0), "OFF|A|1$");
  EXPECT_EQ(tap(1), "ON|A|4$") << "by its own unit";
  EXPECT_FALSE(canDim());
  EXPECT_EQ(tap(3), "OFF|A|50$");
  EXPECT_TRUE(canDim());
  press(u"cmdX10"_s, Bright);
  EXPECT_EQ(sent(), "BRIGHT|A|50$") << "the buttons act on the one that was touched";
  const auto hold = [this](int cell, int count) {
    tile(Event::Press, cell);
    ticks(count);
    tile(Event::Release, cell);
    tile(Event::Click, cell);
    return sent();
  };
  EXPECT_EQ(hold(3, 3), "DIM|A|50$DIM|A|50$") << "and is not switched when let go";
  EXPECT_EQ(hold(0, 3), "DIM|A|1$DIM|A|1$");
  EXPECT_EQ(hold(0, 2), "BRIGHT|A|1$") << "the other way the next time";
  EXPECT_EQ(hold(1, 3), "ON|A|4$") << "it cannot dim";
}

TEST_F(Lights, WithoutAnswersATileShowsWhatWasSent) {
  given({}, "LightTiles=YES\n");
  openMore();
  tile(Event::Click, 0);
  EXPECT_EQ(captions().first(), u"Reading"_s) << "nothing was sent";
  linkStands();
  EXPECT_EQ(sent(), "");
  tile(Event::Click, 0);
  EXPECT_EQ(captions().first(), u"Reading  100 %"_s);
  fire(u"cmdX10"_s, Event::Press, Dim);
  fire(u"cmdX10"_s, Event::Release, Dim);
  tile(Event::Click, 1);
  EXPECT_EQ(captions(), (QStringList{u"Reading  90 %"_s, u"Galley  100 %"_s, u"Aisle"_s}));
  tile(Event::Click, 1);
  EXPECT_EQ(sent(), "ON|A|1$DIM|A|1$ON|A|4$OFF|A|4$");
}

TEST_F(Lights, WhatBurnsIsKeptAsAScene) {
  given({}, "X10State=YES\nLightTiles=YES\nSCENE1NAME=Night\nSCENE1=0--1\n");
  openMore();
  EXPECT_TRUE(shown(u"cmdScene"_s, 0) && shown(u"cmdScene"_s, 1) && !shown(u"cmdScene"_s, 2));
  answer(u"Nothing is known of the lamps yet"_s);
  press(u"cmdScene"_s, 9);
  linkStands();
  arrive("LEVEL|A|1|3$LEVEL|A|4|100$LEVEL|A|5|0$");
  sent();
  typed(u"Evening"_s);
  press(u"cmdScene"_s, 9);
  EXPECT_EQ(stored(u"SCENE2NAME"_s) + stored(u"SCENE2"_s), u"Evening1--X0"_s);
  EXPECT_EQ(control(u"cmdScene"_s, 2).caption(), u"Evening"_s);
  press(u"cmdScene"_s, 2);
  EXPECT_EQ(sent(), "LEVEL|A|1|10$LEVEL|A|4|100$LEVEL|A|5|0$");
  press(u"cmdScene"_s, 1);
  EXPECT_EQ(sent(), "LEVEL|A|1|0$LEVEL|A|4|10$");
  press(u"cmdScene"_s, 0);
  EXPECT_EQ(sent(), "OFF|A|1$OFF|A|4$OFF|A|5$");
  typed(u"evening"_s);
  press(u"cmdScene"_s, 9);
  EXPECT_FALSE(shown(u"cmdScene"_s, 3)) << "in the place of the one with that name";

  answer(u"Take the scene Night away?"_s, Yes);
  fire(u"cmdScene"_s, Event::Press, 1);
  ticks(6);
  fire(u"cmdScene"_s, Event::Release, 1);
  press(u"cmdScene"_s, 1);
  EXPECT_EQ(sent(), "") << "the finger that took it away does not press the next one";
  EXPECT_EQ(control(u"cmdScene"_s, 1).caption(), u"evening"_s);
  EXPECT_EQ(stored(u"SCENE1NAME"_s), u"NO"_s);
  diskCalls.full = true;
  answer(u"The disk is full"_s);
  typed(u"Late"_s);
  press(u"cmdScene"_s, 9);
  EXPECT_FALSE(shown(u"cmdScene"_s, 2));
  EXPECT_TRUE(host->allDone());
}

}  // namespace
}  // namespace korvane

// What a side hands in reaches the whole console, with no other file knowing it.
#include "custom/buttons/button_entries.h"
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

// In the place of the Maps tab, and a player there.
class TinySide : private Tab, private Player {
 public:
  explicit TinySide(Desk& desk) {
    desk.tabs.setTab(kMapsTab, *this);
    desk.on(u"shadow", Event::Click, [this](int) { did << u"control"_s; });
    desk.guard(desk.frmMain, u"shadow", Event::Click);
    desk.words.add({u"TINY"_s, u"btnmore"_s, u"a tiny thing"_s, [this] { did << u"word"_s; }});
    desk.setupDoors.add({"cmdMoveControls", -1, [this] { did << u"door"_s; }});
    desk.steps.at(Step::FillSongs, [this] { did << u"start"_s; });
    desk.steps.at(Step::CloseMap, [this] { did << u"stop"_s; });
  }
  QStringList take() { return std::exchange(did, {}); }
  QStringList did;

 private:
  void leave() override { did << u"leave"_s; }
  void enter() override { did << u"enter"_s; }
  Player* player() override { return this; }
  void press(TransportButton button) override {
    did << u"transport %1"_s.arg(static_cast<int>(button));
  }
  PlayMode mode() const override { return PlayMode::Stopped; }
  void moveTo(double) override {}
};

using SidesTest = CabinTest;

TEST_F(SidesTest, ATinySideIsWholeByItself) {
  home.put(u"krvgraphics/TEST/Buttonpositons.txt"_s, "T@@#160@@#300@@#tiny@@#100@@#100@@#12\n");
  setting("ShowMap=1\nShowSetup=1\nMaps=1\n");
  std::unique_ptr<TinySide> side;
  start([&](Console& console) { side = std::make_unique<TinySide>(console.desk); });
  EXPECT_EQ(side->take(), QStringList{u"start"_s});
  press(u"cmdbutton"_s, 1);
  EXPECT_EQ(side->take(), QStringList{u"word"_s});
  EXPECT_EQ(customSelectEntries(console().desk.words).last(), u"TINY          a tiny thing"_s);
  host->onModal(u"frmSetup"_s, [](Form& setup) {
    korvane::press(setup, u"cmdMoveControls"_s);
    korvane::press(setup, u"cmdOK"_s);
  });
  press(u"cmdSetup"_s);
  EXPECT_EQ(side->take(), QStringList{u"door"_s});
  press(u"imgTabs"_s, kMapsTab);
  press(u"cmdControls"_s, 3);
  control(u"shadow"_s).visible = true;
  press(u"shadow"_s);
  press(u"imgTabs"_s, kMainTab);
  EXPECT_EQ(side->take(), (QStringList{u"enter"_s, u"transport 3"_s, u"control"_s, u"leave"_s}));
  console().desk.startup.closeit();
  EXPECT_EQ(side->take(), QStringList{u"stop"_s});
}

TEST_F(SidesTest, WhatAHandlerThrowsIsSaidAndAMessageMeanwhileWaits) {
  setting("");
  Desk& desk = start().desk;
  desk.on(u"shadow", Event::Click, [](int) { throw std::runtime_error("the lamp is broken"); });
  control(u"shadow"_s).visible = true;
  QStringList heard;
  const auto box = [&heard](Form& form) { heard << textOf(form, u"msg"_s); };
  host->onModal(u"frmMsgBox"_s, [&](Form& form) {
    box(form);
    desk.messages.say(u"and so is the fan"_s);
    EXPECT_EQ(heard.size(), 1) << "the one that is up comes first";
    host->onModal(u"frmMsgBox"_s, box);
  });
  press(u"shadow"_s);
  EXPECT_EQ(heard, (QStringList{u"the lamp is broken"_s, u"and so is the fan"_s}));
  EXPECT_TRUE(home.get(u"log.txt"_s).contains("the lamp is broken"));
}

TEST_F(SidesTest, DoorsOfSetupStoreTheChosenDirectory) {
  setting("ShowSetup=1\n");
  home.folder(u"chosen"_s);
  Console& up = start();
  for (const auto& [door, key] : {std::pair{0, &key::PDirectory}, {3, &key::PLDirectory}}) {
    up.desk.settings.write(*key, home / u"chosen"_s);
    for (const QString& button : {u"cmdCancel"_s, u"cmdok"_s}) {
      host->onModal(u"frmSetup"_s, [&, door = door](Form& setup) {
        host->onModal(u"frmDirectorys"_s, [&](Form& chooser) { korvane::press(chooser, button); });
        korvane::press(setup, u"cmdAddDir"_s, door);
        korvane::press(setup, u"cmdOK"_s);
      });
      press(u"cmdSetup"_s);
      EXPECT_EQ(up.desk.settings.str(*key).endsWith(u'/'), button == "cmdok"_L1) << door;
    }
  }
  EXPECT_EQ(up.desk.state.gPlaylistDir, home / u"chosen/"_s);
  EXPECT_EQ(up.desk.state.currentTab, kPhotosTab);
}

TEST_F(SidesTest, EveryEntryOfTheChooserButOneIsAWord) {
  setting("");
  const ButtonWords& words = start().desk.words;
  const QStringList entries = customSelectEntries(words);
  EXPECT_EQ(entries[1], u"PICTUREEDIT   allow edit of pictures"_s);
  EXPECT_GE(entries.size(), 26);
  QStringList unknown;
  for (const QString& entry : entries) {
    const QString word = entry.left(14).trimmed();
    EXPECT_LT(word.size(), 14) << "a blank divides it from its meaning";
    const ButtonWord* known = words.find(word.toLower());
    if (!known || known->icon.isEmpty()) unknown << word;
  }
  EXPECT_EQ(unknown, QStringList{u"RESET"_s});
}

}  // namespace
}  // namespace korvane

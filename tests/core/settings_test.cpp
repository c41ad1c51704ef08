#include "core/settings.h"

#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

struct SettingsTest : FormWorld {
  void given(const QByteArray& startup) {
    home.put(u"Morvanta.INI"_s, "[startup]\n" + startup + "\n");
  }
};

TEST_F(SettingsTest, ConvertsByTheRuleOfEachKey) {
  const struct {
    QByteArray line;
    const SettingKey& key;
    int expected;
  } table[] = {
      {"GridFontSize=26", key::GridFontSize, 12},
      {"gridFontSize=25", key::GridFontSize, 25},
      {"GridHeight=9", key::GridHeight, 19},
      {"GRIDHEIGHT= 50 ", key::GridHeight, 50},
      {"GridHeight=12.5", key::GridHeight, 12},
      {"GridHeight=13.5", key::GridHeight, 14},
      {"GridHeight=50.4", key::GridHeight, 19},
      {"GridHeight=&H14", key::GridHeight, 20},
      {"ADDSTART=abc", key::ADDSTART, 20},
      {"ADDSTART=1e9", key::ADDSTART, 20},
      {"", key::ADDSBETWEEN, 10},
      {"ShowSetup=YES", key::ShowSetup, 0},
      {"ShowSetup= 1 ", key::ShowSetup, 1},
      {"ShowSetup=1\t", key::ShowSetup, 0},  // a tab is no blank
      {"LOCALLISTENER=2", key::LOCALLISTENER, 1},
      {"LOCALLISTENER=NO", key::LOCALLISTENER, 0},
      {"LOCALLISTENER=0", key::LOCALLISTENER, 0},
      {"movemain=5", key::MOVEMAIN, 1},
      {"Premise=yes ", key::Premise, 1},
      {"Premise=1", key::Premise, 0},
      {"ADDSON=YES ", key::ADDSON, 1},
      {"ADDSON=yes", key::ADDSON, 0},
      {"", key::ShowPhoto, 0},
      {"ShowPhoto=0 ", key::ShowPhoto, 0},
      {"ShowPhoto=NO", key::ShowPhoto, 0},
      {"ShowPhoto=no", key::ShowPhoto, 1},
      {"", key::ShowMap, 0},
      {"ShowMap=0", key::ShowMap, 0},
      {"ShowMap=0 ", key::ShowMap, 1},
      {"ShowMap=no", key::ShowMap, 0},
      {"ShowControl=2", key::ShowControl, 1},
      {"Maps=1", key::Maps, 1},
      {"Maps=YES", key::Maps, 0},
      {"Radio=1", key::Radio, 1},
      {"Camera=1", key::Camera, 1},
      {"Camera=1 ", key::Camera, 0},
  };
  for (const auto& [line, key, expected] : table) {
    given(line);
    const bool number = key.rule == Rule::Number;
    EXPECT_EQ(number ? settings.number(key) : settings.flag(key), expected) << line.constData();
  }
}

TEST_F(SettingsTest, BlanksStayWhereTheyAreText) {
  given("MasterListenerMyName=  seat 4  \nTheme= dusk ");
  EXPECT_EQ(settings.str(key::MasterListenerMyName), u"seat 4"_s);
  EXPECT_EQ(settings.upper(key::Theme), u"DUSK"_s);
  EXPECT_EQ(settings.raw(key::SERVERIP), u"NO"_s);
}

TEST_F(SettingsTest, ASettingIsReadAsAnyProgramLeftIt) {
  settings.write(key::MainPage, u"CB"_s);
  EXPECT_EQ(settings.str(key::MainPage), u"CB"_s);
  EXPECT_GT(pump.yields, 0);
  given("MainPage=XX");
  EXPECT_EQ(settings.str(key::MainPage), u"XX"_s);
}

TEST_F(SettingsTest, OnlyTheExactWordReadsTheColoursAndUsersValuesHaveTheirSections) {
  EXPECT_EQ(settings.readSetting(u"COLORS", u"GridBACK"), u"1315860"_s);
  EXPECT_EQ(settings.readSetting(u"Colors", u"GridBACK"), u"NO"_s);
  settings.SaveSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s, u"LOCAL"_s);
  settings.SaveSetting(u"Korvane"_s, u"MUSIC"_s, u"MUSICTYPE"_s, u"OTHER"_s);
  EXPECT_EQ(settings.GetSetting(u"KRV"_s, u"MUSIC"_s, u"musictype"_s), u"LOCAL"_s);
  EXPECT_EQ(settings.GetSetting(u"KRV"_s, u"MOVIES"_s, u"MUSICTYPE"_s), QString());
}

// A folder stands in the file's place, or the disk is full: nothing is stored, and that is said.
TEST_F(SettingsTest, AWriteThatFailsIsLoggedAndLeavesTheFile) {
  given("MainPage=WB");
  diskCalls.full = true;
  QString error;
  EXPECT_FALSE(settings.write(key::MainPage, u"CB"_s, &error));
  EXPECT_TRUE(error.contains("MainPage of [STARTUP]"_L1) && error.contains("The disk is full"_L1));
  EXPECT_FALSE(settings.SaveSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s, u"LOCAL"_s));
  diskCalls.full = false;
  EXPECT_EQ(settings.str(key::MainPage), u"WB"_s);
  home.folder(u"user.ini"_s);
  EXPECT_FALSE(settings.SaveSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s, u"LOCAL"_s));
  const QByteArray log = home.get(u"log.txt"_s);
  EXPECT_TRUE(log.contains("MUSICTYPE of [KRV\\MUSIC] is not stored") && log.contains("user.ini"))
      << log.constData();

  SettingsToSave several(settings);
  diskCalls.full = true;
  several.write(key::MainPage, u"CB"_s);
  diskCalls.full = false;
  several.write(key::Theme, u"DAY"_s);
  EXPECT_FALSE(several.good());
  EXPECT_EQ(settings.str(key::Theme), u"NO"_s) << "what follows a failure is left out";
}

TEST_F(SettingsTest, TheLogStartsAnewPastItsSize) {
  home.put(u"log.txt"_s, QByteArray(5'000'000, 'x'));
  settingsLog.logIt(u"kept"_s);
  EXPECT_GT(home.get(u"log.txt"_s).size(), 5'000'000);
  settingsLog.error(9, u"no tape"_s, "rewind", "Form frmDeck");
  const QByteArray fresh = home.get(u"log.txt"_s);
  EXPECT_TRUE(fresh.endsWith(" Error 9 (no tape) in procedure rewind of Form frmDeck\n"));
  EXPECT_EQ(fresh.indexOf(' '), 10) << "MM/DD/YYYY, a blank, the time";
  EXPECT_LT(fresh.size(), 100);
}

}  // namespace
}  // namespace korvane

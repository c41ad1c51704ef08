#include "custom/screens/setup_access.h"
#include "tests/custom/fake_setup_parts.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

constexpr InventoryRow kMain[] = {{"AddTimer", -1, Kind::Timer, {}, 0, ""}};

struct Setup : FormWorld {
  void opens(FakeFormHost::Script script) {
    host.onModal(u"frmSetup"_s, std::move(script));
    access.cmdSetup_Click();
  }

  Form main{u"frmMain"_s, kMain};
  AddTimer addTimer{main, state};
  bool counts() const { return main.find(u"AddTimer")->enabled(); }
  Graphics graphics{files, state, home.path()};
  FakeSetupParts parts;
  SetupForm setup{{dialog, state, settings, files, graphics, box, addTimer, parts}};
  SetupAccess access{{state, settings, messages, parts, setup}};
};

TEST_F(Setup, IsBehindItsPassword) {
  opens([](Form&) {});
  EXPECT_TRUE(messages.texts.isEmpty()) << "none is set";
  const std::tuple<QString, QString, bool> cases[] = {
      {u"Sesame"_s, u"sESAME"_s, true},  // in any case
      {u" Sesame "_s, u"Sesame"_s, true},
      {u"Sesame"_s, u"Sesame "_s, false},
      {u"Sesame"_s, u"Ses"_s, false},
      {u"Sesame"_s, u""_s, false},
      {u"  "_s, u""_s, false},
      {u"no"_s, u""_s, true}};
  for (const auto& [password, typed, opened] : cases) {
    given(key::Setup, password);
    host.opened.clear();
    messages.texts.clear();
    messages.typed = {typed};
    if (opened) host.onModal(u"frmSetup"_s, [](Form&) {});
    access.cmdSetup_Click();
    EXPECT_EQ(messages.texts.contains(u"Enter Setup Password"_s), password != "no"_L1);
    EXPECT_EQ(!host.opened.isEmpty(), opened) << qUtf8Printable(password + u'|' + typed);
  }
}

TEST_F(Setup, RestsWhileControlsAreMovedAndClosesTheStrip) {
  state.moveControlsMode = true;
  access.cmdSetup_Click();
  EXPECT_TRUE(host.opened.isEmpty());
  state.moveControlsMode = false;
  state.gAlwaysOnTopShown = true;
  opens([](Form&) {});
  EXPECT_EQ(parts.calls, QStringList{u"closeAlwaysOnTop"_s});
}

TEST_F(Setup, AnotherThemeReloadsTheMainForm) {
  for (const QString& group : {u"music"_s, u"More"_s, u"MAIN"_s})
    home.folder(u"krvgraphics/Night/"_s + group);
  opens([this](Form& form) {
    auto* themes = dynamic_cast<Grid*>(form.find(u"LstThemes"));
    EXPECT_EQ(themes->cell(1, themes->row()).toUpper(), u"TEST"_s);  // the one in use is marked
    themes->row = themes->SearchCol(1, 1, u"night"_s);
    diskCalls.full = true;
    press(form, u"cmdThemes"_s);
    EXPECT_TRUE(form.shown() && messages.texts.value(0).contains("The disk is full"_L1));
    EXPECT_EQ(state.gTheme, u"TEST"_s) << "what is not stored is not used";
    diskCalls.full = false;
    press(form, u"cmdThemes"_s);
    EXPECT_FALSE(form.shown());
  });
  EXPECT_EQ(state.gTheme, u"NIGHT"_s);
  EXPECT_EQ(stored(key::Theme), u"NIGHT"_s);
  opens([](Form& form) { press(form, u"cmdOK"_s); });
  EXPECT_EQ(parts.calls, QStringList{u"reloadMainForm"_s}) << "once";
}

TEST_F(Setup, ErasesTheLibraryAloneAndOnlyOnYes) {
  const QByteArray ini = home.get(u"Morvanta.INI"_s);
  for (const bool yes : {false, true}) {
    if (yes) box.answers = {SystemBox::Yes};
    opens([&](Form& form) {
      press(form, u"cmdErase"_s);
      EXPECT_TRUE(form.shown());
    });
    EXPECT_EQ(parts.calls.contains(u"eraseLibrary"_s), yes);
  }
  EXPECT_EQ(box.texts.value(0),
            u"Are you sure???\n All settings and will be perminantly erased! "_s);
  EXPECT_EQ(home.get(u"Morvanta.INI"_s), ini);
}

TEST_F(Setup, AdsRestWhileItIsOpen) {
  for (const bool on : {true, false}) {
    state.gAddsOn = on;
    addTimer.apply();
    opens([&](Form&) { EXPECT_FALSE(counts()); });
    EXPECT_EQ(counts(), on);
  }
  state.gAddsOn = true;
  opens([&](Form&) { state.moveControlsMode = true; });  // a door has led into moving the controls
  EXPECT_FALSE(counts());
}

TEST_F(Setup, OnlyButtonsWithAScreenAreShownAndTheyKeepNoGaps) {
  int opened = 0;
  const auto count = [&] { ++opened; };
  const auto chooseFolder = [&] { settings.write(key::PLDirectory, u"/music/lists/"_s); };
  const ScreenDoors doors(std::vector<ScreenDoor>{{"cmdAddDir", 2, count},
                                                  {"cmdAddDir", 3, chooseFolder},
                                                  {"cmdAddDir", 4, count},
                                                  {"cmdButtons", -1, count}});
  setup.setDoors(doors);
  opens([&](Form& form) {
    for (const int index : {0, 1, 4, 5})  // 4: the X10 setup waits for its key
      EXPECT_FALSE(canPress(form, u"cmdAddDir"_s, index)) << index;
    for (const QString& name : {u"cmdButtons"_s, u"cmdListener"_s, u"cmdFtp"_s, u"cmdOther"_s})
      EXPECT_FALSE(canPress(form, name)) << qUtf8Printable(name);
    Rect next = form.find(u"cmdAddDir", 2)->rect();
    next.left += next.width + 16;
    EXPECT_EQ(form.find(u"cmdAddDir", 3)->rect(), next);
    press(form, u"cmdAddDir"_s, 2);
    press(form, u"cmdAddDir"_s, 3);
    EXPECT_EQ(textOf(form, u"Label2"_s), u"Current Playlist Dir = /music/lists/"_s);
  });
  state.gX10 = u"YES"_s;
  state.gMainPage = u"CB"_s;
  opens([&](Form& form) {
    press(form, u"cmdAddDir"_s, 4);
    press(form, u"cmdButtons"_s);
  });
  EXPECT_EQ(opened, 3);
}

}  // namespace
}  // namespace korvane

#include "custom/screens/gui_setup_form.h"

#include "core/tab_controller.h"
#include "tests/custom/fake_setup_parts.h"
#include "tests/fakes/fake_network.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

constexpr InventoryRow kMain[] = {{"Grid", 0, Kind::Grid, {}, 0, ""},
                                  {"Grid", 1, Kind::Grid, {}, 0, ""},
                                  {"pCamera", -1, Kind::Image, {}, 0, "", "", false}};

struct GuiSetup : FormWorld {
  void opens(FakeFormHost::Script script) {
    host.onModal(u"frmGuiSetup"_s, std::move(script));
    setup.open();
  }
  // Saves after `change`; opens frmSetupGeneral for `general` on the way.
  void saves(const FakeFormHost::Script& change, const FakeFormHost::Script& general = nullptr) {
    opens([&](Form& form) {
      if (change) change(form);
      if (general) {
        host.onModal(u"frmSetupGeneral"_s, general);
        press(form, u"cmdGeneral"_s);
      }
      press(form, u"cmdCmd"_s, 0);
      EXPECT_FALSE(form.shown());
    });
  }

  Form main{u"frmMain"_s, kMain};
  FakeSetupParts parts;
  GuiSetupForm setup{{dialog, state, settings, main, parts}};
};

// The options are "Any" and up to three addresses; what is chosen is stored with Save.
TEST_F(GuiSetup, ChoosesANetworkCard) {
  FakeNetwork network;
  NicForm nic(dialog, network);
  ScreenDoors doors;
  doors.add({"cmdMulti", -1, [&] { setup.chooseNic(nic); }});
  setup.setDoors(doors);
  QStringList offered;
  const auto choose = [&](int option) {
    saves([&](Form& form) {
      host.onModal(u"frmNic"_s, [&](Form& card) {
        offered.clear();
        for (int i = 0; i < 4; ++i) {
          const auto& each = dynamic_cast<Check&>(*card.find(u"optNic", i));
          if (each.visible()) offered << each.caption() + (each.checked() ? u"*"_s : QString());
        }
        if (option > 0) press(card, u"optNic"_s, option);
        press(card, u"cmdOK"_s);
      });
      press(form, u"cmdMulti"_s);
    });
    return stored(key::NICCard);
  };
  EXPECT_EQ(choose(0), u"Any"_s);
  EXPECT_EQ(offered, QStringList{u"Any*"_s});
  network.addresses = QStringList{u"10.0.0.1"_s, u"10.0.0.2"_s, u"10.0.0.3"_s, u"10.0.0.4"_s};
  EXPECT_EQ(choose(2), u"10.0.0.2"_s);
  EXPECT_EQ(offered, (QStringList{u"Any*"_s, u"10.0.0.1"_s, u"10.0.0.2"_s, u"10.0.0.3"_s}));
  network.addresses.clear();  // the cable is out
  EXPECT_EQ(choose(0), u"10.0.0.2"_s);
  EXPECT_EQ(offered, QStringList{u"Any"_s});
}

TEST_F(GuiSetup, ShowsWhatIsStored) {
  given(key::LOCALLISTENER, u"2"_s);
  given(key::Maps, u"1"_s);
  given(key::X10, u"yes"_s);
  given(key::GridHeight, u"tall"_s);
  given(key::ShowExit, u"YES"_s);  // only "1" counts here
  given(key::ShowMute, u"1"_s);
  given(key::ShowInTheTaskBar, u"yes"_s);
  opens([&](Form& form) {
    EXPECT_EQ(textOf(form, u"txtNIC"_s), u"any"_s);
    EXPECT_EQ(textOf(form, u"txtAirShow"_s, 1) + textOf(form, u"txtMaster"_s, 0), QString());
    EXPECT_EQ(textOf(form, u"txtCameraDevice"_s), u"NO"_s);
    const auto marked = [](const Form& of) {
      QStringList captions;
      for (const auto& it : of.controls())
        if (const auto* mark = dynamic_cast<Check*>(it.get()); mark && mark->checked())
          captions << mark->caption();
      return captions;
    };
    EXPECT_EQ(marked(form), (QStringList{u"Yes"_s, u"No"_s, u"Show X10 Controls"_s, u"Maps on"_s}));
    EXPECT_EQ(marked(setup.general().form()),
              (QStringList{u"Show Mute Button"_s, u"Minimize to task bar"_s}));
    EXPECT_EQ(textOf(setup.general().form(), u"txtGridHeight"_s), u"12"_s);
  });
}

TEST_F(GuiSetup, MapsAndRadioTogetherRefuseTheWholeSave) {
  const QByteArray before = home.get(u"Morvanta.INI"_s);
  opens([&](Form& form) {
    press(form, u"cmdPage"_s, 4);
    for (const QString& one : {u"ckRadio"_s, u"chkMap"_s}) tick(form, one, true);
    type(form, u"txtNIC"_s, u"eth1"_s);
    press(form, u"cmdCmd"_s, 0);
    EXPECT_TRUE(form.shown());
    press(form, u"cmdCmd"_s, 1);
    EXPECT_FALSE(form.shown());
  });
  EXPECT_EQ(messages.texts,
            QStringList{u"You cannot have maps AND Radio on, choose one or the other or  none."_s});
  EXPECT_EQ(home.get(u"Morvanta.INI"_s), before);
  EXPECT_TRUE(parts.calls.isEmpty());
}

// New keys come at the end of their section, so the file tells the order of the writes.
TEST_F(GuiSetup, SavesInOrderAndStartsTheMasterListenerAgainWhereItIsChanged) {
  state.gMasterListenerIP = state.gMasterListenerPort = state.gMasterListenerMyName = u"NO"_s;
  home.put(u"Morvanta.INI"_s, "[STARTUP]\n");
  saves(nullptr);
  QByteArray keys;
  for (const QByteArray& line : home.get(u"Morvanta.INI"_s).split('\n')) {
    if (line.startsWith("[Movies]")) break;
    if (line.contains('=')) keys += line.left(line.indexOf('=')).toUpper() + ' ';
  }
  EXPECT_EQ(keys,
            "NICCARD SERVERPORT SERVERIP MYNAME ROUTERIP WWWIP MASTERLISTENERIP "
            "MASTERLISTENERPORT MASTERLISTENERMYNAME LOCALLISTENER X10 X10IP PREMISE TV DEBUG "
            "DISPLAYVOLUME CONTROLBUTTONSMAIN SHOWINTHETASKBAR MOVEMAIN LOCALSERVER SHOWEXIT "
            "SHOWSETUP SHOWMIN SHOWMUTE SHOWPHOTO SHOWMAP SHOWCONTROL GRIDFONTSIZE GRIDHEIGHT "
            "MAINPAGE MAPS RADIO CAMERA CAMERADEVICE VIDEOFORMAT ");
  EXPECT_EQ(stored(key::ControlButtons), u"NO"_s);  // its box is not written
  EXPECT_FALSE(parts.calls.contains(u"restartMasterListener"_s));
  saves([](Form& form) { type(form, u"txtMaster"_s, u" 10.0.0.7 "_s, 0); });
  EXPECT_TRUE(parts.calls.contains(u"restartMasterListener"_s));
  EXPECT_EQ(state.gMasterListenerIP, u"10.0.0.7"_s);
}

TEST_F(GuiSetup, AFullDiskLosesNothingThatWasTyped) {
  state.gGridHeight = 19;
  opens([&](Form& form) {
    type(form, u"txtMaster"_s, u"10.0.0.7"_s, 0);
    diskCalls.full = true;
    press(form, u"cmdCmd"_s, 0);
    EXPECT_TRUE(form.shown());
    EXPECT_EQ(messages.texts.size(), 1) << "said once, whatever else could not be stored";
    EXPECT_TRUE(messages.texts.value(0).contains("The disk is full"_L1));
    EXPECT_TRUE(parts.calls.isEmpty()) << "the console runs on as it was";
    host.onModal(u"frmSetupGeneral"_s, [&](Form& general) {
      type(general, u"txtGridHeight"_s, u"30"_s);
      messages.typed = {u"Sesame"_s};
      press(general, u"cmdSetuppw"_s);
      press(general, u"cmdKeyboardLayout"_s);
      EXPECT_EQ(textOf(general, u"txtsetuppw"_s), QString());
      EXPECT_EQ(textOf(general, u"cmdKeyboardLayout"_s), u"Keyboard: US"_s);
      EXPECT_EQ(messages.texts.last(), u"No room."_s);
      press(general, u"cmdOK"_s);
    });
    press(form, u"cmdGeneral"_s);
    EXPECT_EQ(state.gGridHeight, 19);
    diskCalls.full = false;
    press(form, u"cmdCmd"_s, 0);
    EXPECT_FALSE(form.shown());
  });
  EXPECT_EQ(stored(key::MasterListenerIP), u"10.0.0.7"_s);
  EXPECT_EQ(stored(key::Setup), u"NO"_s);
  EXPECT_EQ(state.gGridHeight, 30);
}

TEST_F(GuiSetup, ChoosesWhereMoviesPlay) {
  const std::tuple<int, MovieType, MovieType> cases[] = {
      {1, MovieType::ListenerDvd, MovieType::Dvd},
      {1, MovieType::Digital, MovieType::Digital},
      {0, MovieType::ListenerDvd, MovieType::ListenerDvd},
      {0, MovieType::Dvd, MovieType::Dvd}};  // becomes the Listener's disc elsewhere
  for (const auto& [option, before, after] : cases) {
    state.gMovieType = before;
    saves([&, option = option](Form& form) {
      press(form, u"cmdPage"_s, 2);
      press(form, u"optIntListenM"_s, option);
    });
    EXPECT_EQ(state.gMovieType, after);
    EXPECT_EQ(stored(key::MovieListener), option == 0 ? u"1"_s : u"0"_s);
    EXPECT_EQ(state.gMovieListener, option == 0);
  }
  EXPECT_EQ(parts.calls.count(u"closeMovieConnection"_s), 4);
}

TEST_F(GuiSetup, GridNumbersAndTheMainPageAreMadeUsable) {
  const struct {
    QString font, height, page;
    int fontThen, heightThen;
    QString pageThen;
  } cases[] = {{u"2"_s, u"10"_s, u"xyz"_s, 2, 10, u"WB"_s},
               {u"25"_s, u"50"_s, u""_s, 25, 50, u"WB"_s},
               {u"26"_s, u"51"_s, u"cb"_s, 19, 19, u"CB"_s},
               {u"1"_s, u"9"_s, u" CB "_s, 19, 19, u"WB"_s},
               {u"-1e9"_s, u"1e300"_s, u"CB"_s, 19, 19, u"CB"_s},
               {u"big"_s, u"tall"_s, u"wb"_s, 12, 19, u"WB"_s},
               {u"12.5"_s, u"13.5"_s, u"CB"_s, 12, 14, u"CB"_s}};
  for (const auto& it : cases) {
    saves(nullptr, [&](Form& form) {
      type(form, u"txtGridFontSize"_s, it.font);
      type(form, u"txtGridHeight"_s, it.height);
      type(form, u"txtMainPage"_s, it.page);
      press(form, u"cmdOK"_s);
    });
    EXPECT_EQ(stored(key::GridFontSize), QString::number(it.fontThen));
    EXPECT_EQ(stored(key::MainPage), it.pageThen);
    EXPECT_EQ(state.gMainPage, it.pageThen);
    EXPECT_EQ(state.gGridFontSize, it.fontThen) << qUtf8Printable(it.font);
    EXPECT_EQ(state.gGridHeight, it.heightThen) << qUtf8Printable(it.height);
    for (int i = 0; i < 2; ++i) {
      const auto* grid = dynamic_cast<Grid*>(main.find(u"Grid", i));
      EXPECT_EQ(grid->rowHeight(), it.heightThen);
      EXPECT_EQ(grid->fontSize(), it.fontThen);
    }
  }
}

TEST_F(GuiSetup, TheCameraFollowsAtOnceWhereItLies) {
  const std::pair<int, bool> cases[] = {{kMainTab, true}, {kMusicTab, true}, {kMainTab, false}};
  for (const auto& [tab, on] : cases) {
    state.currentTab = tab;
    saves([&, on = on](Form& form) {
      press(form, u"cmdPage"_s, 4);
      tick(form, u"chkCamera"_s, on);
    });
    EXPECT_EQ(state.gCamera, on);
    EXPECT_EQ(main.find(u"pCamera")->visible(), on && tab == kMainTab);
  }
}

TEST_F(GuiSetup, FieldsAskAndAnEmptyAnswerChangesNothing) {
  opens([&](Form& form) {
    messages.typed = {u"10.0.0.1"_s, u""_s, u"14"_s, u"30"_s, u"CB"_s, u"Sesame"_s};
    type(form, u"txtMaster"_s, u"2100"_s, 1);
    for (const int field : {0, 1}) press(form, u"txtMaster"_s, field);
    EXPECT_EQ(textOf(form, u"txtMaster"_s, 0) + u':' + textOf(form, u"txtMaster"_s, 1),
              u"10.0.0.1:2100"_s);
    host.onModal(u"frmSetupGeneral"_s, [&](Form& general) {
      QStringList typed;
      for (const QString& field : {u"txtGridFontSize"_s, u"txtGridHeight"_s, u"txtMainPage"_s}) {
        press(general, field);
        typed << textOf(general, field);
      }
      EXPECT_EQ(typed, (QStringList{u"14"_s, u"30"_s, u"CB"_s}));
      press(general, u"cmdSetuppw"_s);
      EXPECT_EQ(textOf(general, u"txtsetuppw"_s), u"Sesame"_s);
    });
    press(form, u"cmdGeneral"_s);
    press(form, u"cmdCmd"_s, 1);
  });
  EXPECT_EQ(stored(key::Setup), u"Sesame"_s) << "a new password is stored at once";
}

// Every page: nothing over anything else, nothing under 72 units to press, all within its frame.
TEST_F(GuiSetup, PagesHaveRoomForAFinger) {
  const auto check = [&](const Form& form) {
    for (const auto& one : form.controls()) {
      const Rect frame = one->container ? one->container->rect() : Rect{0, 0, 1280, 768};
      const Rect rect = one->rect();
      SCOPED_TRACE(qUtf8Printable(one->name) + std::to_string(one->index));
      EXPECT_TRUE(rect.left >= 0 && rect.top >= 0 && rect.right() <= frame.width &&
                  rect.bottom() <= frame.height);
      const bool pressed =
          one->kind == Kind::Button || one->kind == Kind::Check || one->kind == Kind::Text;
      EXPECT_TRUE(!pressed || rect.height >= 72);
      for (const auto& other : form.controls()) {
        const bool beside = other != one && other->container == one->container &&
                            one->kind != Kind::Frame && other->kind != Kind::Frame;
        EXPECT_TRUE(!beside || apart(rect, other->rect())) << qUtf8Printable(other->name);
      }
    }
  };
  check(setup.form());
  check(setup.general().form());
}

}  // namespace
}  // namespace korvane

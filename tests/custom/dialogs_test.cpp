// Enter and Escape on every modal form of setup.
#include "custom/screens/colour_pick_form.h"
#include "custom/screens/gui_setup_form.h"
#include "custom/screens/setup_form.h"
#include "tests/custom/fake_setup_parts.h"
#include "tests/fakes/fake_network.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

constexpr InventoryRow kMain[] = {{"AddTimer", -1, Kind::Timer, {}, 0, ""},
                                  {"pCamera", -1, Kind::Image, {}, 0, ""}};

std::function<QString()> shows(auto& screen) {
  return [&screen] {
    screen.open();
    return QString();
  };
}

struct DialogKeys : FormWorld {
  Form main{u"frmMain"_s, kMain};
  Graphics graphics{files, state, home.path()};
  FakeNetwork network;
  FakeSetupParts parts;
  AddTimer addTimer{main, state};
  SetupForm setup{{dialog, state, settings, files, graphics, box, addTimer, parts}};
  GuiSetupForm advanced{{dialog, state, settings, main, parts}};
  NicForm nic{dialog, network};
  ColourPickForm colours{{dialog, settings}};
};

TEST_F(DialogKeys, DoWhatTheirButtonsDo) {
  const auto nothing = [](Form&) {};
  const struct {
    QString form;
    FakeFormHost::Script before;  // a key is pressed
    std::function<QString()> open;
    QString enter, escape;  // what comes of it
  } cases[] = {
      {u"frmSetup"_s, [this](Form&) { state.gMainPage = u"CB"_s; },
       [this] {
         state.gMainPage = u"WB"_s;
         parts.calls.clear();
         setup.open();
         return parts.calls.join(u' ');
       },
       u"showMainPage"_s, u"showMainPage"_s},
      {u"frmGuiSetup"_s, [](Form& form) { type(form, u"txtNIC"_s, u"eth7"_s); },
       [this] {
         given(key::NICCard, u"eth1"_s);
         advanced.open();
         return stored(key::NICCard);
       },
       u"eth7"_s, u"eth1"_s},
      {u"frmSetupGeneral"_s, nothing, shows(advanced.general()), QString(), QString()},
      {u"frmNic"_s, [](Form& form) { press(form, u"optNic"_s, 0); },
       [this] { return nic.choose(u"10.0.0.9"_s); }, u"Any"_s, u"Any"_s},
      {u"frmColorPick"_s, nothing, shows(colours), QString(), QString()},
      {u"frmColor"_s, [](Form& form) { press(form, u"cmdGrey"_s, 15); },
       [this] { return QString::number(colours.chooser().choose(5, u"Grid"_s).value_or(0)); },
       QString::number(0x0F0F0F), u"0"_s},
  };
  for (const auto& it : cases)
    for (const auto& [key, result] : {std::pair{13, it.enter}, std::pair{27, it.escape}}) {
      host.onModal(it.form, [&, pressed = key](Form& form) {
        it.before(form);
        pressKey(form, pressed);
        EXPECT_FALSE(form.shown());
      });
      EXPECT_EQ(it.open(), result) << qUtf8Printable(it.form) << ' ' << key;
    }
}

}  // namespace
}  // namespace korvane

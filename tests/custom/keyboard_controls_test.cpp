// The keyboards that are controls of a form: ctrlKeyboard and NctrlKeyboard.
#include "custom/keyboard/ctrl_keyboard.h"
#include "custom/keyboard/nctrl_keyboard.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

struct KeyboardControls : FormWorld {
  KeyboardControls() {
    settings.writeSetting(u"COLORS", u"AccentBACK", u"255"_s);
    form.shown = true;
    search.visible = true;
    box("txtLookup").visible = true;
    form.find(u"frameMap"_s)->visible = true;
    form.on(u"txtSearch", Event::Change, [this](Control&, const Event&) { ++changes; });
  }
  TextBox& box(const char* name) {
    return dynamic_cast<TextBox&>(*form.find(QString::fromLatin1(name)));
  }
  void keys(const char* array, std::initializer_list<int> codes) {
    for (const int code : codes) press(form, QString::fromLatin1(array), code);
  }
  Button& key(const char* array, int code) {
    return dynamic_cast<Button&>(*form.find(QString::fromLatin1(array), code));
  }
  void fire(Control& control, Event::Type type, int x = 0, int y = 0) {
    form.fire(control, {type, 0, 0, 0, {}, x, y});
  }

  Form form{u"frmMain"_s, mainInventory()};
  TextBox& search = box("txtSearch");
  CtrlKeyboard ctrl{form, palette};
  NctrlKeyboard sending{form, u"newKeyboard"_s, host, palette};
  Timer& timer = dynamic_cast<Timer&>(*form.find(u"KeyRepeatTimer"_s));
  int changes = 0;
};

TEST_F(KeyboardControls, CtrlKeyboardTypesIntoTheBoxItIsToldAbout) {
  QStringList shown;
  ctrl.shownChanged = [&](bool on) { shown << (on ? u"up"_s : u"gone"_s); };
  search.text = u"old"_s;
  search.selStart = 3;
  ctrl.showFor(search);
  keys("KEY", {scan::Clear, scan::Shift, 30, 30, scan::Left, scan::Backspace, 2});
  EXPECT_EQ(search.text(), u"1a"_s);
  EXPECT_EQ(search.selStart(), 1);
  EXPECT_EQ(changes, 5) << "shift and the arrows change nothing";
  EXPECT_EQ(form.focus(), &search);
  keys("KEY", {scan::Enter});
  EXPECT_TRUE(ctrl.shown()) << "Enter does nothing here";
  ctrl.showFor(box("txtLookup"));
  keys("KEY", {31});
  EXPECT_EQ(box("txtLookup").text() + search.text(), u"s1a"_s);
  keys("KEY", {scan::Hide});
  EXPECT_FALSE(canPress(form, u"KEY"_s, 30));
  EXPECT_EQ(shown, (QStringList{u"up"_s, u"gone"_s}));
}

TEST_F(KeyboardControls, AFingerSlidesFromAHeldKeyToAVariantAndLetsGo) {
  ctrl.showFor(search);
  Button& e = key("KEY", 18);
  const auto over = [&](int variant) {
    const Rect to = key("VARIANT", variant).rect(), from = e.rect();
    fire(e, Event::Move, to.left + to.width / 2 - from.left, to.top + to.height / 2 - from.top);
    EXPECT_EQ(key("VARIANT", variant).colours(), palette.button(u"Accent"));
  };
  const auto hold = [&] {
    fire(e, Event::Press);
    fire(timer, Event::Tick);
    over(1);
  };
  hold();
  over(2);
  EXPECT_NE(key("VARIANT", 1).colours(), palette.button(u"Accent"));
  fire(e, Event::Release);
  EXPECT_EQ(search.text(), u"\u00E8"_s);
  for (int variant = 1; variant <= 5; ++variant) EXPECT_FALSE(key("VARIANT", variant).visible());

  keys("KEY", {scan::Shift});
  hold();
  fire(e, Event::Move, 400, 300);  // off again: nothing is meant, and a tap may follow
  fire(e, Event::Release);
  press(form, u"VARIANT"_s, 1);
  EXPECT_EQ(search.text(), u"\u00E8\u00C9"_s);
  fire(e, Event::Press);
  fire(timer, Event::Tick);
  fire(e, Event::Release);
  keys("KEY", {16});
  EXPECT_FALSE(key("VARIANT", 1).visible()) << "another key closes the bubble";
}

TEST_F(KeyboardControls, AHeldKeyRepeatsEverFasterUntilTheFingerSlidesOff) {
  search.text = u"abcdef"_s;
  search.selStart = 6;
  ctrl.showFor(search);
  Button& back = key("KEY", scan::Backspace);
  fire(back, Event::Press);
  EXPECT_EQ(search.text(), u"abcdef"_s) << "a short press acts once, at its end";
  const int first = timer.interval();
  for (int i = 0; i < 2; ++i) fire(timer, Event::Tick);
  EXPECT_LT(timer.interval(), first);
  fire(back, Event::Release);
  fire(back, Event::Click);
  EXPECT_EQ(search.text(), u"abcd"_s) << "the end of a hold is no press";
  fire(back, Event::Press);
  for (const int y : {20, -10}) {
    fire(back, Event::Move, 20, y);
    EXPECT_EQ(timer.enabled(), y > 0);
  }
  fire(back, Event::Release);
  fire(key("KEY", 30), Event::Press);
  fire(timer, Event::Tick);
  EXPECT_EQ(search.text(), u"abcd"_s) << "letters do not repeat";
}

// In its frame whatever the key, and never over it.
TEST_F(KeyboardControls, EveryBubbleHasRoom) {
  ctrl.showFor(search);
  const Rect frame = form.find(u"ctrlKeyboard"_s)->rect();
  int bubbles = 0;
  for (const Key& each : controlKeyboard(usKeyboard()).keys) {
    if (each.variants.isEmpty()) continue;
    Button& held = key("KEY", each.code);
    fire(held, Event::Press);
    fire(timer, Event::Tick);
    const Rect bubble = form.find(u"BUBBLE"_s, 1)->rect();
    EXPECT_TRUE(bubble.left >= 0 && bubble.top >= 0 && bubble.right() <= frame.width);
    EXPECT_TRUE(apart(bubble, held.rect())) << each.code;
    fire(held, Event::Release);
    ++bubbles;
  }
  EXPECT_GT(bubbles, 20);
}

TEST_F(KeyboardControls, NctrlKeyboardSendsKeysToTheFocus) {
  sending.showFor(search);
  EXPECT_EQ(form.focus(), &search);
  keys("ekey", {scan::Shift, 30, 30, scan::CapsLock, 26, 6, scan::CapsLock, scan::Backspace});
  EXPECT_EQ(search.text(), u"Aa{"_s);
  host.sent.clear();
  keys("ekey", {scan::Tab, scan::Up, scan::Down, scan::Insert, scan::Home, scan::End, scan::Left,
                scan::Right, scan::Delete, scan::Enter});
  EXPECT_EQ(host.sent, (QStringList{u"9 \t"_s, u"38 "_s, u"40 "_s, u"45 "_s, u"36 "_s, u"35 "_s,
                                    u"37 "_s, u"39 "_s, u"46 "_s, u"13 \r"_s}));
  keys("ekey", {scan::Clear});
  EXPECT_EQ(search.text(), QString());
  form.setFocus(&box("txtLookup"));  // by a finger, or Tab
  keys("ekey", {31});
  EXPECT_EQ(box("txtLookup").text() + search.text(), u"s"_s);
}

TEST_F(KeyboardControls, NctrlKeyboardLeavesQuietlyAndHidesThroughItsParent) {
  int hidden = 0;
  sending.shownChanged = [&](bool shown) { hidden += !shown; };
  sending.showFor(search);
  search.visible = false;
  keys("ekey", {30, scan::Tab, scan::Clear});
  EXPECT_EQ(search.text() + host.sent.join(u' '), QString());
  press(form, u"BtnEnh1"_s);
  EXPECT_FALSE(sending.shown());
  sending.hide();
  EXPECT_EQ(hidden, 1);
}

}  // namespace
}  // namespace korvane

#include "custom/screens/keyboard_form.h"

#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

constexpr int kA = 30 - 2, kOne = 2 - 2;  // KEY's index is the scan code less 2

struct Keyboard : FormWorld {
  QString asked(FakeFormHost::Script script, bool password = false) {
    host.onModal(u"frmKeyboard"_s, std::move(script));
    QString text = u"Enter a name"_s;
    keyboard.ask(text, password);
    return text;
  }
  static void key(Form& form, int code) { press(form, u"KEY"_s, code - 2); }

  KeyboardForm keyboard{host, palette};
};

TEST_F(Keyboard, ReturnsWhatWasTyped) {
  const QString typed = asked([](Form& form) {
    EXPECT_EQ(textOf(form, u"lblMsg"_s), u"Enter a name"_s);
    EXPECT_EQ(form.focus(), form.find(u"txtInput"));
    key(form, scan::Shift);
    EXPECT_EQ(textOf(form, u"KEY"_s, kA) + textOf(form, u"KEY"_s, kOne), u"A!"_s) << "as they type";
    press(form, u"KEY"_s, kA);
    EXPECT_EQ(textOf(form, u"KEY"_s, kA), u"a"_s);
    for (const QString& text : {u"b"_s, u"%"_s, u"\b"_s, u"\r"_s, u"é"_s})  // hardware keys too
      form.fireKey({Event::KeyPress, 0, 0, text[0].unicode(), text});
    for (const int code : {37, 8, 13}) pressKey(form, code);
    EXPECT_FALSE(form.shown());
  });
  EXPECT_EQ(typed, u"Abé"_s);
}

TEST_F(Keyboard, EveryWayOut) {
  const std::tuple<const char*, FakeFormHost::Script, QString> cases[] = {
      {"cancel", [](Form& form) { press(form, u"cmdCancel"_s); }, u""_s},
      {"escape", [](Form& form) { pressKey(form, 27); }, u""_s},
      {"return", [](Form& form) { pressKey(form, 13); }, u"x1"_s},
      {"the window goes", [](Form& form) { form.shown = false; }, u""_s},
  };
  for (const auto& [what, leave, result] : cases) {
    const auto script = [&leave = leave](Form& form) {
      type(form, u"txtInput"_s, u"x"_s);  // by a hardware keyboard
      dynamic_cast<TextBox*>(form.find(u"txtInput"))->selStart = 1;
      press(form, u"KEY"_s, kOne);
      leave(form);
    };
    EXPECT_EQ(asked(script), result) << what;
  }
}

TEST_F(Keyboard, PasswordsAreCoveredAndNothingIsKept) {
  const auto covered = [](Form& form) {
    return !dynamic_cast<TextBox*>(form.find(u"txtInput"))->passwordChar().isEmpty();
  };
  const auto secret = [&](Form& form) {
    EXPECT_TRUE(covered(form));
    key(form, scan::CapsLock);
    press(form, u"KEY"_s, kA);
    key(form, scan::Enter);
  };
  EXPECT_EQ(asked(secret, true), u"A"_s);
  asked([&](Form& form) {
    EXPECT_FALSE(covered(form));
    EXPECT_EQ(textOf(form, u"txtInput"_s) + textOf(form, u"KEY"_s, kA), u"a"_s);  // caps lock too
  });
}

TEST_F(Keyboard, ASecondQuestionIsCancelled) {
  const QString typed = asked([this](Form& form) {
    QString second = u"And this?"_s;
    keyboard.ask(second, false);
    EXPECT_EQ(second, QString());
    press(form, u"KEY"_s, kA);
    key(form, scan::Enter);
  });
  EXPECT_EQ(typed, u"a"_s);
}

constexpr InventoryRow kOther[] = {{"txtServer", -1, Kind::Text, {0, 0, 400, 72}, Left | Top, ""}};

TEST_F(Keyboard, TheBareOneTypesIntoAnotherForm) {
  Form other{u"frmOther"_s, kOther};
  auto& server = dynamic_cast<TextBox&>(*other.find(u"txtServer"));
  Form& bare = keyboard.bareForm();
  keyboard.typeInto(server);
  EXPECT_TRUE(bare.shown() && bare.role == FormRole::Floating);
  key(bare, scan::Shift);
  for (const int code : {30, 30, scan::Enter}) key(bare, code);
  EXPECT_EQ(server.text(), u"Aa"_s);
  EXPECT_TRUE(bare.shown()) << "Enter does nothing here";

  Control& frame = *bare.find(u"framKeyBoard");
  bare.fire(frame, {Event::Press});
  for (const int y : {-4, -44, -4})  // the frame follows, so the finger is where it was
    bare.fire(frame, {Event::Move, 0, 0, 0, {}, 600, y});
  EXPECT_EQ(bare.lift(), 40);

  asked([&](Form& form) {
    EXPECT_FALSE(bare.shown()) << "a question takes its place";
    key(form, scan::Enter);
  });
  server.rect = Rect{0, 600, 400, 72};
  keyboard.typeInto(server);
  EXPECT_GE(bare.lift(), 768 - 600) << "what is typed is not covered";
  server.rect = Rect{0, 330, 400, 72};
  keyboard.typeInto(server);
  EXPECT_EQ(bare.lift(), 0);
  key(bare, scan::Hide);
  EXPECT_FALSE(bare.shown());
  keyboard.typeInto(server);
  bare.shown = false;  // with the form that it typed into
  key(bare, 30);
  EXPECT_EQ(server.text(), u"Aa"_s);
}

}  // namespace
}  // namespace korvane

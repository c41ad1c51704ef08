// Boxes above the form, waits and fades.
#include <QTimer>

#include "tests/window/small_console.h"

namespace korvane {
namespace {

class Modal : public SmallConsole {
 protected:
  ControlWidget& widgetOf(Form& of, QStringView name, int index = -1) {
    return *host.view(of)->widget(*of.find(name, index));
  }
  ControlWidget& yes() { return widgetOf(box, u"cmdControls", 0); }
  void hideOnYes() {
    box.on(u"cmdControls", Event::Click, [this](Control&, const Event&) { host.hide(box); });
  }
};

TEST_F(Modal, HoldsTheCallerTakesThePressesAndReturnsWhenHidden) {
  hideOnYes();
  QTimer::singleShot(20, [&] {
    EXPECT_EQ(host.view(box)->geometry(), QRect(440, 284, 400, 200));
    tap("cmdTop", 0);
    EXPECT_TRUE(box.shown());
    finger.tap(yes(), QPoint(20, 20));
  });
  host.showModal(box);
  EXPECT_FALSE(box.shown());
  EXPECT_EQ(take(), QStringList()) << "nothing went through to the form below";
}

// A question may lie above a message: two forms of one name.
TEST_F(Modal, TwoBoxesLieAboveEachOtherAndCloseInAnyOrder) {
  for (const bool lowerFirst : {true, false}) {
    SCOPED_TRACE(lowerFirst);
    Form upper{u"frmMsgBox"_s, kBoxForm, {0, 0, 300, 200}};
    QStringList order;
    QTimer::singleShot(10, [&] {
      QTimer::singleShot(10, [&] {
        EXPECT_EQ(host.topForm(), &upper);
        EXPECT_EQ(finger.obstacle(yes(), QPoint(20, 20)), u"the form frmMsgBox is above it"_s);
        EXPECT_EQ(finger.obstacle(widgetOf(upper, u"cmdControls", 0), QPoint(20, 20)), QString());
        Form &first = lowerFirst ? box : upper, &last = lowerFirst ? upper : box;
        host.hide(first);
        EXPECT_EQ(host.view(first), nullptr);
        EXPECT_EQ(host.topForm(), &last);
        EXPECT_EQ(finger.obstacle(widgetOf(last, u"cmdControls", 0), QPoint(20, 20)), QString());
        order << u"hidden"_s;
        QTimer::singleShot(10, [&] { host.hide(last); });
      });
      host.showModal(upper);
      order << u"upper returned"_s;
    });
    host.showModal(box);
    order << u"lower returned"_s;
    EXPECT_EQ(order, (QStringList{u"hidden"_s, u"upper returned"_s, u"lower returned"_s}));
    EXPECT_EQ(host.topForm(), &form);
  }
}

constexpr InventoryRow kKeysForm[] = {
    {"KEY", 0, Kind::Button, {10, 10, 200, 180}, Left | Top, "A key"},
};
constexpr InventoryRow kLoginForm[] = {
    {"txtUser", -1, Kind::Text, {20, 20, 300, 80}, Left | Top, "User"},
    {"txtServer", -1, Kind::Text, {20, 120, 300, 80}, Left | Top, "Server"},
};

TEST_F(Modal, AFloatingFormLeavesTheOthersTheirPressesAndGoesWithTheModalOne) {
  Form keys{u"frmKeyboard"_s, kKeysForm, {0, 0, 1280, 200}, FormRole::Floating};
  Form login{u"frmLogin"_s, kLoginForm, {0, 0, 400, 220}};
  int pressed = 0;
  keys.on(u"KEY", Event::Click, [&](Control&, const Event&) { ++pressed; });
  TextBox* touched = nullptr;
  host.textTouched = [&](TextBox& one) {
    touched = &one;
    host.show(keys);
  };
  QTimer::singleShot(20, [&] {
    finger.tap(widgetOf(login, u"txtServer"), QPoint(20, 20));
    EXPECT_EQ(touched, login.find(u"txtServer"));
    EXPECT_EQ(host.view(keys)->geometry(), QRect(0, 568, 1280, 200));
    finger.tap(widgetOf(keys, u"KEY", 0), QPoint(50, 50));
    finger.tap(widgetOf(login, u"txtUser"), QPoint(20, 20));
    EXPECT_EQ(touched, login.find(u"txtUser")) << "below it, presses go on";
    keys.lift = 100;
    EXPECT_EQ(host.view(keys)->geometry().top(), 468);
    keys.lift = 9000;
    EXPECT_EQ(host.view(keys)->geometry().top(), 0);
    host.hide(login);
  });
  host.showModal(login);
  EXPECT_EQ(pressed, 1);
  EXPECT_FALSE(keys.shown());
}

// As a hardware keyboard would have sent them.
TEST_F(Modal, SentKeysGoToTheFocusOfTheForm) {
  Form login{u"frmLogin"_s, kLoginForm, {0, 0, 400, 220}};
  auto& user = dynamic_cast<TextBox&>(*login.find(u"txtUser"));
  auto& server = dynamic_cast<TextBox&>(*login.find(u"txtServer"));
  QList<int> unheard;
  login.on(Event::KeyDown, [&](Control&, const Event& event) { unheard << event.key; });
  EXPECT_FALSE(host.sendKey(login, 0, u"x"_s)) << "nothing has the focus";
  QTimer::singleShot(20, [&] {
    login.setFocus(&user);
    const std::pair<int, QString> sent[] = {
        {0, u"a"_s},   {0, u"%"_s},  {0, u"\u00E9"_s}, {37, {}}, {8, u"\b"_s},
        {36, {}},      {46, {}},     {0, u"b"_s},      {35, {}}, {45, {}},
        {13, u"\r"_s}, {9, u"\t"_s}, {0, u"c"_s}};
    for (const auto& [key, text] : sent) EXPECT_TRUE(host.sendKey(login, key, text)) << key;
    host.hide(login);
  });
  host.showModal(login);
  EXPECT_EQ(user.text(), u"b\u00E9"_s);
  EXPECT_EQ(server.text(), u"c"_s) << "Tab goes on to the next";
  EXPECT_TRUE(unheard.contains(13));
}

TEST_F(Modal, PressesDuringAWaitAreRefusedNotQueued) {
  bool over = false;
  QTimer::singleShot(20, [&] {
    EXPECT_EQ(finger.obstacle(widget("cmdTop", 0), QPoint(50, 50)),
              u"presses are refused while a wait runs"_s);
    tap("cmdTop", 0);
    finger.key(Qt::Key_A, Qt::NoModifier, u"a"_s);
  });
  QTimer::singleShot(60, [&] { over = true; });
  EXPECT_TRUE(pump.wait(3000, [&] { return over; }));
  settle(30);
  EXPECT_EQ(take(), QStringList());
}

TEST_F(Modal, AWaitEndsInTimeAndAFingerFromBeforeItClicksNothing) {
  finger.press(widget("cmdTop", 0), QPoint(50, 50));
  QTimer::singleShot(20, [&] { finger.release(); });
  QElapsedTimer waited;
  waited.start();
  EXPECT_FALSE(pump.wait(80, [] { return false; }));
  EXPECT_GE(waited.elapsed(), 80);
  EXPECT_LT(waited.elapsed(), 400);
  EXPECT_EQ(take(), (QStringList{u"cmdTop press"_s, u"cmdTop release"_s}));
}

TEST_F(Modal, ABoxThatOpensInsideAWaitCanBeAnswered) {
  hideOnYes();
  bool answered = false;
  QTimer::singleShot(10, [&] {
    QTimer::singleShot(10, [&] { finger.tap(yes(), QPoint(20, 20)); });
    host.showModal(box);
    answered = true;
  });
  EXPECT_TRUE(pump.wait(3000, [&] { return answered; }));
}

TEST_F(Modal, AnExceptionOfWhatComesFromTheLoopGoesToTheWall) {
  QStringList failures;
  pump.wall.failed = host.wall.failed = [&](const std::exception& failure) {
    failures << QString::fromUtf8(failure.what());
  };
  const auto fail = [](const char* what) { throw std::runtime_error(what); };
  bool ended = false;
  pump.later([&] { fail("later"); });
  EXPECT_TRUE(pump.wait(3000, [&] { return !failures.isEmpty(); }));
  pump.inBackground([&] { fail("work"); },
                    [&] {
                      ended = true;
                      fail("done");
                    });
  EXPECT_TRUE(pump.wait(3000, [&] { return ended; }));
  host.textTouched = [&](TextBox&) { fail("touched"); };
  Form login{u"frmLogin"_s, kLoginForm, {0, 0, 400, 220}};
  host.show(login);
  finger.tap(widgetOf(login, u"txtUser"), QPoint(20, 20));
  host.hide(login);
  EXPECT_EQ(failures, (QStringList{u"later"_s, u"work"_s, u"done"_s, u"touched"_s}));
}

TEST_F(Modal, TheStripMovesWithTheFingerAndATapClicks) {
  Form strip{u"frmAlwaysOnTop"_s, kBoxForm, {0, 0, 400, 200}, FormRole::Strip};
  int clicks = 0;
  strip.on(u"cmdControls", Event::Click, [&](Control&, const Event&) { ++clicks; });
  host.show(strip);
  settle();
  FormView* shown = host.view(strip);
  EXPECT_EQ(shown->pos(), QPoint(1, 1));
  ControlWidget& key = widgetOf(strip, u"cmdControls", 0);
  finger.press(key, QPoint(20, 20));
  finger.move(QPoint(40, 30));
  EXPECT_EQ(shown->pos(), QPoint(41, 31));
  finger.release();
  EXPECT_EQ(clicks, 0);
  finger.tap(key, QPoint(20, 20));
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(host.topForm(), &form);
  host.hide(strip);
}

}  // namespace
}  // namespace korvane

// Boxes above the form, waits and fades.
#include <QThread>
#include <QTimer>

#include "tests/window/small_console.h"

namespace korvane {
namespace {

class Modal : public SmallConsole {
 protected:
  void later(int milliseconds, std::function<void()> work) {
    QTimer::singleShot(milliseconds, std::move(work));
  }
  ControlWidget& yes() { return *host.view(box)->widget(*box.find(u"cmdControls", 0)); }
};

TEST_F(Modal, HoldsTheCallerTakesThePressesAndReturnsWhenHidden) {
  box.on(u"cmdControls", Event::Click, [&](Control&, const Event&) { host.hide(box); });
  QString below;
  QPoint middle;
  later(20, [&] {
    below = finger.obstacle(widget("cmdTop", 0), QPoint(50, 50));
    middle = host.view(box)->geometry().center();
    tap("cmdTop", 0);
    EXPECT_TRUE(box.shown());
    finger.tap(yes(), QPoint(20, 20));
  });
  host.showModal(box);
  EXPECT_EQ(below, u"the form frmMsgBox is above it"_s);
  EXPECT_NEAR(middle.x(), 640, 1);
  EXPECT_NEAR(middle.y(), 384, 1);
  EXPECT_FALSE(box.shown());
  EXPECT_EQ(host.topForm(), &form);
  EXPECT_EQ(take(), QStringList()) << "nothing went through to the form below";
  tap("cmdTop", 0);
  EXPECT_TRUE(heard.contains(u"cmdTop click"_s));
}

TEST_F(Modal, OneInsideTheOtherReturnInTheirOrder) {
  Form inner{u"frmInner"_s, kBoxForm, {0, 0, 300, 200}};
  QStringList order;
  later(10, [&] {
    later(10, [&] {
      host.hide(box);
      order << u"outer hidden"_s;
      later(10, [&] { host.hide(inner); });
    });
    host.showModal(inner);
    order << u"inner returned"_s;
  });
  host.showModal(box);
  order << u"outer returned"_s;
  EXPECT_EQ(order, (QStringList{u"outer hidden"_s, u"inner returned"_s, u"outer returned"_s}));
}

TEST_F(Modal, PressesDuringAWaitAreRefusedNotQueued) {
  bool over = false;
  later(20, [&] {
    EXPECT_EQ(finger.obstacle(widget("cmdTop", 0), QPoint(50, 50)),
              u"presses are refused while a wait runs"_s);
    tap("cmdTop", 0);
    finger.key(Qt::Key_A, Qt::NoModifier, u"a"_s);
  });
  later(60, [&] { over = true; });
  EXPECT_TRUE(pump.wait(3000, [&] { return over; }));
  settle(30);
  EXPECT_EQ(take(), QStringList());
  tap("cmdTop", 0);
  EXPECT_TRUE(heard.contains(u"cmdTop click"_s));
}

TEST_F(Modal, AWaitEndsInTimeAndAFingerFromBeforeItClicksNothing) {
  finger.press(widget("cmdTop", 0), QPoint(50, 50));
  later(20, [&] { finger.release(); });
  QElapsedTimer waited;
  waited.start();
  EXPECT_FALSE(pump.wait(80, [] { return false; }));
  EXPECT_GE(waited.elapsed(), 80);
  EXPECT_LT(waited.elapsed(), 400);
  EXPECT_EQ(take(), (QStringList{u"cmdTop press"_s, u"cmdTop release"_s}));
}

TEST_F(Modal, ABoxThatOpensInsideAWaitCanBeAnswered) {
  box.on(u"cmdControls", Event::Click, [&](Control&, const Event&) { host.hide(box); });
  bool answered = false;
  later(10, [&] {
    later(10, [&] { finger.tap(yes(), QPoint(20, 20)); });
    host.showModal(box);
    answered = true;
  });
  EXPECT_TRUE(pump.wait(3000, [&] { return answered; }));
}

TEST_F(Modal, WorkInTheBackgroundEndsOnTheWindowsThread) {
  const Qt::HANDLE here = QThread::currentThreadId();
  Qt::HANDLE worked = here, ended = nullptr;
  pump.inBackground([&] { worked = QThread::currentThreadId(); },
                    [&] { ended = QThread::currentThreadId(); });
  EXPECT_TRUE(pump.wait(3000, [&] { return ended != nullptr; }));
  EXPECT_NE(worked, here);
  EXPECT_EQ(ended, here);
}

TEST_F(Modal, TheStripMovesWithTheFingerAndATapClicks) {
  Form strip{u"frmAlwaysOnTop"_s, kBoxForm, {0, 0, 400, 200}};
  int clicks = 0;
  strip.on(u"cmdControls", Event::Click, [&](Control&, const Event&) { ++clicks; });
  host.show(strip);
  settle();
  FormView* shown = host.view(strip);
  EXPECT_EQ(shown->pos(), QPoint(1, 1));
  ControlWidget& key = *shown->widget(*strip.find(u"cmdControls", 0));
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

TEST_F(Modal, TheFormAnswersWhileTheSplashFadesAboveIt) {
  Form splash{u"frmSplash"_s, kBoxForm, {0, 0, 400, 200}};
  host.show(splash);
  EXPECT_EQ(host.topForm(), &form);
  later(40, [&] { tap("cmdTop", 0); });
  QElapsedTimer faded;
  faded.start();
  host.fadeOut(splash, 150);
  EXPECT_GE(faded.elapsed(), 140);
  EXPECT_FALSE(splash.shown());
  EXPECT_EQ(host.view(splash), nullptr);
  EXPECT_TRUE(heard.contains(u"cmdTop click"_s));
}

}  // namespace
}  // namespace korvane

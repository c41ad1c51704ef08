// What a finger on the glass fires.
#include <QApplication>

#include "tests/window/small_console.h"

namespace korvane {
namespace {

class Press : public SmallConsole {};

TEST_F(Press, ATapPressesReleasesAndClicks) {
  tap("cmdTop", 1);
  EXPECT_EQ(take(), (QStringList{u"cmdTop1 press"_s, u"cmdTop1 release"_s, u"cmdTop1 click"_s}));
  finger.press(widget("cmdTop", 0), QPoint(50, 50));
  finger.move(QPoint(400, 0));
  finger.release();
  EXPECT_EQ(take(), (QStringList{u"cmdTop press"_s, u"cmdTop release"_s}))
      << "a finger that slid off";
}

TEST_F(Press, ASecondTapIsADoubleClickOnlyWhereSomebodyHearsIt) {
  finger.doubleTap(widget("cmdTop", 0), QPoint(50, 50));
  EXPECT_EQ(take().count(u"cmdTop click"_s), 2);
  finger.doubleTap(widget("lblState"), QPoint(50, 20));
  const QStringList label = take();
  EXPECT_EQ(label.count(u"lblState click"_s), 1);
  EXPECT_EQ(label.count(u"lblState dblclick"_s), 1);
}

TEST_F(Press, ThePressedPictureShowsBeforeTheHandlerRuns) {
  control<Image>("cmdTop", 0).setPicture(u"MUSIC"_s, u"play"_s);
  control<Image>("cmdTop", 1).setPicture(u"MUSIC"_s, u"solo"_s);
  QColor during, alone;
  form.on(u"cmdTop", Event::Press, [&](Control& pressed, const Event&) {
    (pressed.index == 0 ? during : alone) = colourAt("cmdTop", pressed.index);
  });
  tap("cmdTop", 0);
  EXPECT_EQ(during, QColor(255, 0, 0)) << "the partner of the theme";
  tap("cmdTop", 1);
  EXPECT_LT(alone.green(), 230) << "without a partner it darkens";
  settle(150);
  EXPECT_EQ(colourAt("cmdTop", 0), QColor(0, 0, 255));
  EXPECT_EQ(colourAt("cmdTop", 1), QColor(0, 255, 0));
}

TEST_F(Press, TheSecondTapOnWhatAppearedMeanwhileIsMeantForNobody) {
  form.on(u"cmdTop", Event::Click, [&](Control& pressed, const Event&) {
    pressed.visible = false;
    control<Image>("cmdTop", 1).rect = pressed.rect();
  });
  finger.doubleTap(widget("cmdTop", 0), QPoint(50, 50));
  EXPECT_FALSE(take().contains(u"cmdTop1 click"_s));
}

TEST_F(Press, RowsAreSelectedByOneTapAndActivatedByTwo) {
  Grid& grid = control<Grid>("Grid", 0);
  grid.columns = {{u"Title"_s},
                  {u"Path"_s, 0, true},
                  {u"Artist"_s},
                  {u"DEL"_s, 0, false, Grid::CellKind::Button}};
  grid.setRows(std::make_shared<CountedRows>(100));
  tapRow(3);
  EXPECT_EQ(grid.row(), 3);
  EXPECT_EQ(take(), QStringList{u"Grid click 3,3"_s});
  tapRow(5, true);
  EXPECT_EQ(take(), (QStringList{u"Grid click 3,5"_s, u"Grid dblclick 3,5"_s}));
  tapRow(0);
  EXPECT_EQ(take(), QStringList{u"Grid click 3,0"_s});
  finger.tap(gridWidget(), gridWidget().cellRect(4, 2).center());
  EXPECT_EQ(take(), QStringList{u"Grid button 4,2"_s});

  host.setSinglePress(true);
  tapRow(4);
  EXPECT_EQ(take(), (QStringList{u"Grid click 3,4"_s, u"Grid dblclick 3,4"_s}));
  tapRow(6, true);
  EXPECT_EQ(take(), (QStringList{u"Grid click 3,6"_s, u"Grid dblclick 3,6"_s}))
      << "once, not twice";
}

TEST_F(Press, OneTapActivatesNothingInAListThatItFilledAnew) {
  host.setSinglePress(true);
  Grid& grid = control<Grid>("Grid", 0);
  grid.setRows(std::make_shared<CountedRows>(9));
  form.on(u"Grid", Event::Click,
          [&](Control&, const Event&) { grid.setRows(std::make_shared<CountedRows>(9)); });
  tapRow(1);
  EXPECT_EQ(take(), QStringList{u"Grid click 1,1"_s});
}

TEST_F(Press, ADragScrollsCoastsAndActivatesNothing) {
  Grid& grid = control<Grid>("Grid", 0);
  grid.setRows(std::make_shared<CountedRows>(10'000));
  finger.press(gridWidget(), QPoint(200, 350));
  for (int i = 0; i < 12; ++i) {
    finger.move(QPoint(0, -25));
    settle(8);
  }
  finger.release();
  const int released = grid.topRow();
  EXPECT_NEAR(released, 1 + 300 / 38, 1);
  settle(200);
  const int later = grid.topRow();
  EXPECT_GT(later, released + 3) << "coasts";
  finger.tap(gridWidget(), QPoint(200, 100));
  const int caught = grid.topRow();
  settle(100);
  EXPECT_EQ(grid.topRow(), caught) << "a tap stops it";
  EXPECT_EQ(grid.row(), 1);
  EXPECT_EQ(take(), QStringList());
}

TEST_F(Press, ASliderJumpsFollowsAndLetsGo) {
  Slider& slider = control<Slider>("Slider1");
  slider.maximum = 600;
  auto& shown = dynamic_cast<SliderWidget&>(widget("Slider1"));
  finger.press(shown, shown.pointOf(300) + QPoint(0, 30));
  EXPECT_NEAR(slider.value(), 300, 1) << "a tap in the catch area jumps";
  EXPECT_EQ(take(), (QStringList{u"Slider1 press"_s, u"Slider1 change"_s}));
  slider.text = u"Current= 5:00"_s;
  finger.move(QPoint(100, 0));
  EXPECT_NEAR(slider.value(), 400, 1);
  finger.move(QPoint(5000, 0));
  EXPECT_EQ(slider.value(), 600);
  finger.release();
  const QStringList last = take();
  EXPECT_EQ(last.back(), u"Slider1 release"_s);
  EXPECT_EQ(last.count(u"Slider1 release"_s), 1);

  finger.press(shown, shown.thumb() + QPoint(-9, 0));
  EXPECT_EQ(slider.value(), 600) << "taken beside its centre the thumb does not jump";
  finger.release();
}

TEST_F(Press, ASliderWithItsLargerEndAboveFillsFromBelow) {
  Slider& slider = control<Slider>("Slider1");
  slider.vertical = true;
  slider.rect = Rect{1200, 100, 72, 500};
  slider.minimum = 10;
  slider.maximum = 0;
  auto& shown = dynamic_cast<SliderWidget&>(widget("Slider1"));
  const auto at = [&](int y) { return shown.grab().toImage().pixelColor(36, y); };
  const QColor empty = at(250);
  for (const auto& [by, value] : {std::pair(-2000, 10), std::pair(2000, 0), std::pair(-230, 5)}) {
    finger.press(shown, shown.thumb());
    finger.move(QPoint(0, by));
    finger.release();
    EXPECT_NEAR(slider.value(), value, 1);
  }
  EXPECT_EQ(at(60), empty);
  EXPECT_NE(at(440), empty);
}

TEST_F(Press, ABarOfProgressFillsAndItsTextReadsOnBothParts) {
  auto& bar = control<Progress>("barDone");
  bar.visible = true;
  bar.value = 50;
  const auto at = [&](int x) { return widget("barDone").grab().toImage().pixelColor(x, 4); };
  const QColor filled = at(100), rest = at(300);
  EXPECT_NE(filled, rest);
  for (const auto& [value, left, right] : {std::tuple(-5.0, rest, rest), {250.0, filled, filled}}) {
    bar.value = value;
    EXPECT_EQ(at(100), left) << value;
    EXPECT_EQ(at(300), right) << value;
  }
}

TEST_F(Press, WhatIsHiddenCoveredOrOffCannotBeReached) {
  const auto obstacle = [&](const char* name, int index = -1) {
    return finger.obstacle(widget(name, index), widget(name, index).rect().center());
  };
  EXPECT_EQ(obstacle("cmdTop", 0), QString());
  EXPECT_EQ(obstacle("cmdSave"), u"it is hidden"_s);
  control<Image>("cmdTop", 0).enabled = false;
  EXPECT_EQ(obstacle("cmdTop", 0), u"it is not enabled"_s);
  control<Frame>("framEdit").rect = Rect{0, 0, 400, 300};
  control<Frame>("framEdit").visible = true;
  EXPECT_EQ(obstacle("cmdTop", 1), u"it is covered by cmdSave"_s);
  control<Image>("cmdTop", 1).rect = Rect{-9000, 10, 100, 100};
  EXPECT_EQ(obstacle("cmdTop", 1), u"it lies off the screen"_s);
}

TEST_F(Press, ATouchCanBeKeptFromWhatLiesThereWithASecondTap) {
  QStringList news;
  bool keeps = false;
  host.touches.changed = [&] {
    news << (host.touches.left ? u"down"_s : u"up"_s);
    return keeps && host.touches.left;
  };
  tap("cmdTop", 1);
  EXPECT_EQ(take().size(), 3);
  EXPECT_EQ(std::exchange(news, {}), (QStringList{u"down"_s, u"up"_s}));
  keeps = true;
  finger.press(gridWidget(), QPoint(50, 200));
  keeps = false;
  finger.move(QPoint(0, -150));
  finger.release();
  tap("cmdTop", 1);
  EXPECT_EQ(take(), QStringList()) << "neither the touch nor the tap that follows at once";
  EXPECT_EQ(std::exchange(news, {}), (QStringList{u"down"_s, u"up"_s, u"down"_s, u"up"_s}));
  settle(QApplication::doubleClickInterval() + 20);
  tap("cmdTop", 1);
  EXPECT_EQ(take().size(), 3);
}

}  // namespace
}  // namespace korvane

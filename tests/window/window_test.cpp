// The window mirrors the form, and the form the window.
#include <QLineEdit>

#include "tests/window/small_console.h"

namespace korvane {
namespace {

class Mirrored : public SmallConsole {};

TEST_F(Mirrored, AControlThatIsLoadedLaterHasAWidgetOfItsOwn) {
  EXPECT_EQ(widget("cmdTop", 1).accessibleName(), u"Albums"_s);
  Control* further = form.load(u"cmdTop", 7);
  ASSERT_NE(host.view(form)->widget(*further), nullptr);
  EXPECT_FALSE(host.view(form)->widget(*further)->isVisible());
  further->visible = true;
  EXPECT_TRUE(host.view(form)->widget(*further)->isVisible());
}

TEST_F(Mirrored, OneScaleAndAnchorsFillAnyScreen) {
  const struct {
    int width, height;
    QRect grid, slider;
  } sizes[] = {
      {1280, 768, {10, 120, 600, 400}, {10, 600, 648, 72}},
      {640, 384, {5, 60, 300, 200}, {5, 300, 324, 36}},
      {1280, 800, {10, 120, 600, 432}, {10, 632, 648, 72}},
      {2560, 1536, {20, 240, 1200, 800}, {20, 1200, 1296, 144}},
  };
  for (const auto& [width, height, grid, slider] : sizes) {
    SCOPED_TRACE(width);
    host.stage().resize(width, height);
    settle();
    EXPECT_EQ(widget("Grid", 0).geometry(), grid);
    EXPECT_EQ(widget("Slider1").geometry(), slider);
    const double scale = std::min(width / 1280.0, height / 768.0);
    EXPECT_NEAR(width - widget("framEdit").geometry().right() - 1, 180 * scale, 2)
        << "keeps to the right edge";
  }
}

TEST_F(Mirrored, PicturesFollowAndBrokenOnesStayEmpty) {
  Image& play = control<Image>("cmdTop", 0);
  const QColor empty = colourAt("cmdTop", 0);
  play.setPicture(u"MUSIC"_s, u"play"_s);
  EXPECT_EQ(colourAt("cmdTop", 0), QColor(0, 0, 255));
  play.setPicture(u"music"_s, u"SOLO"_s);
  EXPECT_EQ(colourAt("cmdTop", 0), QColor(0, 255, 0));
  for (const char* bad : {"broken", "missing", ""}) {
    play.setPicture(u"MUSIC"_s, QString::fromLatin1(bad));
    EXPECT_EQ(colourAt("cmdTop", 0), empty) << bad;
  }
  PictureArea& cover = control<PictureArea>("coverArt");
  const QColor bare = colourAt("coverArt");
  for (const QByteArray& bytes :
       {QByteArray("\xff\xd8\xff\xe0 torn"), QByteArray(), QByteArray(9, '\0')}) {
    cover.picture = Picture{{}, {}, std::make_shared<QByteArray>(bytes)};
    EXPECT_EQ(colourAt("coverArt"), bare) << bytes.size();
  }
  cover.picture = Picture{{}, {}, std::make_shared<QByteArray>(square("#ff00ff"))};
  EXPECT_EQ(colourAt("coverArt"), QColor(255, 0, 255));
}

TEST_F(Mirrored, TheBackgroundFillsTheWholeForm) {
  form.picture = Picture{u"MUSIC"_s, u"solo"_s, nullptr};
  host.stage().resize(1000, 768);
  settle();
  const QImage shown = host.stage().grab().toImage();
  for (const QPoint corner : {QPoint(0, 0), QPoint(999, 0), QPoint(0, 767), QPoint(999, 767)})
    EXPECT_EQ(shown.pixelColor(corner), QColor(0, 255, 0));
}

TEST_F(Mirrored, TypedTextAndItsCaretGoBothWays) {
  TextBox& name = control<TextBox>("txtName");
  auto* line = widget("txtName").findChild<QLineEdit*>();
  name.text = u"Abba"_s;
  name.selStart = 2;
  EXPECT_EQ(line->text(), u"Abba"_s);
  EXPECT_EQ(line->cursorPosition(), 2);
  form.setFocus(&name);
  finger.key(Qt::Key_X, Qt::NoModifier, u"x"_s);
  EXPECT_EQ(name.text(), u"Abxba"_s);
  EXPECT_EQ(name.selStart(), 3);
  name.passwordChar = u"*"_s;
  EXPECT_NE(line->displayText(), name.text());
}

TEST_F(Mirrored, KeysReachTheFormByTheirClassicCodes) {
  QStringList keys;
  form.on(Event::KeyDown, [&](Control&, const Event& e) { keys << u"d%1"_s.arg(e.key); });
  form.on(Event::KeyPress, [&](Control&, const Event& e) { keys << u"p"_s + e.text; });
  host.stage().setFocus();
  finger.key(Qt::Key_Down, Qt::NoModifier, {});
  finger.key(Qt::Key_A, Qt::NoModifier, u"a"_s);
  finger.key(Qt::Key_Delete, Qt::NoModifier, {});
  finger.key(Qt::Key_5, Qt::KeypadModifier, u"5"_s);
  finger.key(Qt::Key_Minus, Qt::NoModifier, u"-"_s);
  EXPECT_EQ(keys, (QStringList{u"d40"_s, u"d65"_s, u"pa"_s, u"d46"_s, u"d101"_s, u"p5"_s, u"d189"_s,
                               u"p-"_s}));
}

TEST_F(Mirrored, TimersTickOnlyWhileEnabled) {
  Timer& ticker = control<Timer>("Ticker");
  settle(30);
  EXPECT_EQ(take(), QStringList());
  ticker.interval = 10;
  ticker.enabled = true;
  settle(100);
  EXPECT_GE(take().count(u"Ticker tick"_s), 3);
  ticker.enabled = false;
  take();
  settle(40);
  EXPECT_EQ(take(), QStringList());
}

TEST_F(Mirrored, AListAsksForNoMoreThanItShows) {
  const auto rows = std::make_shared<CountedRows>(1'000'000);
  Grid& grid = control<Grid>("Grid", 0);
  grid.setRows(rows);
  gridWidget().grab();
  const int first = rows->asked;
  EXPECT_LE(first, 12);
  rows->asked = 0;
  grid.SetActiveCell(1, 999'999);
  gridWidget().grab();
  EXPECT_LE(rows->asked, first + 2);
  EXPECT_GT(grid.topRow(), 999'900);
  EXPECT_TRUE(gridWidget().rect().contains(gridWidget().rowRect(999'999)));
}

TEST_F(Mirrored, AListFollowsItsActiveAndTopRow) {
  Grid& grid = control<Grid>("Grid", 0);
  grid.setRows(std::make_shared<CountedRows>(500));
  grid.topRow = 200;
  EXPECT_EQ(gridWidget().rowRect(200).top(), 0);
  grid.SetActiveCell(1, 205);
  EXPECT_EQ(grid.topRow(), 200) << "a row in view moves nothing";
  grid.SetActiveCell(1, 3);
  EXPECT_TRUE(gridWidget().rect().contains(gridWidget().rowRect(3)));
  grid.header = u"Abba - Arrival"_s;
  EXPECT_GE(gridWidget().rowRect(0).height(), 38);
  grid.topRow = 100;
  grid.setRows(std::make_shared<CountedRows>(2));
  EXPECT_EQ(grid.topRow(), 1);
  EXPECT_EQ(gridWidget().rowRect(1).top(), gridWidget().rowRect(0).height());
}

}  // namespace
}  // namespace korvane

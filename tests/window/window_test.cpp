// The window mirrors the form, and the form the window.
#include <QLineEdit>

#include "tests/window/small_console.h"

namespace korvane {
namespace {

class Mirrored : public SmallConsole {};

TEST_F(Mirrored, OneScaleAnchorsAndTheBackgroundFillAnyScreen) {
  form.picture = Picture{u"MUSIC"_s, u"solo"_s, nullptr};
  const struct {
    int width, height;
    QRect grid, slider;
  } sizes[] = {
      {1280, 768, {10, 120, 600, 400}, {10, 600, 648, 72}},
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
    const QImage shown = host.stage().grab().toImage();
    for (const QPoint corner : {QPoint(0, 0), QPoint(width - 1, height - 1)})
      EXPECT_EQ(shown.pixelColor(corner), QColor(0, 255, 0));
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
  for (const char* bytes : {"\xff\xd8\xff\xe0 torn", ""}) {
    cover.picture = Picture{{}, {}, std::make_shared<QByteArray>(bytes)};
    EXPECT_EQ(colourAt("coverArt"), bare) << bytes;
  }
  cover.picture = Picture{{}, {}, std::make_shared<QByteArray>(square("#ff00ff"))};
  EXPECT_TRUE(comes([&] { return colourAt("coverArt") == QColor(255, 0, 255); }));
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

// A sheet of pictures: files of the rows, a picture of the theme, one that has yet to come.
class PictureRows : public CountedRows {
 public:
  using CountedRows::CountedRows;
  std::optional<Picture> picture(int column, int row) const override {
    ++pictures;
    if (late.contains(row)) return std::nullopt;
    if (row == 4) return Picture();
    if (row == 5) return Picture{u"MUSIC"_s, u"solo"_s, nullptr};
    auto& file = files[{column, row}];
    if (!file) file = std::make_shared<QByteArray>(row == 6 ? "\xff\xd8 torn" : square("#ff00ff"));
    return Picture{{}, {}, file};
  }
  mutable std::map<std::pair<int, int>, std::shared_ptr<const QByteArray>> files;
  std::set<int> late;
  mutable int pictures = 0;
};

class Sheet : public SmallConsole {
 protected:
  explicit Sheet(int columns = 3, int ofRows = 9) {
    grid.rowHeight = 75;
    show(columns, ofRows);
  }
  void show(int columns, int ofRows) {
    rows = std::make_shared<PictureRows>(ofRows);
    grid.columns = std::vector<Grid::Column>(static_cast<size_t>(columns),
                                             {{}, 0, false, Grid::CellKind::Picture});
    grid.setRows(rows);
    grid.row = 0;
  }
  // In the cell, by shares of its width and height.
  QColor at(int column, int row, double x, double y) {
    const QRect cell = gridWidget().cellRect(column, row);
    return gridWidget().grab().toImage().pixelColor(
        cell.left() + static_cast<int>(x * cell.width()),
        cell.top() + static_cast<int>(y * cell.height()));
  }
  bool hasCome(int column, int row, double x = 0.5) {
    return comes([&] { return at(column, row, x, 0.4) == file; });
  }
  // Without a paint that somebody asks for.
  bool paintsAgain() {
    return comes([this, before = rows->pictures] { return rows->pictures > before; });
  }

  const QColor file = QColor(255, 0, 255), theme = QColor(0, 255, 0);
  Grid& grid = control<Grid>("Grid", 0);
  std::shared_ptr<PictureRows> rows;
};

TEST_F(Sheet, ACellIsQuietUntilItsPictureIsDrawnOrHasCome) {
  rows->late = {2};
  const QColor quiet = at(1, 1, 0.5, 0.4);
  EXPECT_NE(quiet, file) << "nothing is decoded while the list is painted";
  EXPECT_TRUE(paintsAgain());
  EXPECT_TRUE(hasCome(1, 1) && hasCome(3, 1));
  EXPECT_NE(at(1, 1, 0.5, 0.95), file) << "the text stands below";
  EXPECT_EQ(at(1, 2, 0.5, 0.4), quiet);
  rows->late.clear();
  grid.picturesCame();
  EXPECT_TRUE(paintsAgain());
  EXPECT_TRUE(hasCome(1, 2));

  grid.topRow = 4;
  const QColor ground = at(1, 4, 0.5, 0.2);
  EXPECT_NE(ground, quiet) << "a cell without a picture is a text";
  EXPECT_EQ(at(2, 5, 0.5, 0.4), theme);
  grid.topRow = 6;
  EXPECT_TRUE(hasCome(2, 7)) << "asked for before the one above";
  settle(20);
  EXPECT_EQ(at(2, 6, 0.5, 0.4), quiet) << "a torn file";
}

TEST_F(Sheet, AWideCellHasItsTextBesideThePictureAndAPressSaysWhichCell) {
  show(1, 9);
  EXPECT_TRUE(hasCome(1, 1, 0.17));
  EXPECT_EQ(at(1, 1, 0.17, 0.8), file);
  EXPECT_NE(at(1, 1, 0.7, 0.5), file);
  show(3, 9);
  finger.tap(gridWidget(), gridWidget().cellRect(2, 2).center());
  EXPECT_EQ(take(), QStringList{u"Grid click 2,2"_s});
}

TEST_F(Sheet, ALongOneAsksForAndDrawsWhatIsInViewAlone) {
  show(3, 100'000);
  gridWidget().grab();
  EXPECT_LE(rows->pictures, 3 * 4);
  for (int top = 1000; top <= 90'000; top += 1000) {
    grid.topRow = top;
    gridWidget().grab();
  }
  grid.topRow = 99'000;
  EXPECT_TRUE(hasCome(1, 99'000));
  EXPECT_LT(rows->files.size(), 91 * 12U);
  rows->pictures = 0;
  grid.topRow = 99'500;
  gridWidget().grab();
  EXPECT_LE(rows->pictures, 3 * 4);
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

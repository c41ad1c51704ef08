// A sheet of cells: its layout, what a finger does, what it draws.
#include "view/controls/sheet_widget.h"

#include "core/palette.h"
#include "tests/window/small_console.h"

namespace korvane {
namespace {

constexpr Colour kPlain = 9811903, kChosen = 65535;

class Cells : public CellSource {
 public:
  explicit Cells(int count) : count_(count) {
    pixels_->width = pixels_->height = 40;
    pixels_->bytesPerLine = 160;
    pixels_->bits = reinterpret_cast<const uchar*>(bits_.data());
  }
  int count() const override { return count_; }
  QString caption(int cell) const override {
    ++asked;
    return u"IMG_20260101_%1.jpg"_s.arg(cell);
  }
  std::optional<Picture> picture(int cell) const override {
    if (late.contains(cell)) return std::nullopt;
    return Picture{{}, {}, nullptr, pixels_};
  }
  Colour back(int cell) const override { return chosen.contains(cell) ? kChosen : kPlain; }

  std::set<int> late, chosen;
  mutable int asked = 0;

 private:
  int count_;
  std::vector<quint32> bits_ = std::vector<quint32>(40 * 40, 0xffff00ff);
  std::shared_ptr<Pixels> pixels_ = std::make_shared<Pixels>();
};

// 3 columns of 128 x 152 units in an area of 400 x 320.
class SheetOfCells : public SmallConsole {
 protected:
  SheetOfCells() {
    sheet.visible = true;
    for (const auto& [type, word] :
         {std::pair(Event::Click, "click"), std::pair(Event::DblClick, "dblclick"),
          std::pair(Event::Scroll, "scroll")})
      form.on(u"sheetPictures", type, [this, said = QLatin1StringView(word)](auto&, auto& event) {
        events << said + u' ' + QString::number(event.row);
      });
    show(2000);
    take();
  }
  void show(int count) {
    cells = std::make_shared<Cells>(count);
    sheet.setCells(cells);
  }
  QImage seen() { return shown.grab().toImage(); }
  bool pictured(int cell) { return seen().pixelColor(middle(cell)) == QColor(255, 0, 255); }
  QPoint middle(int cell) { return shown.cellRect(cell).center() - QPoint(0, 20); }

  Sheet& sheet = control<Sheet>("sheetPictures");
  SheetWidget& shown = dynamic_cast<SheetWidget&>(widget("sheetPictures"));
  std::shared_ptr<Cells> cells;
  QStringList events;
};

TEST_F(SheetOfCells, LieInRowsOfWhatThereIsRoomForAndKeepTheirPlace) {
  const struct {
    int count, width, columns, mostTop;
    QRect third;
  } cases[] = {
      {2000, 400, 3, 667 * 152 - 320, {256, 0, 128, 152}},
      {2000, 300, 2, 1000 * 152 - 320, {0, 152, 128, 152}},
      {7, 100, 1, 7 * 152 - 320, {0, 304, 128, 152}},
      {6, 400, 3, 0, {256, 0, 128, 152}},
      {0, 400, 3, 0, {256, 0, 128, 152}},
  };
  for (const auto& [count, width, columns, mostTop, third] : cases) {
    SCOPED_TRACE(width);
    form.move(sheet, {20, 20, width, 320});
    show(count);
    EXPECT_EQ(sheet.columns, columns);
    EXPECT_EQ(sheet.mostTop, mostTop);
    EXPECT_EQ(shown.cellRect(2), third);
  }
  form.move(sheet, {20, 20, 400, 320});
  show(2000);
  sheet.top = 152 * 30;
  EXPECT_EQ(shown.cellRect(90).topLeft(), QPoint());
  form.move(sheet, {20, 20, 300, 320});
  EXPECT_EQ(shown.cellRect(90).topLeft(), QPoint()) << "other columns, the same cells";
  sheet.top = 9'000'000;
  EXPECT_EQ(sheet.top(), sheet.mostTop);
  EXPECT_EQ(events, QStringList()) << "only a finger scrolls aloud";
}

TEST_F(SheetOfCells, AHeldCellHearsTheFingerComeAndLeave) {
  for (const auto& [type, word] : {std::pair(Event::Press, "press"), {Event::Release, "release"}})
    form.on(u"sheetPictures", type, [this, said = QLatin1StringView(word)](auto&, auto& event) {
      events << said + u' ' + QString::number(event.row);
    });
  const QStringList held{u"press 4"_s, u"release 4"_s};
  finger.tap(shown, shown.cellRect(4).center());
  EXPECT_EQ(std::exchange(events, {}), held + QStringList{u"click 4"_s});
  finger.press(shown, shown.cellRect(4).center());
  finger.move(QPoint(0, -60));
  EXPECT_EQ(std::exchange(events, {}), held + QStringList{u"scroll 0"_s}) << "it scrolls then";
  finger.release();
  finger.tap(shown, QPoint(395, 70));
  EXPECT_EQ(events, QStringList()) << "nor of a gap";
}

TEST_F(SheetOfCells, ATapAndASecondOneSayTheCellAndAGapNothing) {
  shown.bringIntoView(1500);
  finger.tap(shown, shown.cellRect(1500).center());
  EXPECT_EQ(std::exchange(events, {}), QStringList{u"click 1500"_s});
  sheet.top = 152 * 2;
  finger.tap(shown, shown.cellRect(7).center());
  EXPECT_EQ(std::exchange(events, {}), QStringList{u"click 7"_s});
  finger.doubleTap(shown, shown.cellRect(9).center());
  EXPECT_EQ(std::exchange(events, {}), (QStringList{u"click 9"_s, u"dblclick 9"_s}));
  for (const QPoint gap : {QPoint(128, 70), QPoint(60, 152), QPoint(395, 70)})
    finger.tap(shown, gap);
  show(4);
  finger.tap(shown, QPoint(200, 220));
  EXPECT_EQ(events, QStringList()) << "between cells, beside them, behind the last";
}

TEST_F(SheetOfCells, ADragScrollsCoastsIsCaughtAndTapsNothing) {
  finger.press(shown, QPoint(200, 300));
  for (int i = 0; i < 10; ++i) {
    finger.move(QPoint(0, -25));
    settle(8);
  }
  finger.release();
  const int released = sheet.top();
  EXPECT_NEAR(released, 250, 40);
  EXPECT_TRUE(comes([&] { return sheet.top() > released + 100; })) << "coasts";
  finger.tap(shown, QPoint(60, 60));
  const int caught = sheet.top();
  settle(60);
  EXPECT_EQ(sheet.top(), caught);
  EXPECT_TRUE(events.contains(u"scroll 0"_s));
  EXPECT_EQ(events.filter(u"click"_s), QStringList());
}

TEST_F(SheetOfCells, DrawsWhatIsInViewAPictureWhenItComesAndMarksTheChosen) {
  cells->late = {1};
  EXPECT_TRUE(comes([&] { return pictured(0) && pictured(5); }));
  EXPECT_FALSE(pictured(1));
  cells->asked = 0;
  seen();
  EXPECT_LE(cells->asked, 9);
  cells->late.clear();
  sheet.picturesCame();
  EXPECT_TRUE(comes([&] { return pictured(1); }));

  const QPoint ground = shown.cellRect(4).topLeft() + QPoint(64, 7);
  const QPoint tick = shown.cellRect(4).topRight() + QPoint(-31, 15);
  const QColor plain = seen().pixelColor(ground);
  cells->chosen = {4};
  sheet.cellsChanged();
  const QImage marked = seen();
  EXPECT_NE(marked.pixelColor(ground), plain);
  const auto bgr = [](const QColor& c) {
    return static_cast<Colour>(c.blue() << 16 | c.green() << 8 | c.red());
  };
  EXPECT_GE(contrast(bgr(marked.pixelColor(ground)), bgr(marked.pixelColor(tick))), 4.5);
}

}  // namespace
}  // namespace korvane

#include "core/form/form.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

constexpr InventoryRow kRows[] = {
    {"box", -1, Kind::Frame, {100, 0, 400, 200}, Left | Top | Right | Bottom, ""},
    {"inner", -1, Kind::Label, {10, 10, 100, 20}, Right | Bottom, "", "box"},
    {"key", 0, Kind::Image, {0, 0, 50, 50}, Left | Top, ""},
    {"key", 2, Kind::Image, {60, 0, 50, 50}, Right | Top, ""},
    {"list", -1, Kind::Grid, {0, 60, 90, 90}, Left | Top, ""},
    {"clock", -1, Kind::Timer, {}, Left | Top, ""},
};
constexpr Rect kDesign{0, 0, 500, 200};

TEST(Form, FindsByNameInAnyCaseAndIndex) {
  Form form(u"f"_s, kRows, kDesign);
  EXPECT_EQ(form.find(u"KEY", 2)->index, 2);
  EXPECT_EQ(form.find(u"key", 1), nullptr);
  EXPECT_EQ(form.find(u"key"), nullptr);
  EXPECT_EQ(form.upperBound(u"Key"), 2);
  EXPECT_EQ(form.load(u"key", 3)->rect(), form.find(u"key", 0)->rect());
  EXPECT_FALSE(form.find(u"key", 3)->visible());
}

TEST(Form, ControlsFollowTheEdgesTheyAreAnchoredTo) {
  Form form(u"f"_s, kRows, kDesign);
  Rect moved = form.find(u"key", 2)->rect();
  moved.top += 7;  // somebody has moved it; growing keeps that
  form.find(u"key", 2)->rect = moved;
  form.resize(600, 260);
  EXPECT_EQ(form.find(u"box")->rect(), (Rect{100, 0, 500, 260}));
  EXPECT_EQ(form.find(u"inner")->rect(), (Rect{110, 70, 100, 20}));
  EXPECT_EQ(form.find(u"key", 0)->rect(), (Rect{0, 0, 50, 50}));
  EXPECT_EQ(form.find(u"key", 2)->rect(), (Rect{160, 7, 50, 50}));
  form.resize(100, 100);
  EXPECT_EQ(form.find(u"box")->rect(), (Rect{100, 0, 400, 200})) << "never under the design";
}

TEST(Form, OnlyWhatCanBePressedFires) {
  Form form(u"f"_s, kRows, kDesign);
  int heard = 0;
  form.on(u"KEY", Event::Click,
          [&](Control& control, const Event&) { heard += control.index + 1; });
  form.on(u"clock", Event::Tick, [&](Control&, const Event&) { heard += 100; });
  Control& key = *form.find(u"key", 2);
  EXPECT_TRUE(form.fire(key, {Event::Click}));
  key.enabled = false;
  EXPECT_FALSE(form.fire(key, {Event::Click}));
  key.enabled = true;
  key.visible = false;
  EXPECT_FALSE(form.fire(key, {Event::Click}));
  EXPECT_TRUE(form.fire(*form.find(u"clock"), {Event::Tick}));
  EXPECT_EQ(heard, 103);
}

TEST(Grid, KeepsItsActiveRowInsideItsRows) {
  Form form(u"f"_s, kRows, kDesign);
  auto& grid = dynamic_cast<Grid&>(*form.find(u"list"));
  EXPECT_EQ(grid.maxRows(), 0);
  grid.SetActiveCell(1, 4);
  grid.setRows({{{u"Ada"_s}, false, false}, {{u"Bo"_s}, false, false}, {{u"bob"_s}, false, false}});
  grid.SetActiveCell(1, 9);
  EXPECT_EQ(grid.row(), 3);
  grid.deleteRow(3);
  EXPECT_EQ(grid.row(), 2);
  EXPECT_EQ(grid.SearchCol(1, 1, u"BO"_s), 2);
  EXPECT_EQ(grid.SearchCol(1, 1, u"x"_s), 0);
  EXPECT_EQ(grid.cell(7, 1), QString());
  EXPECT_EQ(grid.cell(1, 0), QString());
  grid.clear();
  EXPECT_EQ(grid.row(), 0);
}

TEST(MainInventory, FitsTheDesignSurfaceAndAFinger) {
  Form form(u"frmMain"_s, mainInventory());
  for (const auto& control : form.controls()) {
    const Rect r = control->rect();
    const bool laidByItsOwner = r == Rect{};  // as the keys of a keyboard
    if (control->kind == Kind::Timer || r.left < 0 || laidByItsOwner) continue;
    const Rect box = control->container ? control->container->rect() : Rect{0, 0, 1280, 768};
    const QString name = control->name + QString::number(control->index);
    if (control->name != "MappointControl"_L1) {
      EXPECT_TRUE(r.right() <= box.width && r.bottom() <= box.height) << name.toStdString();
    }
    if (control->kind == Kind::Image || control->kind == Kind::Button ||
        control->kind == Kind::Slider) {
      EXPECT_TRUE(r.width >= 72 && r.height >= 72) << name.toStdString();
    }
    EXPECT_FALSE(control->kind == Kind::Image && control->spokenName.isEmpty() &&
                 control->visible())
        << name.toStdString();
  }
}

}  // namespace
}  // namespace korvane

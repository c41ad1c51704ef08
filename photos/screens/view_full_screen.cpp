#include "photos/screens/view_full_screen.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr unsigned All = Left | Top | Right | Bottom;
constexpr int kTools = 7, kToolWidth = 146, kToolGap = 8, kToolHeight = 112;
constexpr int kToolsMargin = 16;  // to the lower edge
constexpr Rect kToolsPlace{68, 624, 1144, kToolHeight + 2 * kToolGap};
constexpr Rect kMenuPlace{68, 168, 300, 440};

constexpr InventoryRow in(const char* container, const char* name, int index, Kind kind, Rect rect,
                          const char* spoken, Look look) {
  return {name, index, kind, rect, TL, spoken, container, true, look};
}

// From the left, in the order in which a hand looks for them.
constexpr InventoryRow tool(int place, int index, const char* caption, Look look = {}) {
  const int last = kToolsPlace.width - (kTools - 1) * (kToolWidth + kToolGap) - 2 * kToolGap;
  look.caption = caption;
  look.text = 26;
  return in("tools", "cmdTools", index, Kind::Button,
            {kToolGap + place * (kToolWidth + kToolGap), kToolGap,
             place == kTools - 1 ? last : kToolWidth, kToolHeight},
            caption, look);
}

constexpr InventoryRow entry(int place, const char* name, const char* caption) {
  return in("mnuOptions", name, -1, Kind::Button, {8, 8 + place * 86, 284, 80}, caption,
            {.caption = caption});
}

constexpr InventoryRow hidden(InventoryRow row) {
  row.visible = false;
  return row;
}

constexpr InventoryRow kRows[] = {
    {"imageframe", -1, Kind::Frame, kSurface, All, "Picture"},
    {"picTransition", -1, Kind::PictureArea, kSurface, All, "Slide show", "imageframe"},
    hidden(
        {"framPosition", -1, Kind::Frame, {24, 16, 1232, 72}, Left | Top | Right, "Picture shown"}),
    {"lblPosition",
     -1,
     Kind::Label,
     {16, 12, 1200, 48},
     All,
     "Name and position",
     "framPosition",
     true,
     {.text = 30, .align = 0}},
    hidden({"mnuOptions", -1, Kind::Frame, kMenuPlace, Left | Bottom, "Options"}),
    entry(0, "mnuNext", "Next"),
    entry(1, "mnuPrevous", "Previous"),
    entry(2, "mnuPauses", "Pause"),
    entry(3, "mnuPlay", "Play"),
    entry(4, "mnuExit", "Exit"),
    hidden({"tools", -1, Kind::Frame, kToolsPlace, Left | Bottom, "Controls"}),
    tool(0, 1, "Previous"),
    tool(1, 3, "Play"),
    tool(2, 2, "Stop"),
    tool(3, 0, "Next"),
    tool(4, 5, "Hide"),
    tool(5, 4, "Exit", {.cancels = true}),
    tool(6, 6, "Controls on", {.tip = "Right Click for extra controls"}),
    {"pictimer", -1, Kind::Timer, {}, TL, ""},
};

}  // namespace

ViewFullScreenForm::ViewFullScreenForm(const Uses& uses)
    : Dialog(uses.dialog, u"frmViewFullScreen"_s, kRows),
      uses_(uses),
      panel_(form_),
      area_({*panel_.picTransition, *panel_.pictimer, uses.pictures, uses.settings, uses.system,
             uses.log}) {
  connect();
}

void ViewFullScreenForm::connect() {
  area_.changed = [this] { showPosition(); };
  onClick(u"cmdTools", [this](int i) { cmdTools_Click(i); });
  onClick(u"mnuNext", [this](int) { step(1); });
  onClick(u"mnuPrevous", [this](int) { step(-1); });
  onClick(u"mnuPauses", [this](int) { play(false); });
  onClick(u"mnuPlay", [this](int) { play(true); });
  onClick(u"mnuExit", [this](int) { leave(); });
  form_.on(u"pictimer", Event::Tick, [this](auto&, auto&) { area_.PicTimer_Timer(); });
  form_.on(u"picTransition", Event::Click,
           [this](auto&, const Event& event) { picTransition_Click(event.x, event.y); });
  form_.on(u"picTransition", Event::Swipe,
           [this](auto&, const Event& event) { step(event.column > 0 ? 1 : -1); });
}

void ViewFullScreenForm::open(int interval, const ShowArea::Frame& seen) {
  uses_.awake.need(this, true);
  run([&] { Form_Load(interval, seen); });
  uses_.awake.need(this, false);
}

void ViewFullScreenForm::Form_Load(int interval, const ShowArea::Frame& seen) {
  form_.scale = uses_.main.scale;
  form_.resize(uses_.main.width(), uses_.main.height());
  panel_.cmdTools[Controls]->tag = u"OFF"_s;
  Colours black;
  black.back = 0;
  panel_.picTransition->colours = black;
  panel_.picTransition->rounded = false;
  panel_.picTransition->gestures = true;
  panel_.pictimer->interval = interval;
  area_.take(seen);
  play(true);
  showPosition();
}

bool ViewFullScreenForm::toolMode() const {
  return panel_.cmdTools[Controls]->tag() == "ON"_L1;
}

void ViewFullScreenForm::cmdTools_Click(int index) {
  switch (static_cast<Tool>(index)) {
    case Next:
      return step(1);
    case Previous:
      return step(-1);
    case Stop:
      return play(false);
    case Play:
      return play(true);
    case Exit:
      return leave();
    case Hide:
      panel_.tools->visible = panel_.mnuOptions->visible = false;
      return;
    case Controls:
      return toggleToolMode();
  }
}

void ViewFullScreenForm::step(int by) {
  area_.step(by);
  play(true);
}

void ViewFullScreenForm::play(bool on) {
  area_.run(on);
  panel_.mnuPlay->marked = on;
  panel_.mnuPauses->marked = !on;
}

// The caption says what is the case.
void ViewFullScreenForm::toggleToolMode() {
  const bool on = !toolMode();
  panel_.cmdTools[Controls]->tag = on ? u"ON"_s : u"OFF"_s;
  panel_.cmdTools[Controls]->caption = on ? u"Controls on"_s : u"Controls off"_s;
  panel_.framPosition->visible = on;
  if (!on) panel_.mnuOptions->visible = false;
}

// Under the finger, or in tool mode at the lower edge, with the menu above it. Under the finger it
// may leave the lower edge, and never the right one.
void ViewFullScreenForm::picTransition_Click(int x, int y) {
  Rect place = panel_.tools->rect();
  if (toolMode()) {
    place.left = (form_.width() - place.width) / 2;
    place.top = form_.height() - place.height - kToolsMargin;
  } else {
    place.left = std::min(x, form_.width() - place.width);
    place.top = y;
  }
  form_.move(*panel_.tools, place);
  panel_.tools->visible = true;
  panel_.mnuOptions->visible = toolMode();
}

void ViewFullScreenForm::showPosition() {
  const ShowArea::Frame& frame = area_.seen();
  const PictureFiles& files = uses_.pictures.rsFiles;
  const PhotoFile* first = files.row(frame.first);
  const PhotoFile* last = files.row(frame.last);
  if (!first || !last) return;
  const bool two = frame.first != frame.last;
  const QString names = two ? first->FileName + u", "_s + last->FileName : first->FileName;
  const QString at = two ? u"%1 and %2"_s.arg(frame.first + 1).arg(frame.last + 1)
                         : QString::number(frame.first + 1);
  panel_.lblPosition->caption =
      u"%1   %2 of %3"_s.arg(names, at, QString::number(files.RecordCount()));
}

}  // namespace korvane

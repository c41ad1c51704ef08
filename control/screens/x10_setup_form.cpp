#include "control/screens/x10_setup_form.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;

constexpr Look kTitle = {.caption = "X10 Setup", .text = 44, .bold = true};
constexpr Look kList = {.colours = "X10GRIDBACK/MUSICGridSelected/MUSICGridTopLine"};
constexpr Look kScroll = {.colours = "plslider", .vertical = true};
constexpr Look kHint = {
    .caption =
        "Touch a description to change it; NO takes the lamp off the page. Touch DIM to "
        "say whether it can.",
    .text = 28,
    .wraps = true};
constexpr Look kCancel = {.caption = "Cancel changes", .cancels = true};
constexpr Look kSave = {.caption = "Save and Quit", .accent = true};

constexpr InventoryRow kX10Setup[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 64}, TL, "X10 Setup", "", true, kTitle},
    {"ss", -1, Kind::Grid, {24, 88, 1136, 544}, TL, "Lamps", "", true, kList},
    {"VscrollAllSongs", -1, Kind::Slider, {1168, 88, 88, 544}, TL, "Scroll", "", true, kScroll},
    {"lblHint", -1, Kind::Label, {24, 640, 600, 112}, TL, "", "", true, kHint},
    {"cmd", 0, Kind::Button, {648, 648, 296, 96}, TL, "Cancel changes", "", true, kCancel},
    {"cmd", 1, Kind::Button, {960, 648, 296, 96}, TL, "Save and Quit", "", true, kSave},
};

QString mark(bool on) {
  return on ? u"✓"_s : QString();
}

}  // namespace

X10SetupForm::X10SetupForm(const DialogUses& dialogs, Settings& settings, const AppState& state,
                           Lamps& lamps, std::function<void()> saved)
    : Dialog(dialogs, u"frmX10Setup"_s, kX10Setup),
      settings_(settings),
      state_(state),
      lamps_(lamps),
      saved_(std::move(saved)),
      panel_(form_) {
  onClick(u"cmd", [this](int index) { cmd_Click(index); });
  form_.on(u"ss", Event::Click,
           [this](Control&, const Event& event) { ss_Click(event.column, event.row); });
  form_.on(u"ss", Event::ButtonClicked,
           [this](Control&, const Event& event) { ss_ButtonClicked(event.column, event.row); });
  form_.on(u"VscrollAllSongs", Event::Change, [this](auto&, auto&) {
    select(static_cast<int>(std::lround(panel_.VscrollAllSongs->value())));
  });
}

void X10SetupForm::open() {
  run([this] { Form_Load(); });
}

void X10SetupForm::Form_Load() {
  const int units = settings_.flag(key::LightTiles) ? Lamps::kMostUnits : Lamps::kUnits;
  std::vector<RowTable::Row> rows;
  for (int unit = 1; unit <= units; ++unit) {
    const QString name = settings_.readSetting(u"X10", lampNameKey(unit));
    const bool dims = lampKeySet(settings_.readSetting(u"X10", lampDimKey(unit)));
    rows.push_back(
        {{u"A%1"_s.arg(unit), lampKeySet(name) ? name : QString(), mark(dims), u"ON"_s, u"OFF"_s}});
  }
  constexpr auto kPressed = Grid::CellKind::Button;
  panel_.ss->columns = {{u"X10 Address"_s, 20},
                        {u"Description"_s, 44},
                        {u"DIM"_s, 10},
                        {u"Test"_s, 13, false, kPressed},
                        {QString(), 13, false, kPressed}};
  panel_.ss->fontSize = state_.gGridFontSize;
  panel_.ss->setRows(std::move(rows));
  panel_.VscrollAllSongs->minimum = 1;
  panel_.VscrollAllSongs->maximum = units;
  select(1);
}

void X10SetupForm::select(int row) {
  if (row < 1 || row > panel_.ss->maxRows()) return;
  panel_.ss->SetActiveCell(Description, row);
  panel_.VscrollAllSongs->value = row;
}

void X10SetupForm::ss_Click(int column, int row) {
  if (row < 1 || row > panel_.ss->maxRows()) return;
  select(row);
  Grid& list = *panel_.ss;
  if (column == Dim) list.setCell(Dim, row, mark(list.cell(Dim, row).isEmpty()));
  if (column != Description) return;
  const QString typed = dialog_.messages.ask(u"Description of A%1"_s.arg(row)).trimmed();
  if (typed.isEmpty()) return;
  list.setCell(Description, row, typed.toUpper() == "NO"_L1 ? QString() : typed);
}

void X10SetupForm::ss_ButtonClicked(int column, int row) {
  if (row < 1 || row > panel_.ss->maxRows()) return;
  select(row);
  if (!lamps_.connected()) lamps_.connect();
  lamps_.send(column == On ? LampCommand::On : LampCommand::Off, row);
}

void X10SetupForm::cmd_Click(int index) {
  if (index == 1 && !save()) return;
  leave();
  if (index == 1) saved_();
}

// Only what differs is written: each write replaces the file.
bool X10SetupForm::save() {
  const Grid& list = *panel_.ss;
  const auto put = [this](const QString& name, const QString& value) {
    QString error;
    if (settings_.readSetting(u"X10", name) == value ||
        settings_.writeSetting(u"X10", name, value, &error))
      return true;
    dialog_.messages.say(error);
    return false;
  };
  for (int row = 1; row <= list.maxRows(); ++row) {
    const QString name = list.cell(Description, row);
    const bool dims = !list.cell(Dim, row).isEmpty();
    if (!put(lampNameKey(row), name.isEmpty() ? u"NO"_s : name)) return false;
    if (lampKeySet(settings_.readSetting(u"X10", lampDimKey(row))) != dims &&
        !put(lampDimKey(row), dims ? u"YES"_s : u"NO"_s))
      return false;
  }
  return true;
}

}  // namespace korvane

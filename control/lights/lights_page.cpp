#include "control/lights/lights_page.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kRepeatMs = 200;   // between the steps of a held button
constexpr int kHoldTicks = 2;    // of these until a held tile begins to dim
constexpr int kRemoveTicks = 5;  //   and until a held scene is taken away
constexpr Rect kTallTiles{12, 12, 860, 584}, kTiles{12, 12, 860, 496};
constexpr int kSceneColumns = 5, kSceneWidth = 216, kSceneHeight = 84, kSceneGap = 8;
constexpr int kScenesLow = 604;  // the top of the last row of scenes
constexpr int kLongestName = 30;

}  // namespace

LightsPage::LightsPage(Uses uses) : uses_(uses), panel_(uses.form), scenes_(uses.settings) {
  panel_.shtX10->cellWidth = 286;
  panel_.shtX10->cellHeight = 164;
  uses_.lamps.changed = [this] { levelsChanged(); };
}

void LightsPage::open() {
  const bool asTiles = uses_.settings.flag(key::LightTiles);
  uses_.lamps.read(asTiles);
  panel_.shtX10->visible = asTiles;
  panel_.ssX10->visible = !asTiles;
  panel_.lblLamp->visible = asTiles;
  if (asTiles)
    fillTiles();
  else
    fillRows();
  placeScenes();
  uses_.lamps.connect();
  showLink();
  dressPage();
  panel_.framex10->visible = true;
}

void LightsPage::close() {
  uses_.paging.endRepeat();
  held_ = false;
  panel_.framex10->visible = false;
}

void LightsPage::fillRows() {
  Grid& units = *panel_.ssX10;
  std::vector<RowTable::Row> rows;
  for (const Lamp& lamp : uses_.lamps.all())
    rows.push_back({{lamp.description, lamp.dims ? u"YES"_s : u"NO"_s,
                     levelText(uses_.lamps.level(lamp.unit))},
                    false,
                    false});
  units.columns = std::vector<Grid::Column>{
      {u"Light"_s, 75}, {QString(), 0, true}, {u"Level"_s, 25, !uses_.lamps.answers()}};
  units.fontSize = uses_.state.gGridFontSize;
  units.rowHeight = uses_.state.gGridHeight;
  units.setRows(std::move(rows));
  ssX10_RowChange(units.maxRows() > 0 ? units.row() : 0);
}

void LightsPage::fillTiles() {
  const int kept = cells_ ? cells_->chosen : 0;
  cells_ = std::make_shared<LampCells>(uses_.lamps, uses_.palette.fore(u"X10GRIDBACK"),
                                       uses_.palette.back(u"X10ON"));
  cells_->chosen = std::min(kept, cells_->count() - 1);
  panel_.shtX10->setCells(cells_);
  panel_.shtX10->emptyText = panel_.ssX10->emptyText();
  showChosen();
}

// "All off", the scenes and "Keep as scene" side by side, in one row or two below the tiles.
void LightsPage::placeScenes() {
  scenes_.read();
  const std::vector<Scene>& scenes = scenes_.all();
  const int used = static_cast<int>(scenes.size()) + 2;
  const int rows = (used + kSceneColumns - 1) / kSceneColumns;
  uses_.form.moveDesign(*panel_.shtX10, rows > 1 ? kTiles : kTallTiles);
  int place = 0;
  for (size_t i = 0; i < panel_.cmdScene.size(); ++i) {
    Button& button = *panel_.cmdScene[i];
    const bool owners = i >= 1 && i <= static_cast<size_t>(Scenes::kMost);
    button.visible = tiles() && (!owners || i <= scenes.size());
    if (owners && i <= scenes.size()) button.caption = scenes[i - 1].name;
    if (owners && i > scenes.size()) continue;
    const int row = place / kSceneColumns, column = place % kSceneColumns;
    ++place;
    uses_.form.moveDesign(
        button, {12 + column * (kSceneWidth + kSceneGap),
                 kScenesLow - (rows - 1 - row) * (kSceneHeight + 4), kSceneWidth, kSceneHeight});
  }
}

void LightsPage::dressPage() {
  for (Control* control :
       std::initializer_list<Control*>{panel_.ssX10, panel_.framex10, panel_.lblX10})
    dressControl(*control, uses_.palette);
  for (Button* button : panel_.cmdX10) dressControl(*button, uses_.palette);
  dressControl(*panel_.shtX10, uses_.palette);
}

void LightsPage::showLink() {
  panel_.lblX10->caption =
      uses_.lamps.connected() ? u"X10 listener Active"_s : u"X10 listener DISCONNECTED"_s;
  if (uses_.lamps.outOfReach())
    panel_.lblX10->caption =
        u"The lamps cannot be reached; what is pressed now happens when they are back."_s;
}

// A listener that answers is also seen to come and go; of any other that is told by the next press.
void LightsPage::levelsChanged() {
  if (!isOpen()) return;
  if (uses_.lamps.answers()) showLink();
  if (tiles()) return panel_.shtX10->cellsChanged();
  const std::vector<Lamp>& lamps = uses_.lamps.all();
  for (size_t row = 0; row < lamps.size(); ++row)
    panel_.ssX10->setCell(3, static_cast<int>(row) + 1,
                          levelText(uses_.lamps.level(lamps[row].unit)));
}

void LightsPage::ssX10_RowChange(int row) {
  if (row < 0) return;
  const std::vector<Lamp>& lamps = uses_.lamps.all();
  const auto at = static_cast<size_t>(row);
  canDim(at >= 1 && at <= lamps.size() && lamps[at - 1].dims);
}

void LightsPage::canDim(bool dims) {
  for (const LampCommand command : {LampCommand::Dim, LampCommand::Bright})
    panel_.cmdX10[at(command)]->enabled = dims;
}

void LightsPage::choose(int cell) {
  cells_->chosen = cell;
  panel_.shtX10->cellsChanged();
  showChosen();
}

// Above the buttons stands the lamp that they act on.
void LightsPage::showChosen() {
  const Lamp* lamp = chosen();
  panel_.lblLamp->caption = lamp ? lamp->description : QString();
  canDim(lamp && lamp->dims);
}

const Lamp* LightsPage::chosen() const {
  const std::vector<Lamp>& lamps = uses_.lamps.all();
  const int place = tiles() ? cells_->chosen : panel_.ssX10->row() - 1;
  const bool there = place >= 0 && static_cast<size_t>(place) < lamps.size();
  return there ? &lamps[static_cast<size_t>(place)] : nullptr;
}

void LightsPage::press(LampCommand command) {
  showLink();
  if (const Lamp* lamp = chosen()) uses_.lamps.send(command, lamp->unit);
}

void LightsPage::cmdX10_Press(int index) {
  if (static_cast<LampCommand>(index) != LampCommand::Dim || !chosen()) return;
  const int unit = chosen()->unit;
  uses_.paging.repeat(kRepeatMs, [this, unit] {
    dimAgain(unit, LampCommand::Dim);
    return true;
  });
  press(LampCommand::Dim);
  uses_.pump.doEvents();
}

void LightsPage::cmdX10_Release(int index) {
  if (static_cast<LampCommand>(index) == LampCommand::Dim) uses_.paging.endRepeat();
}

void LightsPage::cmdX10_Click(int index) {
  const auto command = static_cast<LampCommand>(index);
  if (command != LampCommand::Dim) press(command);
}

// Sending may yield: the finger may have left meanwhile, or not.
void LightsPage::dimAgain(int unit, LampCommand command) {
  if (!uses_.paging.repeats()) return;
  showLink();
  uses_.lamps.send(command, unit);
}

void LightsPage::shtX10_Press(int cell) {
  held_ = false;
  ticks_ = 0;
  const std::vector<Lamp>& lamps = uses_.lamps.all();
  if (cell < 0 || static_cast<size_t>(cell) >= lamps.size()) return;
  const Lamp lamp = lamps[static_cast<size_t>(cell)];
  if (!lamp.dims) return;
  const int level = uses_.lamps.level(lamp.unit).value_or(100);
  const bool wasDimmed = turned_.value(lamp.unit, LampCommand::Bright) == LampCommand::Dim;
  const bool brighter = level == 0 || (level < 100 && wasDimmed);
  const LampCommand command = brighter ? LampCommand::Bright : LampCommand::Dim;
  uses_.paging.repeat(kRepeatMs, [this, lamp, command, cell] {
    if (++ticks_ < kHoldTicks) return true;
    if (!held_) {
      choose(cell);
      turned_[lamp.unit] = command;
    }
    held_ = true;
    dimAgain(lamp.unit, command);
    return true;
  });
}

void LightsPage::shtX10_Release() {
  uses_.paging.endRepeat();
}

void LightsPage::shtX10_Click(int cell) {
  const std::vector<Lamp>& lamps = uses_.lamps.all();
  if (std::exchange(held_, false) || cell < 0 || static_cast<size_t>(cell) >= lamps.size()) return;
  choose(cell);
  const Lamp& lamp = lamps[static_cast<size_t>(cell)];
  press(uses_.lamps.level(lamp.unit).value_or(0) > 0 ? LampCommand::Off : LampCommand::On);
}

void LightsPage::cmdScene_Press(int index) {
  held_ = false;
  ticks_ = 0;
  if (index < 1 || index > Scenes::kMost) return;
  uses_.paging.repeat(kRepeatMs, [this, index] {
    if (++ticks_ < kRemoveTicks) return true;
    held_ = true;
    uses_.paging.endRepeat();
    removeScene(static_cast<size_t>(index) - 1);
    return false;
  });
}

void LightsPage::cmdScene_Release() {
  uses_.paging.endRepeat();
}

void LightsPage::cmdScene_Click(int index) {
  if (std::exchange(held_, false)) return;
  if (index > Scenes::kMost) return keepScene();
  showLink();
  if (index == 0) return allOff();
  const auto place = static_cast<size_t>(index) - 1;
  if (place < scenes_.all().size()) play(scenes_.all()[place]);
}

// What is sent may yield, and the lamps be read again meanwhile.
void LightsPage::allOff() {
  const std::vector<Lamp> lamps = uses_.lamps.all();
  for (const Lamp& lamp : lamps) uses_.lamps.send(LampCommand::Off, lamp.unit);
}

void LightsPage::play(const Scene& scene) {
  const std::map<int, int> levels = scene.levels;
  for (const auto& [unit, percent] : levels) uses_.lamps.set(unit, percent);
}

void LightsPage::keepScene() {
  Scene scene;
  for (const Lamp& lamp : uses_.lamps.all())
    if (const std::optional<int> level = uses_.lamps.level(lamp.unit))
      scene.levels[lamp.unit] = *level;
  if (scene.levels.empty()) {
    uses_.messages.say(u"Nothing is known of the lamps yet, so there is no scene to keep."_s);
    return;
  }
  scene.name = uses_.messages.ask(u"Name of the scene"_s).trimmed().left(kLongestName);
  if (scene.name.isEmpty()) return;
  if (!scenes_.room(scene.name)) {
    uses_.messages.say(
        u"There are %1 scenes already. Hold one of them to take it away."_s.arg(Scenes::kMost));
    return;
  }
  QString error;
  if (!scenes_.keep(scene, &error)) uses_.messages.say(error);
  placeScenes();
}

// The question may stand for long; the scene is a copy of its own.
void LightsPage::removeScene(size_t place) {
  if (place >= scenes_.all().size()) return;
  const Scene scene = scenes_.all()[place];
  if (!uses_.messages.confirm(u"Take the scene %1 away?"_s.arg(scene.name))) return;
  QString error;
  if (!scenes_.remove(scene, &error)) uses_.messages.say(error);
  placeScenes();
}

}  // namespace korvane

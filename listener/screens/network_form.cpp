#include "listener/screens/network_form.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;

constexpr Look kTitle = {.caption = "Network", .text = 44, .bold = true};
constexpr Look kList = {.colours = "MUSICGRID/MUSICGridSelected/MUSICGRID"};
constexpr Look kScroll = {.colours = "plslider", .vertical = true};
constexpr Look kEnable = {.caption = "Enable", .tip = "Enable highlighted Listener"};
constexpr Look kDisable = {.caption = "Disable", .tip = "Disable highlighted Listener"};
constexpr Look kDone = {.caption = "Done", .accent = true};

constexpr InventoryRow kNetwork[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 64}, TL, "Network", "", true, kTitle},
    {"Grid", -1, Kind::Grid, {24, 88, 1136, 544}, TL, "Services of the network", "", true, kList},
    {"VscrollAllSongs", -1, Kind::Slider, {1168, 88, 88, 544}, TL, "Scroll", "", true, kScroll},
    {"cmdAble", 0, Kind::Button, {24, 648, 296, 96}, TL, "Enable it", "", true, kEnable},
    {"cmdAble", 1, Kind::Button, {336, 648, 296, 96}, TL, "Disable it", "", true, kDisable},
    {"cmdExpand", -1, Kind::Button, {648, 648, 296, 96}, TL, "Show or hide IP and port"},
    {"cmdDone", -1, Kind::Button, {960, 648, 296, 96}, TL, "Done", "", true, kDone},
};

QString mark(bool on) {
  return on ? u"✓"_s : QString();
}

}  // namespace

NetworkForm::NetworkForm(const DialogUses& dialogs, AppState& state)
    : Dialog(dialogs, u"frmNetwork"_s, kNetwork), state_(state), panel_(form_) {
  panel_.grid->emptyText = u"The Master Listener knows of no service."_s;
  onClick(u"cmdAble", [this](int index) { cmdAble_Click(index); });
  onClick(u"cmdExpand", [this](int) { cmdExpand_Click(); });
  onClick(u"cmdDone", [this](int) { leave(); });
  form_.on(u"Grid", Event::Click, [this](Control&, const Event& event) { select(event.row); });
  form_.on(u"VscrollAllSongs", Event::Change, [this](auto&, auto&) {
    select(static_cast<int>(std::lround(panel_.VscrollAllSongs->value())));
  });
}

void NetworkForm::loadit(const QList<ListenerEntry>& list) {
  run([&] { Form_Load(list); });
}

// A choice of an X10 service is not marked here: only pressing Enable marks it.
bool NetworkForm::isOn(const ListenerEntry& entry) const {
  const auto isChoice = [&entry](const QString& name, const QString& ip, const QString& port) {
    return !ip.isEmpty() && name == entry.description && entry.isAt(ip, port);
  };
  return entry.type == "CLIENT"_L1 ||
         isChoice(state_.gMovieListenerName, state_.gMovieListenerIP, state_.gMovieListenerPort) ||
         isChoice(state_.gMusicListenerName, state_.gMusicListenerIP, state_.gMusicListenerPort);
}

void NetworkForm::Form_Load(const QList<ListenerEntry>& list) {
  expanded_ = false;
  showColumns();
  std::vector<RowTable::Row> rows;
  for (const ListenerEntry& entry : list)
    rows.push_back({{entry.description, entry.type, entry.ip, entry.port, mark(isOn(entry))}});
  panel_.grid->setRows(std::move(rows));
  panel_.VscrollAllSongs->minimum = 1;
  panel_.VscrollAllSongs->maximum = std::max(1, panel_.grid->maxRows());
  select(1);
}

// All five columns are whole in the text of the usual size, and cut in a larger one.
void NetworkForm::showColumns() {
  constexpr int kFits = 12;
  panel_.grid->fontSize = expanded_ ? std::min(state_.gGridFontSize, kFits) : state_.gGridFontSize;
  panel_.grid->columns = {{u"Description"_s, 30},
                          {u"Type"_s, 13},
                          {u"IP"_s, 25, !expanded_},
                          {u"Port"_s, 10, !expanded_},
                          {u"ON"_s, 7}};
  panel_.cmdExpand->caption = expanded_ ? u"Shrink"_s : u"Expand"_s;
}

void NetworkForm::select(int row) {
  if (row < 1 || row > panel_.grid->maxRows()) return;
  panel_.grid->SetActiveCell(Description, row);
  panel_.VscrollAllSongs->value = row;
}

void NetworkForm::cmdExpand_Click() {
  expanded_ = !expanded_;
  showColumns();
}

std::optional<NetworkForm::Choice> NetworkForm::choiceOf(const QString& type) {
  if (type == "MOVIES"_L1)
    return Choice{&state_.gMovieListenerIP, &state_.gMovieListenerPort, &state_.gMovieListenerName};
  if (type == "MUSIC"_L1)
    return Choice{&state_.gMusicListenerIP, &state_.gMusicListenerPort, &state_.gMusicListenerName};
  if (type == "X10"_L1) return Choice{&state_.gX10IP, &state_.gX10Port, &state_.gX10ListenerName};
  return std::nullopt;
}

// Clears the choice of that type where a row shows one, and every row's mark.
void NetworkForm::turnOff(const QString& type) {
  Grid& grid = *panel_.grid;
  const std::optional<Choice> choice = choiceOf(type);
  for (int row = 1; row <= grid.maxRows(); ++row) {
    if (grid.cell(Type, row) != type) continue;
    if (choice && grid.cell(On, row) == mark(true)) {
      choice->ip->clear();
      choice->port->clear();
      if (choiceCleared) choiceCleared(type);
    }
    grid.setCell(On, row, mark(false));
  }
}

void NetworkForm::cmdAble_Click(int index) {
  Grid& grid = *panel_.grid;
  const int active = grid.row();
  if (active < 1 || active > grid.maxRows()) return;
  const QString type = grid.cell(Type, active);
  if (type == "CLIENT"_L1) {
    dialog_.messages.say(u"You cannot change the state of a CLIENT."_s);
    return;
  }
  turnOff(type);
  if (index != 0) return;
  grid.setCell(On, active, mark(true));
  const std::optional<Choice> choice = choiceOf(type);
  if (!choice) return;
  *choice->ip = grid.cell(Ip, active);
  *choice->port = grid.cell(Port, active);
  *choice->name = grid.cell(Description, active);
}

}  // namespace korvane

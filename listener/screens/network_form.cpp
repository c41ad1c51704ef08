#include "listener/screens/network_form.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;

constexpr InventoryRow kNetwork[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 64}, TL, "Network"},
    {"Grid", -1, Kind::Grid, {24, 88, 900, 656}, TL, "Services of the network"},
    {"VscrollAllSongs", -1, Kind::Slider, {932, 88, 88, 656}, TL, "Scroll the services"},
    {"cmdAble", 0, Kind::Button, {1040, 88, 216, 96}, TL, "Enable highlighted Listener"},
    {"cmdAble", 1, Kind::Button, {1040, 200, 216, 96}, TL, "Disable highlighted Listener"},
    {"cmdExpand", -1, Kind::Button, {1040, 312, 216, 96}, TL, "Show or hide IP and port"},
    {"cmdDone", -1, Kind::Button, {1040, 648, 216, 96}, TL, "Done"},
};

QString mark(bool on) {
  return on ? u"✓"_s : QString();
}

}  // namespace

NetworkForm::NetworkForm(Uses uses) : uses_(uses), form_(u"frmNetwork"_s, kNetwork), panel_(form_) {
  title(*panel_.lblTitle, u"Network"_s);
  panel_.VscrollAllSongs->vertical = true;
  panel_.grid->emptyText = u"The Master Listener knows of no service."_s;
  panel_.cmdAble[0]->caption = u"Enable"_s;
  panel_.cmdAble[0]->toolTip = u"Enable highlighted Listener"_s;
  panel_.cmdAble[1]->caption = u"Disable"_s;
  panel_.cmdAble[1]->toolTip = u"Disable highlighted Listener"_s;
  panel_.cmdDone->caption = u"Done"_s;
  panel_.cmdDone->look.accent = true;
  form_.on(u"cmdAble", Event::Click,
           [this](Control& control, const Event&) { cmdAble_Click(control.index); });
  form_.on(u"cmdExpand", Event::Click, [this](auto&, auto&) { cmdExpand_Click(); });
  form_.on(u"cmdDone", Event::Click, [this](auto&, auto&) { uses_.host.hide(form_); });
  form_.on(u"Grid", Event::Click, [this](Control&, const Event& event) { select(event.row); });
  form_.on(u"VscrollAllSongs", Event::Change, [this](auto&, auto&) {
    select(static_cast<int>(std::lround(panel_.VscrollAllSongs->value())));
  });
}

void NetworkForm::loadit(const QList<ListenerEntry>& list) {
  if (form_.shown()) return;
  dress(form_, uses_.palette);
  panel_.grid->colours = uses_.palette.grid(u"MUSICGRID", u"MUSICGridSelected", u"MUSICGRID");
  panel_.grid->fontSize = uses_.state.gGridFontSize;
  panel_.VscrollAllSongs->colours = uses_.palette.slider(u"plslider");
  expanded_ = false;
  showColumns();
  Form_Load(list);
  uses_.host.showModal(form_);
}

// A choice of an X10 service is not marked here: only pressing Enable marks it.
void NetworkForm::Form_Load(const QList<ListenerEntry>& list) {
  const AppState& state = uses_.state;
  const ListenerEntry movie{
      state.gMovieListenerName, state.gMovieListenerIP, state.gMovieListenerPort, {}};
  const ListenerEntry music{
      state.gMusicListenerName, state.gMusicListenerIP, state.gMusicListenerPort, {}};
  std::vector<RowTable::Row> rows;
  for (const ListenerEntry& entry : list) {
    const auto isChoice = [&entry](const ListenerEntry& choice) {
      return !choice.ip.isEmpty() && choice.description == entry.description &&
             choice.ip == entry.ip && choice.port == entry.port;
    };
    const bool on = entry.type == "CLIENT"_L1 || isChoice(movie) || isChoice(music);
    rows.push_back({{entry.description, entry.type, entry.ip, entry.port, mark(on)}});
  }
  panel_.grid->setRows(std::move(rows));
  panel_.VscrollAllSongs->minimum = 1;
  panel_.VscrollAllSongs->maximum = std::max(1, panel_.grid->maxRows());
  select(1);
}

void NetworkForm::showColumns() {
  panel_.grid->columns = {{u"Description"_s, 30},
                          {u"Type"_s, 13},
                          {u"IP"_s, 25, !expanded_},
                          {u"Port"_s, 10, !expanded_},
                          {u"ON"_s, 6}};
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
  AppState& state = uses_.state;
  if (type == "MOVIES"_L1)
    return Choice{&state.gMovieListenerIP, &state.gMovieListenerPort, &state.gMovieListenerName};
  if (type == "MUSIC"_L1)
    return Choice{&state.gMusicListenerIP, &state.gMusicListenerPort, &state.gMusicListenerName};
  if (type == "X10"_L1) return Choice{&state.gX10IP, &state.gX10Port, &state.gX10ListenerName};
  return std::nullopt;
}

void NetworkForm::cmdAble_Click(int index) {
  Grid& grid = *panel_.grid;
  const int active = grid.row();
  if (active < 1 || active > grid.maxRows()) return;
  const QString type = grid.cell(Type, active);
  if (type == "CLIENT"_L1) {
    uses_.messages.say(u"You cannot change the state of a CLIENT."_s);
    return;
  }
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
  if (index != 0) return;
  grid.setCell(On, active, mark(true));
  if (!choice) return;
  *choice->ip = grid.cell(Ip, active);
  *choice->port = grid.cell(Port, active);
  *choice->name = grid.cell(Description, active);
}

}  // namespace korvane

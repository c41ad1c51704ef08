#include "library/screens/play_list_form.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Kind kImage = Kind::Image;

constexpr InventoryRow kPlayList[] = {
    {"lblTitle",
     -1,
     Kind::Label,
     {24, 12, 1232, 64},
     TL,
     "Playlists",
     "",
     true,
     {.caption = "Playlists", .text = 44, .bold = true}},
    {"gridPlayList",
     -1,
     Kind::Grid,
     {24, 88, 820, 656},
     TL,
     "Playlists",
     "",
     true,
     {.colours = "plgrid/plgridSelect/MUSICGridTopLine"}},
    {"VscrollAllSongs",
     -1,
     Kind::Slider,
     {852, 88, 88, 656},
     TL,
     "Scroll the playlists",
     "",
     true,
     {.colours = "plslider", .vertical = true}},
    {"cmdPlayListChoices",
     0,
     kImage,
     {964, 88, 292, 96},
     TL,
     "Use  Playlist",
     "",
     true,
     {.picture = "music/pluseplaylist", .accent = true}},
    {"cmdPlayListChoices",
     4,
     kImage,
     {964, 200, 292, 96},
     TL,
     "Edit",
     "",
     true,
     {.picture = "music/pledit"}},
    {"cmdPlayListChoices",
     5,
     kImage,
     {964, 312, 292, 96},
     TL,
     "Create",
     "",
     true,
     {.picture = "music/plcreate"}},
    {"cmdPlayListChoices",
     2,
     kImage,
     {964, 424, 292, 96},
     TL,
     "Rename",
     "",
     true,
     {.picture = "music/plrename"}},
    {"cmdPlayListChoices",
     3,
     kImage,
     {964, 536, 292, 96},
     TL,
     "Delete",
     "",
     true,
     {.picture = "music/pldelete"}},
    {"cmdPlayListChoices",
     1,
     kImage,
     {964, 648, 292, 96},
     TL,
     "Done",
     "",
     true,
     {.picture = "music/pldone", .cancels = true}},
};

}  // namespace

PlayListForm::PlayListForm(Uses uses)
    : Dialog(uses.dialog, u"frmPlayList"_s, kPlayList), uses_(uses), panel_(form_) {
  panel_.gridPlayList->columns = {{}, {QString(), 0, true}};
  panel_.gridPlayList->emptyText = u"No playlists yet. Create makes one."_s;
  onClick(u"cmdPlayListChoices", [this](int index) { cmdPlayListChoices_Click(index); });
  form_.on(u"gridPlayList", Event::Click,
           [this](Control&, const Event& event) { select(event.row); });
  form_.on(u"VscrollAllSongs", Event::Change, [this](Control&, const Event&) {
    panel_.gridPlayList->SetActiveCell(
        1, static_cast<int>(std::lround(panel_.VscrollAllSongs->value())));
  });
}

bool PlayListForm::open() {
  const bool opened = run([this] {
    left_ = Done;
    form_.colours = dialog_.palette.button(u"plwindow");
    panel_.gridPlayList->fontSize = uses_.state.gGridFontSize;
    panel_.gridPlayList->rowHeight = uses_.state.gGridHeight;
    fill();
  });
  if (!opened) return false;
  const Grid& grid = *panel_.gridPlayList;
  const QString name = grid.cell(1, grid.row()), path = grid.cell(2, grid.row());
  if (left_ == Use) uses_.views.usePlayList(name, path);
  if (left_ == Edit) uses_.views.editPlayList(name, path);
  if (left_ == Create) uses_.views.createPlayList();
  return left_ != Done;
}

void PlayListForm::fill() {
  const int row = panel_.gridPlayList->row();
  uses_.playlists.PlayListSetupFiles(*panel_.gridPlayList);
  const int count = panel_.gridPlayList->maxRows();
  panel_.VscrollAllSongs->minimum = 1;
  panel_.VscrollAllSongs->maximum = std::max(count, 1);
  select(std::clamp(row, 1, std::max(count, 1)));
  for (const Choice needs : {Use, Rename, Delete, Edit})
    panel_.cmdPlayListChoices[needs]->enabled = count > 0;
}

void PlayListForm::select(int row) {
  if (row < 1) return;
  panel_.gridPlayList->SetActiveCell(1, row);
  panel_.VscrollAllSongs->value = row;
}

void PlayListForm::leaveWith(Choice choice) {
  left_ = choice;
  leave();
}

void PlayListForm::cmdPlayListChoices_Click(int index) {
  uses_.log.guard("cmdPlayListChoices_Click", "Form frmPlayList", [&] { choose(index); });
}

void PlayListForm::choose(int index) {
  const auto choice = static_cast<Choice>(index);
  const bool chosen = panel_.gridPlayList->maxRows() > 0;
  switch (choice) {
    case Use:
    case Edit:
      if (chosen) leaveWith(choice);
      break;
    case Done:
    case Create:
      leaveWith(choice);
      break;
    case Rename:
      if (chosen) rename();
      break;
    case Delete:
      if (chosen) remove();
      break;
  }
}

void PlayListForm::rename() {
  const QString path = panel_.gridPlayList->cell(2, panel_.gridPlayList->row());
  const QString name = dialog_.messages.ask(u"Enter new playlist name"_s).trimmed();
  if (name.isEmpty()) return;
  QString error = Playlists::nameFault(name);
  if (!error.isEmpty() || !uses_.playlists.rename(path, name, &error)) dialog_.messages.say(error);
  fill();
  for (int row = 1; row <= panel_.gridPlayList->maxRows(); ++row)
    if (panel_.gridPlayList->cell(1, row) == name) select(row);
}

void PlayListForm::remove() {
  const QString path = panel_.gridPlayList->cell(2, panel_.gridPlayList->row());
  if (!dialog_.messages.confirm(u"Are You Sure You Want to Delete the playlist?"_s)) return;
  if (!uses_.playlists.remove(path))
    dialog_.messages.say(u"The playlist cannot be deleted. Is its disk write-protected?"_s);
  fill();
}

}  // namespace korvane

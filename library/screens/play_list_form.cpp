#include "library/screens/play_list_form.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;

constexpr InventoryRow kPlayList[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 64}, TL, "Playlists"},
    {"gridPlayList", -1, Kind::Grid, {24, 88, 820, 656}, TL, "Playlists"},
    {"VscrollAllSongs", -1, Kind::Slider, {852, 88, 88, 656}, TL, "Scroll the playlists"},
    {"cmdPlayListChoices", 0, Kind::Image, {964, 88, 292, 96}, TL, "Use  Playlist"},
    {"cmdPlayListChoices", 4, Kind::Image, {964, 200, 292, 96}, TL, "Edit"},
    {"cmdPlayListChoices", 5, Kind::Image, {964, 312, 292, 96}, TL, "Create"},
    {"cmdPlayListChoices", 2, Kind::Image, {964, 424, 292, 96}, TL, "Rename"},
    {"cmdPlayListChoices", 3, Kind::Image, {964, 536, 292, 96}, TL, "Delete"},
    {"cmdPlayListChoices", 1, Kind::Image, {964, 648, 292, 96}, TL, "Done"},
};

constexpr const char* kPictures[] = {"pluseplaylist", "pldone", "plrename",
                                     "pldelete",      "pledit", "plcreate"};

}  // namespace

PlayListForm::PlayListForm(Uses uses)
    : uses_(uses), form_(u"frmPlayList"_s, kPlayList), panel_(form_) {
  title(*panel_.lblTitle, u"Playlists"_s);
  panel_.VscrollAllSongs->vertical = true;
  panel_.gridPlayList->columns = {{}, {QString(), 0, true}};
  panel_.gridPlayList->emptyText = u"No playlists yet. Create makes one."_s;
  for (Image* choice : panel_.cmdPlayListChoices)
    choice->setPicture(u"music"_s, QString::fromLatin1(kPictures[choice->index]));

  form_.on(u"cmdPlayListChoices", Event::Click,
           [this](Control& control, const Event&) { cmdPlayListChoices_Click(control.index); });
  form_.on(u"gridPlayList", Event::Click,
           [this](Control&, const Event& event) { select(event.row); });
  form_.on(u"VscrollAllSongs", Event::Change, [this](Control&, const Event&) {
    panel_.gridPlayList->SetActiveCell(
        1, static_cast<int>(std::lround(panel_.VscrollAllSongs->value())));
  });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) leave(Done);
  });
}

bool PlayListForm::open() {
  if (form_.shown()) return false;
  dress(form_, uses_.palette);
  form_.colours = uses_.palette.button(u"plwindow");
  panel_.gridPlayList->colours =
      uses_.palette.grid(u"plgrid", u"plgridSelect", u"MUSICGridTopLine");
  panel_.gridPlayList->fontSize = uses_.state.gGridFontSize;
  panel_.gridPlayList->rowHeight = uses_.state.gGridHeight;
  panel_.VscrollAllSongs->colours = uses_.palette.slider(u"plslider");
  fill();
  left_ = Done;
  uses_.host.showModal(form_);
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

void PlayListForm::leave(Choice choice) {
  left_ = choice;
  uses_.host.hide(form_);
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
      if (chosen) leave(choice);
      break;
    case Done:
    case Create:
      leave(choice);
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
  const QString name = uses_.messages.ask(u"Enter new playlist name"_s).trimmed();
  if (name.isEmpty()) return;
  QString error;
  if (!Playlists::goodName(name))
    uses_.messages.say(u"File name cannot contain \\/:*?\"<>|"_s);
  else if (!uses_.playlists.rename(path, name, &error))
    uses_.messages.say(error);
  fill();
  for (int row = 1; row <= panel_.gridPlayList->maxRows(); ++row)
    if (panel_.gridPlayList->cell(1, row) == name) select(row);
}

void PlayListForm::remove() {
  const QString path = panel_.gridPlayList->cell(2, panel_.gridPlayList->row());
  if (!uses_.messages.confirm(u"Are You Sure You Want to Delete the playlist?"_s)) return;
  if (!uses_.playlists.remove(path))
    uses_.messages.say(u"The playlist cannot be deleted. Is its disk write-protected?"_s);
  fill();
}

}  // namespace korvane

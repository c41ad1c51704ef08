#include "library/lists/search_panel.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr const char* kKinds[] = {"ARTIST", "ALBUM", "SONG"};
constexpr int kGap = 6;         // form units
constexpr int kRowHeight = 30;  // above the keyboard, in the unit of GridHeight

}  // namespace

SearchPanel::SearchPanel(Form& form, Uses uses, Add add)
    : form_(form),
      uses_(uses),
      add_(std::move(add)),
      panel_(form),
      search_(*panel_.gridSearch, uses.database, uses.palette, uses.state) {}

void SearchPanel::open() {
  search_.SetupPlaySongs();
  dressControl(*panel_.txtSearch, uses_.palette);
  panel_.txtSearch->text = QString();
  for (Button* kind : panel_.cmdSearchKind) kind->visible = true;
  panel_.txtSearch->visible = panel_.gridSearch->visible = true;
  choose(kind_);
  focusField();
  if (showKeyboard) showKeyboard(true);
}

void SearchPanel::close() {
  if (!shown()) return;
  if (showKeyboard) showKeyboard(false);
  form_.setFocus(nullptr);
  for (Button* kind : panel_.cmdSearchKind) kind->visible = false;
  panel_.txtSearch->visible = panel_.gridSearch->visible = false;
}

void SearchPanel::choose(int kind) {
  kind_ = kind;
  for (Button* button : panel_.cmdSearchKind)
    button->colours = uses_.palette.button(button->index == kind ? u"Accent" : u"Button");
  find();
}

// The kinds go beside the field, and the rows take their room.
int SearchPanel::keyboardShown(int keyboardTop) {
  for (const auto& [control, place] : std::exchange(moved_, {})) control->rect = place;
  const int rowHeight =
      keyboardTop > 0 ? kRowHeight : std::max(kRowHeight, uses_.state.gGridHeight);
  search_.setMostRowHeight(rowHeight);
  panel_.gridSearch->rowHeight = std::min(rowHeight, uses_.state.gGridHeight);
  if (keyboardTop == 0) return panel_.gridSearch->rect().top;
  const auto move = [this](Control* control, Rect to) {
    moved_.emplace_back(control, control->rect());
    control->rect = to;
  };
  const Rect field = panel_.txtSearch->rect();
  Rect list = panel_.gridSearch->rect();
  int left = list.right() + kGap;
  for (Button* kind : panel_.cmdSearchKind) {
    Rect beside = kind->rect();
    beside.left = std::exchange(left, left + beside.width + kGap);
    beside.top = field.top;
    move(kind, beside);
  }
  list.top = field.bottom() + kGap;
  list.height = keyboardTop - kGap - list.top;
  move(panel_.gridSearch, list);
  return list.top;
}

// Also where the form holds it for focused already, though a button has taken the keys.
void SearchPanel::focusField() {
  form_.setFocus(nullptr);
  form_.setFocus(panel_.txtSearch);
}

void SearchPanel::find() {
  search_.Search(QString::fromLatin1(kKinds[kind_]), panel_.txtSearch->text());
}

void SearchPanel::txtSearch_Change() {
  if (shown()) find();
}

void SearchPanel::txtSearch_Click() {
  if (showKeyboard) return showKeyboard(true);
  const QString typed = uses_.messages.ask(u"Enter search value and hit enter"_s);
  focusField();
  if (typed.isEmpty()) return;
  panel_.txtSearch->text = typed;
  panel_.txtSearch->selStart = static_cast<int>(typed.size());
  find();
}

void SearchPanel::cmdSearchKind_Click(int index) {
  if (uses_.screen.busy()) return;
  choose(index);
  focusField();
}

void SearchPanel::gridSearch_Click(int row) {
  if (uses_.screen.busy()) return;
  const Grid& grid = *panel_.gridSearch;
  if (row < 1 || row > grid.maxRows()) {
    if (row == 0) find();  // the header leads back to what was typed
    return;
  }
  const QString first = grid.cell(1, row), second = grid.cell(2, row), third = grid.cell(3, row);
  if (search_.kind() == "ARTIST"_L1)
    search_.SearchArtist(first);
  else if (search_.kind() == "ALBUM"_L1)
    search_.SearchAlbum(second, third);
  else
    add_(first, second);
}

}  // namespace korvane

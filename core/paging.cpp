#include "core/paging.h"

namespace korvane {
namespace {

constexpr int kRepeatMs = 120;  // between rows of a held button

QString firstLetter(const QString& text) {
  for (const QChar c : text)
    if (c.isLetterOrNumber()) return QString(c.toUpper());
  return {};
}

}  // namespace

void Paging::show(const Grid& list) {
  panel_.VscrollAllSongs->minimum = 1;
  panel_.VscrollAllSongs->maximum = std::max(list.maxRows(), 1);
  panel_.VscrollAllSongs->value = std::max(list.row(), 1);
  panel_.VscrollAllSongs->visible = panel_.up->visible = panel_.down->visible = true;
}

void Paging::hide() {
  panel_.VscrollAllSongs->visible = panel_.up->visible = panel_.down->visible = false;
}

void Paging::follow(const Grid& paged) {
  if (&paged == list()) panel_.VscrollAllSongs->value = std::max(paged.row(), 1);
}

bool Paging::move(Grid& moved, int rows) {
  const int to = moved.row() + rows;
  if (to < 1 || to > moved.maxRows()) return false;
  moved.SetActiveCell(1, to);
  follow(moved);
  return true;
}

void Paging::VscrollAllSongs_Change() {
  if (Grid* paged = list())
    paged->SetActiveCell(1, static_cast<int>(std::lround(panel_.VscrollAllSongs->value())));
}

void Paging::VscrollAllSongs_Scroll() {
  VscrollAllSongs_Change();
  if (const Grid* paged = list())
    panel_.VscrollAllSongs->bubble = firstLetter(paged->cell(1, paged->row()));
}

void Paging::VscrollAllSongs_Release() {
  panel_.VscrollAllSongs->bubble = QString();
}

void Paging::cmdOneSong_Press(int index) {
  const int rows = index == 0 ? -1 : +1;
  const auto step = [this, rows] {
    Grid* paged = list();
    return paged && move(*paged, rows);
  };
  if (step()) repeat(kRepeatMs, step);
}

void Paging::repeat(int milliseconds, std::function<bool()> again) {
  again_ = std::move(again);
  panel_.RepeatTimer->interval = milliseconds;
  panel_.RepeatTimer->enabled = true;
}

void Paging::endRepeat() {
  again_ = nullptr;
  panel_.RepeatTimer->enabled = false;
}

// `again` may yield, and the button be let go meanwhile.
void Paging::RepeatTimer_Tick() {
  const auto again = again_;
  if (again && !again()) endRepeat();
}

}  // namespace korvane

#include "playback/jukebox.h"

namespace korvane {
namespace {

using enum TransportButton;
constexpr int kSeen = 200;  // ms that an addition stays lit

}  // namespace

Jukebox::Jukebox(Form& form, Uses uses) : uses_(uses), panel_(form) {}

void Jukebox::optMode_Click(int index) {
  if (uses_.state.jukeboxMode == (index == 1)) return;
  if (index == 1)
    enter();
  else
    leave();
  if (modeChanged) modeChanged();
}

void Jukebox::setUpQueue() {
  if (!uses_.state.jukeboxMode) return;
  Grid& grid = *panel_.queue;
  grid.columns = {{QString(), 62}, {QString(), 38}, {QString(), 0, true}, {QString(), 0, true}};
  grid.fontSize = uses_.state.gGridFontSize;
  grid.rowHeight = uses_.state.gGridHeight;
  grid.colours = uses_.palette.grid(u"JUKEBOXGRID", u"JUKEBOXGridSelected", u"MUSICGridTopLine");
  grid.emptyText = u"Nothing queued. A press on a song adds it."_s;
}

void Jukebox::enter() {
  Database& database = uses_.database;
  uses_.state.jukeboxMode = true;
  panel_.optMode[0]->setPicture(u"music"_s, u"normaloff"_s);
  panel_.optMode[1]->setPicture(u"music"_s, u"jukeboxon"_s);
  panel_.cmdTopPlaylist->setPicture(u"music"_s,
                                    uses_.main.topPicture(2, panel_.cmdTopPlaylist->tagged()));
  setUpQueue();
  panel_.queue->setRows(std::vector<RowTable::Row>());
  panel_.lblCurrentPlayList->caption = u"Jukebox on  number of selections (0)"_s;
  for (const TransportButton button : {Previous, Continue}) image(button).visible = false;
  image(Repeat).setPicture(u"music"_s, u"delete"_s);
  image(Repeat).toolTip = u"Delete the selection"_s;
  image(Repeat).tag = QString();
  image(Repeat).visible = true;

  const PlaySong running = database.rsPlaySongs.row();
  database.resetPlaySongs();
  topPlays_ = uses_.state.gPlayMode != PlayMode::Stopped && !running.Path.isEmpty();
  if (topPlays_) jukeboxAdd(running);
}

void Jukebox::leave() {
  panel_.optMode[0]->setPicture(u"music"_s, u"normalon"_s);
  panel_.optMode[1]->setPicture(u"music"_s, u"jukeboxoff"_s);
  if (panel_.cmdTopPlaylist->tagged()) uses_.browsing.cmdTop_Click(PageCommand::Artists);
  uses_.state.jukeboxMode = false;
  uses_.database.resetPlaySongs();
  panel_.queue->clear();
  panel_.lblCurrentPlayList->caption = QString();
  image(Repeat).setPicture(u"music"_s, u"repeat"_s);
  image(Repeat).toolTip = u"Repeat same song"_s;
  for (const TransportButton button : {Previous, Repeat, Continue}) image(button).visible = true;
  panel_.cmdTopPlaylist->setPicture(u"music"_s, uses_.main.topPicture(2, false));
}

void Jukebox::showCount() {
  panel_.lblCurrentPlayList->caption =
      u"Jukebox!   number of selections (%1)"_s.arg(uses_.database.rsPlaySongs.RecordCount());
}

void Jukebox::pageQueue() {
  if (uses_.state.gridMode == MusicList::Playlists && panel_.queue->visible())
    uses_.browsing.showGrid(MusicList::Playlists);
}

void Jukebox::jukeboxAdd(const PlaySong& song) {
  panel_.lblCurrentPlayList->highlighted = true;
  uses_.pump.doEvents();
  Recordset<PlaySong>& queue = uses_.database.rsPlaySongs;
  uses_.database.addPlaySong(song);
  showCount();
  panel_.queue->table()->rows.push_back({{song.Title, song.Artist, song.Album, song.Path}});
  panel_.queue->rowsChanged();
  queue.MoveFirst();
  panel_.queue->SetActiveCell(1, 1);
  pageQueue();
  if (queue.RecordCount() == 1 && uses_.state.gPlayMode == PlayMode::Stopped)
    uses_.transport.press(Play);
  uses_.pump.wait(kSeen, [] { return false; });
  panel_.lblCurrentPlayList->highlighted = false;
}

void Jukebox::playTop() {
  if (uses_.database.rsPlaySongs.RecordCount() == 0) return;
  uses_.database.rsPlaySongs.MoveFirst();
  topPlays_ = true;
  uses_.transport.playSongRecord(0);
}

void Jukebox::jukeboxNext() {
  Recordset<PlaySong>& queue = uses_.database.rsPlaySongs;
  if (panel_.queue->maxRows() == 0) {
    uses_.database.resetPlaySongs();
    return;
  }
  if (topPlays_) removeRow(1);
  topPlays_ = false;
  if (queue.RecordCount() == 0) {
    uses_.transport.press(Stop);
    return;
  }
  if (image(Random).tagged()) {
    // The selection drawn comes to the top: what plays is always row 1.
    const int drawn = anyOf(queue.RecordCount(), uses_.chance.rnd());
    queue.setAbsolutePosition(drawn);
    queue.MoveToTop();
    auto& rows = panel_.queue->table()->rows;
    std::rotate(rows.begin(), rows.begin() + drawn - 1, rows.begin() + drawn);
    panel_.queue->rowsChanged();
    panel_.queue->SetActiveCell(1, 1);
  }
  playTop();
}

void Jukebox::deleteSelection() {
  const int row = panel_.queue->row();
  if (row < 1 || row > panel_.queue->maxRows()) return;
  if (row == 1) topPlays_ = false;
  removeRow(row);
}

// Out of the queue and of its list; the cursor goes to the top.
void Jukebox::removeRow(int row) {
  uses_.database.removePlaySong(row);
  uses_.database.rsPlaySongs.MoveFirst();
  panel_.queue->deleteRow(row);
  if (panel_.queue->maxRows() > 0)
    panel_.queue->SetActiveCell(1, std::min(row, panel_.queue->maxRows()));
  showCount();
  pageQueue();
}

}  // namespace korvane

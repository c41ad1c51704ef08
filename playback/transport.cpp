#include "playback/transport.h"

namespace korvane {
namespace {

QString noTime() {
  return u"--:--:--"_s;
}

}  // namespace

Transport::Transport(Form& form, Uses uses) : uses_(uses), panel_(form) {
  panel_.Slider1->text = noTime();
  panel_.TxtTime->caption = noTime();
}

PlayModes Transport::modes() const {
  return {panel_.cmdControls[Repeat]->tagged(), panel_.cmdControls[Random]->tagged(),
          panel_.cmdControls[Continue]->tagged()};
}

void Transport::cmdControls_Click(int index) {
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  lastControl_ = index;
  uses_.tabs.openTab().pressTransport(index);
}

void Transport::pressMusic(int index) {
  if (discPlays() && index <= Next) return disc_->press(index);
  switch (static_cast<Button>(index)) {
    case Stop:
      stop();
      break;
    case Next:
      if (uses_.state.jukeboxMode && queue_)
        queue_->jukeboxNext();
      else
        step(+1);
      break;
    case Previous:
      step(-1);
      break;
    case Pause:
      pause();
      break;
    case Play:
      play();
      break;
    case Random:
    case Continue:
      toggle(static_cast<Button>(index));
      break;
    case Repeat:
      if (uses_.state.jukeboxMode && queue_)
        queue_->deleteSelection();
      else
        toggle(Repeat);
      break;
  }
}

void Transport::play() {
  AppState& state = uses_.state;
  if (state.gPlayMode == PlayMode::Paused) {
    uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s);
    uses_.main.showPlayState(PlayMode::Playing);
    return;
  }
  state.gMusicState = MusicState::Stop;
  if (state.jukeboxMode) {
    if (queue_) queue_->playTop();
    return;
  }
  for (const int index : {1, 3, 5, 7, 8}) {
    const Grid& grid = *panel_.grid[static_cast<size_t>(index)];
    if (!grid.visible() || grid.maxRows() == 0) continue;
    // The list's own press does the rest; the hourglass is ours, so lift it for that press.
    uses_.screen.MousePointer = Screen::Custom;
    if (index == 5) browsing_->Grid_Click(5, 1, grid.row());
    browsing_->Grid_DblClick(index, 1, std::max(grid.row(), 1));
    return;
  }
}

void Transport::pause() {
  AppState& state = uses_.state;
  if (state.gPlayMode == PlayMode::Stopped) return;
  state.gMusicState = MusicState::Paused;
  const bool remoteCd = state.gMusicType == MusicSource::Cd && !state.gLocalListener;
  if (state.gPlayMode == PlayMode::Paused && !remoteCd) {
    play();
    return;
  }
  if (state.gPlayMode == PlayMode::Playing)
    uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"PAUSE"_s);
  uses_.main.showPlayState(PlayMode::Paused);
}

void Transport::stop() {
  if (panel_.Slider1->text() != noTime()) uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"STOP"_s);
  panel_.Slider1->text = noTime();
  panel_.Slider1->value = 0;
  panel_.TxtTime->caption = noTime();
  panel_.lblCurrentPlay->caption = u"Status: Idle"_s;
  panel_.lblDuration->caption = QString();
  panel_.coverArt->tag = u"FALSE"_s;
  panel_.coverArt->visible = false;
  uses_.main.showPlayState(PlayMode::Stopped);
}

void Transport::step(int by) {
  Recordset<PlaySong>& list = uses_.database.rsPlaySongs;
  if (playGrid_ == 5) {
    const Grid& all = *panel_.grid[5];
    const int count = all.maxRows();
    if (count == 0) return;
    const int to =
        modes().random ? anyOf(count, uses_.chance.rnd()) : std::clamp(all.row() + by, 1, count);
    showRow(to);
    playSongRecord(to);
    return;
  }
  const int to = stepInList(list.AbsolutePosition(), list.RecordCount(), by);
  if (to == 0) return;
  list.setAbsolutePosition(to);
  showRow(to);
  playSongRecord(to);
}

void Transport::turnOff(Button button) {
  static const QString off[] = {{}, {}, {}, {}, {}, u"repeat"_s, u"random"_s, u"continue off"_s};
  panel_.cmdControls[button]->tag = QString();
  panel_.cmdControls[button]->setPicture(u"Music"_s, off[button]);
}

void Transport::toggle(Button button) {
  static const QString on[] = {{}, {}, {}, {}, {}, u"repeatb"_s, u"randomb"_s, u"continue on"_s};
  if (panel_.cmdControls[button]->tagged()) {
    turnOff(button);
    return;
  }
  panel_.cmdControls[button]->tag = u"1"_s;
  panel_.cmdControls[button]->setPicture(u"Music"_s, on[button]);
  if (button == Repeat) {
    turnOff(Random);
    turnOff(Continue);
  } else if (!uses_.state.jukeboxMode) {
    turnOff(Repeat);
  }
}

void Transport::startFrom(int grid) {
  lastControl_ = -1;
  playGrid_ = grid;
  uses_.state.gMusicState = MusicState::Stop;
}

void Transport::showRow(int row) {
  playing().SetActiveCell(1, row);
  if (uses_.state.gridMode == playGrid_) panel_.VscrollAllSongs->value = row;
}

void Transport::takeAllSongs(int record) {
  const Grid& all = *panel_.grid[5];
  allSongsPos_ = record;
  uses_.database.resetPlaySongs();
  uses_.database.addPlaySong(
      {all.cell(1, record), all.cell(2, record), all.cell(4, record), {}, {}, all.cell(3, record)});
  uses_.database.rsPlaySongs.MoveFirst();
}

void Transport::playSongRecord(int record) {
  Recordset<PlaySong>& list = uses_.database.rsPlaySongs;
  const bool stepped = lastControl_ == Next || lastControl_ == Previous;
  if (playGrid_ == 5 && !uses_.state.jukeboxMode) {
    const int row = panel_.grid[5]->row();
    if (row < 1) return;
    showRow(row);
    takeAllSongs(row);
    record = 0;
  } else if (!uses_.state.jukeboxMode && (playGrid_ == 1 || playGrid_ == 3) && stepped &&
             modes().random) {
    const int drawn = uses_.database.getRandomRecord(true, uses_.chance);
    if (drawn > 0) {
      record = drawn;
      showRow(drawn);
    }
  }
  if (record > 0) list.setAbsolutePosition(record);
  playPaths();
}

void Transport::playPaths() {
  const PlaySong song = uses_.database.rsPlaySongs.row();
  if (song.Path.isEmpty()) return;
  started_ = running();
  ++started_.number;
  uses_.state.gMusicState = MusicState::Play;
  panel_.lblCurrentPlay->caption = u"Playing: "_s + song.Title.trimmed();
  uses_.main.showPlayState(PlayMode::Playing);
  panel_.Slider1->value = 0;
  uses_.connection.ShowSliderTimes();
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s, song.Path, song.Title.trimmed());
}

Transport::Running Transport::running() const {
  const Database& database = uses_.database;
  return {started_.number,
          playGrid_,
          allSongsPos_,
          database.rsPlaySongs.rows(),
          database.rsRandomPool.rows(),
          database.rsPlaySongs.AbsolutePosition()};
}

void Transport::resume(const Running& running, bool playAgain) {
  Database& database = uses_.database;
  lastControl_ = -1;
  playGrid_ = running.grid;
  allSongsPos_ = running.allSongs;
  database.rsPlaySongs.setRows(running.songs);
  database.rsPlaySongs.setAbsolutePosition(running.record);
  database.rsRandomPool.setRows(running.pool);
  if (playAgain) playPaths();
}

void Transport::MediaPlayer1_EndOfStream() {
  if (uses_.tabs.open(kMoviesTab)) {
    cmdControls_Click(Stop);
    return;
  }
  Database& database = uses_.database;
  if (playGrid_ == 5 && !uses_.state.jukeboxMode) {
    const int count = panel_.grid[5]->maxRows();
    const int next = nextOfAllSongs(modes(), allSongsPos_, count, uses_.chance.rnd());
    if (next == 0) {
      goIdle();
      return;
    }
    showRow(next);
    takeAllSongs(next);
    playPaths();
    return;
  }
  if (uses_.state.jukeboxMode && queue_ && database.rsPlaySongs.RecordCount() > 0) {
    queue_->jukeboxNext();
    return;
  }
  const int next = nextInList(
      modes(), database.rsPlaySongs.AbsolutePosition(), database.rsPlaySongs.RecordCount(),
      [&](bool refill) { return database.getRandomRecord(refill, uses_.chance); });
  if (next == 0) {
    goIdle();
    return;
  }
  lastControl_ = -1;
  if (playing().visible()) showRow(next);
  playSongRecord(next);
}

void Transport::songFailed(int inARow) {
  const int count =
      playGrid_ == 5 ? panel_.grid[5]->maxRows() : uses_.database.rsPlaySongs.RecordCount();
  // One round of a list in which nothing plays is enough.
  if (inARow >= count || modes().repeat)
    goIdle();
  else
    MediaPlayer1_EndOfStream();
}

// A report, unlike a finger, never resumes what is paused.
void Transport::playerPaused() {
  if (uses_.state.gPlayMode != PlayMode::Paused) return cmdControls_Click(Pause);
  if (uses_.screen.busy()) return;
  uses_.state.gMusicState = MusicState::Paused;
  uses_.main.showPlayState(PlayMode::Paused);
}

void Transport::playerStopped() {
  cmdControls_Click(Stop);
}

void Transport::goIdle() {
  panel_.MusicTimer->enabled = false;
  panel_.Slider1->value = 0;
  panel_.Slider1->text = noTime();
  panel_.TxtTime->caption = noTime();
  panel_.lblCurrentPlay->caption = u"Status: Idle"_s;
  panel_.lblDuration->caption = QString();
  uses_.state.gMusicState = MusicState::Stop;
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"STOP"_s);
  uses_.main.showPlayState(PlayMode::Stopped);
}

void Transport::jukeboxAdd(const PlaySong& song) {
  if (queue_) queue_->jukeboxAdd(song);
}

void Transport::playFailed() {
  uses_.main.showTransport(u"play"_s, u"pause"_s, u"stopb"_s);
}

void Transport::playDiscRow(int row) {
  if (disc_) disc_->playRow(row);
}

void Transport::Slider1_Press() {
  uses_.connection.sliderHeld = true;
}

void Transport::Slider1_Scroll() {
  uses_.connection.ShowSliderTimes();
}

void Transport::Slider1_Release() {
  uses_.pump.doEvents();
  const double seconds = std::round(panel_.Slider1->value());
  if (discPlays())
    disc_->moveTo(static_cast<int>(seconds));
  else
    uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"CURRENTPOSITION"_s, numberText(seconds));
  uses_.connection.sliderHeld = false;
  uses_.pump.doEvents();
}

void Transport::lblCurrentPlay_DblClick() {
  if (discPlays() || panel_.lblCurrentPlay->caption().contains("Idle"_L1)) return;
  const PlaySong song = uses_.database.rsPlaySongs.row();
  if (song.Path.isEmpty()) return;
  if (!uses_.tabs.open(kMusicTab)) uses_.tabs.imgTabs_Click(kMusicTab);
  browsing_->showSongInAlbum(song.Artist, song.Album, song.Title);
}

}  // namespace korvane

#include "playback/transport.h"

namespace korvane {
namespace {

using enum TransportButton;

QString noTime() {
  return u"--:--:--"_s;
}

}  // namespace

Transport::Transport(Form& form, Uses uses) : uses_(uses), panel_(form) {
  panel_.Slider1->text = noTime();
  panel_.TxtTime->caption = noTime();
}

const PlaySong& Transport::Running::song() const {
  static const PlaySong none{};
  return record < 1 || record > songs.size() ? none : songs[record - 1];
}

PlayModes Transport::modes() const {
  return {lit(Repeat), lit(Random), lit(Continue)};
}

PlayMode Transport::mode() const {
  return uses_.state.playsDiscAudio() ? PlayMode::Stopped : uses_.state.gPlayMode;
}

bool Transport::playsAllSongs() const {
  return playGrid_ == MusicList::AllSongs && !uses_.state.jukeboxMode;
}

int Transport::countOfAllSongs() const {
  return uses_.browsing.page(MusicList::AllSongs).grid.maxRows();
}

void Transport::press(TransportButton button) {
  stepped_ = button == Next || button == Previous;
  const bool queue = uses_.state.jukeboxMode && queue_;
  switch (button) {
    case Stop:
      return stop();
    case Next:
      return queue ? queue_->jukeboxNext() : step(+1);
    case Previous:
      return step(-1);
    case Pause:
      return pause();
    case Play:
      return play();
    case Random:
    case Continue:
      return toggle(button);
    case Repeat:
      return queue ? queue_->deleteSelection() : toggle(button);
  }
}

void Transport::play() {
  AppState& state = uses_.state;
  if (state.gPlayMode == PlayMode::Paused) {
    uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s);
    state.gMusicState = MusicState::Play;
    uses_.main.showPlayState(PlayMode::Playing);
    return;
  }
  state.gMusicState = MusicState::Stop;
  if (!state.jukeboxMode)
    uses_.browsing.playShown();
  else if (queue_)
    queue_->playTop();
}

void Transport::pause() {
  AppState& state = uses_.state;
  if (state.gPlayMode == PlayMode::Stopped) return;
  const bool remoteCd = state.gMusicType == MusicSource::Cd && !state.gLocalListener;
  if (state.gPlayMode == PlayMode::Paused && !remoteCd) return play();
  state.gMusicState = MusicState::Paused;
  if (state.gPlayMode == PlayMode::Playing)
    uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"PAUSE"_s);
  uses_.main.showPlayState(PlayMode::Paused);
}

void Transport::stop() {
  if (panel_.Slider1->text() != noTime()) uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"STOP"_s);
  panel_.coverArt->tag = u"FALSE"_s;
  panel_.coverArt->visible = false;
  showIdle();
}

void Transport::showIdle() {
  uses_.state.gMusicState = MusicState::Stop;
  uses_.state.gSongPlayingTitle.clear();
  panel_.Slider1->text = noTime();
  panel_.Slider1->value = 0;
  panel_.TxtTime->caption = noTime();
  panel_.lblCurrentPlay->caption = u"Status: Idle"_s;
  panel_.lblDuration->caption = QString();
  uses_.main.showPlayState(PlayMode::Stopped);
}

void Transport::goIdle() {
  panel_.MusicTimer->enabled = false;
  showIdle();
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"STOP"_s);
}

// By key KeepList from the song that plays, since the active row may be one that was only looked
// at.
void Transport::stepInAllSongs(int by) {
  const int count = countOfAllSongs();
  if (count == 0) return;
  const bool kept = uses_.settings.flag(key::KeepList) && allSongsPos_ > 0;
  const int from = kept ? allSongsPos_ : uses_.browsing.page(MusicList::AllSongs).grid.row();
  const int to =
      modes().random ? anyOf(count, uses_.chance.rnd()) : std::clamp(from + by, 1, count);
  uses_.browsing.setActive(MusicList::AllSongs, to);
  playSongRecord(to);
}

void Transport::step(int by) {
  if (playsAllSongs()) return stepInAllSongs(by);
  Recordset<PlaySong>& list = uses_.database.rsPlaySongs;
  const int to = stepInList(list.AbsolutePosition(), list.RecordCount(), by);
  if (to == 0) return;
  list.setAbsolutePosition(to);
  showRow(to);
  playSongRecord(to);
}

void Transport::turnOff(TransportButton button) {
  Image& image = *panel_.cmdControls[at(button)];
  image.tag = QString();
  image.setPicture(u"Music"_s, button == Continue ? u"continue off"_s
                               : button == Random ? u"random"_s
                                                  : u"repeat"_s);
}

void Transport::toggle(TransportButton button) {
  if (lit(button)) return turnOff(button);
  Image& image = *panel_.cmdControls[at(button)];
  image.tag = u"1"_s;
  image.setPicture(u"Music"_s, button == Continue ? u"continue on"_s
                               : button == Random ? u"randomb"_s
                                                  : u"repeatb"_s);
  if (button == Repeat) {
    turnOff(Random);
    turnOff(Continue);
  } else if (!uses_.state.jukeboxMode) {
    turnOff(Repeat);
  }
}

void Transport::startFrom(MusicList list) {
  stepped_ = false;
  playGrid_ = list;
  uses_.state.gMusicState = MusicState::Stop;
}

// The list on screen may have become another one since.
void Transport::showRow(int row) {
  if (uses_.browsing.shows(playGrid_, row, uses_.database.rsPlaySongs.at(row)))
    uses_.browsing.setActive(playGrid_, row);
}

void Transport::takeAllSongs(int row) {
  allSongsPos_ = row;
  uses_.database.resetPlaySongs();
  if (const auto song = uses_.browsing.page(MusicList::AllSongs).songAt(row))
    uses_.database.addPlaySong(*song);
  uses_.database.rsPlaySongs.MoveFirst();
}

void Transport::allSongsMoved() {
  if (!playsAllSongs() || allSongsPos_ == 0) return;
  const auto& page = static_cast<const AllSongsPage&>(uses_.browsing.page(MusicList::AllSongs));
  if (const int row = page.rowOf(uses_.database.rsPlaySongs.row())) allSongsPos_ = row;
}

void Transport::playSongRecord(int record) {
  const bool drawn = !uses_.state.jukeboxMode && stepped_ && modes().random &&
                     (playGrid_ == MusicList::AlbumSongs || playGrid_ == MusicList::PlaylistSongs);
  if (playsAllSongs()) {
    const int row = uses_.browsing.page(MusicList::AllSongs).grid.row();
    if (row < 1) return;
    takeAllSongs(row);
    record = 0;
  } else if (drawn) {
    if (const int any = uses_.database.getRandomRecord(true, uses_.chance); any > 0) {
      record = any;
      showRow(any);
    }
  }
  if (record > 0) uses_.database.rsPlaySongs.setAbsolutePosition(record);
  playPaths();
}

void Transport::playPaths() {
  const PlaySong song = uses_.database.rsPlaySongs.row();
  if (song.Path.isEmpty()) return;
  uses_.players.starts(*this);
  started_ = running();
  ++started_.number;
  uses_.state.gMusicState = MusicState::Play;
  uses_.state.gSongPlayingTitle = song.Title.trimmed();
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
  stepped_ = false;
  playGrid_ = running.list;
  allSongsPos_ = running.allSongs;
  database.rsPlaySongs.setRows(running.songs);
  database.rsPlaySongs.setAbsolutePosition(running.record);
  database.rsRandomPool.setRows(running.pool);
  if (playAgain) playPaths();
}

// On the Movies tab a song's end is the end of the music, unless the transport follows what is
// heard.
void Transport::MediaPlayer1_EndOfStream() {
  if (uses_.tabs.open(kMoviesTab) && !uses_.settings.flag(key::FollowSound)) return goIdle();
  Database& database = uses_.database;
  stepped_ = false;
  if (playsAllSongs()) {
    const int next = nextOfAllSongs(modes(), allSongsPos_, countOfAllSongs(), uses_.chance.rnd());
    if (next == 0) return goIdle();
    uses_.browsing.setActive(MusicList::AllSongs, next);
    takeAllSongs(next);
    return playPaths();
  }
  if (uses_.state.jukeboxMode && queue_ && database.rsPlaySongs.RecordCount() > 0)
    return queue_->jukeboxNext();
  const int next = nextInList(
      modes(), database.rsPlaySongs.AbsolutePosition(), database.rsPlaySongs.RecordCount(),
      [&](bool refill) { return database.getRandomRecord(refill, uses_.chance); });
  if (next == 0) return goIdle();
  showRow(next);
  playSongRecord(next);
}

void Transport::songFailed(int inARow) {
  const int count = playsAllSongs() ? countOfAllSongs() : uses_.database.rsPlaySongs.RecordCount();
  // One round of a list in which nothing plays is enough.
  if (inARow >= count || modes().repeat)
    goIdle();
  else
    MediaPlayer1_EndOfStream();
}

// A report, unlike a finger, never resumes what is paused.
void Transport::playerPaused() {
  if (uses_.state.gPlayMode != PlayMode::Paused) return uses_.players.press(*this, Pause);
  if (uses_.screen.busy()) return;
  uses_.state.gMusicState = MusicState::Paused;
  uses_.main.showPlayState(PlayMode::Paused);
}

void Transport::playerStopped() {
  uses_.players.press(*this, Stop);
}

void Transport::jukeboxAdd(const PlaySong& song) {
  if (queue_) queue_->jukeboxAdd(song);
}

void Transport::playFailed() {
  uses_.main.showPlayState(PlayMode::Stopped);
}

void Transport::playDiscRow(int row) {
  playDisc(row);
}

void Transport::moveTo(double seconds) {
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"CURRENTPOSITION"_s, numberText(seconds));
}

void Transport::setLevel(double level) {
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"VOLUME"_s, QString::number(std::llround(level)));
}

void Transport::setMute(bool on) {
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, on ? u"MUTE=TRUE"_s : u"MUTE=FALSE"_s);
}

void Transport::lblCurrentPlay_DblClick() {
  if (!uses_.players.shows(*this)) return;
  if (uses_.state.playsDiscAudio() || panel_.lblCurrentPlay->caption().contains("Idle"_L1)) return;
  const PlaySong song = uses_.database.rsPlaySongs.row();
  if (song.Path.isEmpty()) return;
  if (!uses_.tabs.open(kMusicTab)) uses_.tabs.imgTabs_Click(kMusicTab);
  uses_.browsing.showSongInAlbum(song.Artist, song.Album, song.Title);
}

}  // namespace korvane

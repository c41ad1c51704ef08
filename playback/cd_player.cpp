#include "playback/cd_player.h"

namespace korvane {
namespace {

// Seconds of "mm:ss" at `from`.
int secondsAt(const QString& text, qsizetype from) {
  return text.mid(from, 2).toInt() * 60 + text.mid(from + 3, 2).toInt();
}

}  // namespace

CdPlayer::CdPlayer(Form& form, Uses uses)
    : uses_(uses), panel_(form), commands_(uses.drive, uses.pump, uses.state) {
  uses_.drive.setEvents(this);
  uses_.transport.playDisc = [this](int row) { playRow(row); };
}

CdPlayer::~CdPlayer() {
  uses_.drive.setEvents(nullptr);
}

void CdPlayer::lblMusicType_Click(int index) {
  const bool cd = uses_.state.gMusicType == MusicSource::Cd;
  if (uses_.screen.busy() || (index == 0) == cd) return;
  const Busy busy(uses_.screen, Screen::Custom);
  if (panel_.Slider1->value() != 0) {
    uses_.messages.say(u"Stop the music first, then choose where it comes from."_s);
    return;
  }
  uses_.log.guard("lblMusicType_Click", "Form frmMain", [&] { index == 0 ? toCd() : toDigital(); });
}

void CdPlayer::toCd() {
  AppState& state = uses_.state;
  if (state.gMovieType != MovieType::Digital) {
    uses_.messages.say(
        u"DVD movie play and CD play cannot be on at the same time. If you want to play a CD turn "
        "DVD Play off."_s);
    return;
  }
  if (state.gPlayMode != PlayMode::Stopped) uses_.transport.press(TransportButton::Stop);
  savedGrid_ = state.gridMode;
  state.gMusicType = MusicSource::Cd;
  state.gLocalListener = true;
  const QString drive = uses_.settings.str(key::CDDrive);
  state.gCdDrive = drive == "NO"_L1 ? QString() : drive;
  showSource(true);
  panel_.lblCurrentPlayList->caption = QString();
  panel_.coverArt->visible = false;
  panel_.coverArt->tag = u"FALSE"_s;
  showPlaying(PlayMode::Stopped, u"CD Stopped"_s);
  uses_.browsing.showGrid(MusicList::DiscTracks);
  getCDTracks();
}

void CdPlayer::toDigital() {
  AppState& state = uses_.state;
  if (state.gPlayMode != PlayMode::Stopped) uses_.transport.press(TransportButton::Stop);
  state.gMusicType = MusicSource::Digital;
  state.discHoldsFiles = false;
  panel_.MusicTimer->enabled = false;
  cdCommand(2);
  cdCommand(5);
  showSource(false);
  panel_.lblCurrentPlayList->caption = QString();
  showPlaying(PlayMode::Stopped, u"Status: Idle"_s);
  uses_.browsing.showGrid(savedGrid_);
  uses_.connection.ConnectionMP3Connect();
}

void CdPlayer::showSource(bool cd) {
  panel_.lblMusicType[0]->setPicture(u"music"_s, cd ? u"CDplayerOn"_s : u"CDplayerOff"_s);
  panel_.lblMusicType[1]->setPicture(u"music"_s, cd ? u"DigitalMusicOff"_s : u"DigitalMusicOn"_s);
  if (cd) {
    panel_.lblMusicPlay[0]->setPicture(u"music"_s, u"AtSeaton"_s);
    panel_.lblMusicPlay[1]->setPicture(u"music"_s, u"InCabinOff"_s);
  }
  for (Image* command : panel_.cmdTop) command->enabled = !cd;
  for (Image* mode : panel_.optMode) mode->enabled = !cd;  // their lists cannot be reached
  panel_.cmdFavoriateAdd->enabled = !cd;
}

void CdPlayer::showPlaying(PlayMode playMode, const QString& caption) {
  uses_.state.gPlayMode = playMode;
  uses_.state.gMusicState = musicStateOf(playMode);
  uses_.state.gSongPlayingTitle = playMode == PlayMode::Stopped ? QString() : caption;
  panel_.lblCurrentPlay->caption = caption;
  uses_.main.showPlayState(playMode);
}

void CdPlayer::playRow(int row) {
  const Disc* disc = uses_.drive.disc();
  const bool shown = panel_.grid->cell(4, row) == "CD"_L1;
  if (!disc || !shown)
    getCDTracks();
  else if (!uses_.state.discHoldsFiles)
    startTrack(row);
  else if (!disc->songs.isEmpty())
    playSong(row);
}

void CdPlayer::startTrack(int track) {
  const Disc* disc = uses_.drive.disc();
  if (!disc || !disc->has(track) || !disc->at(track).audio) return;
  uses_.players.starts(*this);
  uses_.state.gCdTrack = 0;
  panel_.grid->SetActiveCell(1, track);
  if (uses_.state.gridMode == MusicList::DiscTracks) uses_.browsing.showGrid(MusicList::DiscTracks);
  panel_.Slider1->value = 0;
  uses_.connection.ShowSliderTimes();
  showPlaying(PlayMode::Playing, u"CD Seeking"_s);
  if (cdCommand(1, track) == "false"_L1) {
    stop();
    showDisc();
    return;
  }
  panel_.MusicTimer->enabled = true;
}

void CdPlayer::playSong(int row) {
  uses_.transport.startFrom(MusicList::DiscTracks);
  uses_.database.resetPlaySongs();
  for (int i = 1; i <= panel_.grid->maxRows(); ++i)
    uses_.database.addPlaySong({panel_.grid->cell(1, i), {}, {}, {}, {}, panel_.grid->cell(3, i)});
  uses_.transport.playSongRecord(row);
}

PlayMode CdPlayer::mode() const {
  return uses_.state.playsDiscAudio() ? uses_.state.gPlayMode : PlayMode::Stopped;
}

void CdPlayer::press(TransportButton button) {
  const PlayMode playMode = uses_.state.gPlayMode;
  switch (button) {
    case TransportButton::Play:
      return playMode == PlayMode::Paused ? goOn() : playRow(std::max(panel_.grid->row(), 1));
    case TransportButton::Pause:
      if (playMode == PlayMode::Paused) return goOn();
      if (playMode == PlayMode::Playing) pause();
      return;
    case TransportButton::Stop:
      return stop();
    case TransportButton::Next:
      return cdCommand(11) == "OPEN"_L1 ? stop() : step(+1);
    case TransportButton::Previous:
      return step(-1);
    case TransportButton::Repeat:
    case TransportButton::Random:
    case TransportButton::Continue:
      return uses_.transport.press(button);
  }
}

void CdPlayer::goOn() {
  const QString position = cdCommand(10);
  if (position == "false"_L1) return stop();
  cdCommand(0, position.left(2).toInt(), secondsAt(position, 3));
  showPlaying(PlayMode::Playing, u"CD Playing"_s);
  panel_.MusicTimer->enabled = true;
}

void CdPlayer::pause() {
  cdCommand(3);
  panel_.MusicTimer->enabled = false;
  showPlaying(PlayMode::Paused, u"CD Paused"_s);
}

void CdPlayer::stop() {
  cdCommand(2);
  uses_.state.gCdTrack = 0;
  panel_.MusicTimer->enabled = false;
  panel_.Slider1->value = 0;
  panel_.Slider1->text = u"--:--:--"_s;
  panel_.TxtTime->caption = u"--:--:--"_s;
  panel_.lblDuration->caption = QString();
  panel_.lblCurrentPlayList->caption = QString();
  showPlaying(PlayMode::Stopped, u"CD Stopped"_s);
}

void CdPlayer::step(int by) {
  const Disc* disc = uses_.drive.disc();
  if (!disc) return getCDTracks();
  const int count = static_cast<int>(disc->tracks.size());
  int track = uses_.state.gCdTrack > 0 ? uses_.state.gCdTrack : std::max(panel_.grid->row(), 1);
  for (int tried = 0; tried < count; ++tried) {
    track = stepInList(track, count, by);
    if (disc->at(track).audio) return startTrack(track);
  }
}

void CdPlayer::moveTo(double seconds) {
  const int track = uses_.state.gCdTrack;
  if (track == 0 || uses_.state.gPlayMode == PlayMode::Stopped) return;
  const int length = secondsAt(cdCommand(8, track), 0);
  cdCommand(0, track, std::clamp(static_cast<int>(seconds), 0, std::max(length - 1, 0)));
  showPlaying(PlayMode::Playing, u"CD Seeking"_s);
  panel_.MusicTimer->enabled = true;
}

void CdPlayer::MusicTimer_Timer() {
  if (!uses_.state.playsDiscAudio() || uses_.state.sliderHeld) return;
  const QString mode = cdCommand(11);
  if (mode == "SEEK"_L1) return;
  if (mode == "STOPPED"_L1 || mode == "OPEN"_L1) {
    const QString trouble = uses_.drive.trouble();
    stop();
    if (mode == "OPEN"_L1) panel_.grid->clear();
    if (!trouble.isEmpty()) uses_.log.logIt(u"CD: "_s + trouble);
    return;
  }
  const QString position = cdCommand(10);
  if (position == "false"_L1) {
    stop();
    panel_.Slider1->text = QString();
    return;
  }
  takePosition(position);
}

void CdPlayer::takePosition(const QString& position) {
  const int track = position.left(2).toInt();
  if (track != uses_.state.gCdTrack) {
    const int seconds = secondsAt(cdCommand(8, track), 0);
    panel_.Slider1->maximum = std::max(seconds, 1);
    uses_.connection.DisplayDuration(seconds);
    panel_.lblCurrentPlayList->caption = uses_.drive.disc()->at(track).title;
    uses_.state.gCdTrack = track;
    panel_.grid->SetActiveCell(1, track);
  }
  panel_.lblCurrentPlay->caption = u"CD Playing"_s;
  panel_.Slider1->value = secondsAt(position, 3);
  uses_.connection.ShowSliderTimes();
}

void CdPlayer::stopCd() {
  cdCommand(2);
  cdCommand(5);
}

}  // namespace korvane

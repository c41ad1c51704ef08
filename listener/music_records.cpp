// A statement whose field is missing or no number is skipped; the others of its record still run.
// What a handler changes in the state is there before the captions change: who mirrors a caption
// reads the state with it.
#include "listener/music_records.h"

namespace korvane {

const MusicRecords::Entry MusicRecords::kRecords[] = {
    {"MUSICTIMER", &MusicRecords::musicTimer},
    {"MUSICDURATION", &MusicRecords::musicDuration},
    {"MEDIAPLAYERSTATE", &MusicRecords::mediaPlayerState},
    {"SONGPLAYING", &MusicRecords::songPlaying},
    {"ENDOFSTREAM", &MusicRecords::endOfStream},
    {"ERROR", &MusicRecords::error},
    {"PAUSETOPLAY", &MusicRecords::pauseToPlay},
    {"VOLUME", &MusicRecords::volume},
    {"MAXVOLUME", &MusicRecords::maxVolume},
    {"RECEIVEJPG", &MusicRecords::receiveJpg},
};

MusicRecords::MusicRecords(Uses uses)
    : uses_(std::move(uses)),
      cover_(uses_.files, uses_.home),
      trouble_(uses_.messages, uses_.pump) {}

bool MusicRecords::isAnswer(QByteArrayView block) const {
  return cover_.receivingCoverArt() || block.contains(kRecordEnd);
}

void MusicRecords::deliver(const QByteArray& block, WireText encoding) {
  if (!cover_.receivingCoverArt()) return handle(block, encoding);
  if (const auto image = cover_.take(block)) uses_.presenter.showCover(*image);
}

void MusicRecords::handle(QByteArrayView block, WireText encoding) {
  forEachRecord(block, [&](QByteArrayView bytes) {
    const ListenerRecord record(bytes, encoding);
    for (const Entry& entry : kRecords) {
      if (entry.name != record.name()) continue;
      (this->*entry.handle)(record);
      break;
    }
    return !cover_.receivingCoverArt();
  });
}

void MusicRecords::listenerGone() {
  const bool shown = shows();
  if (shown) uses_.state.gSongPlayingTitle.clear();
  if (shown && news_) news_->playerStopped();
  uses_.state.gPlayMode = PlayMode::Stopped;
  if (shown) uses_.presenter.backToStart();
  uses_.songs.forget();
}

void MusicRecords::receiveJpg(const ListenerRecord& record) {
  if (const auto coverArtSize = record.whole(1)) cover_.begin(*coverArtSize);
}

void MusicRecords::musicTimer(const ListenerRecord& record) {
  const auto position = record.number(2);
  if (position.value_or(0) > 0) uses_.songs.sounds();
  if (uses_.state.sliderHeld || !shows()) return;
  if (position && isTime(*position)) uses_.presenter.showPosition(*position);
  uses_.presenter.ShowSliderTimes();
}

void MusicRecords::musicDuration(const ListenerRecord& record) {
  const auto seconds = record.number(1);
  if (seconds && isTime(*seconds) && shows()) uses_.presenter.showLength(*seconds);
}

void MusicRecords::endOfStream(const ListenerRecord&) {
  uses_.songs.ended();
}

void MusicRecords::error(const ListenerRecord& record) {
  if (const auto text = record.text(1)) trouble_.say(*text);
  uses_.songs.failed();
}

void MusicRecords::maxVolume(const ListenerRecord& record) {
  uses_.reports.takeMaxVolume(record);
}

void MusicRecords::volume(const ListenerRecord& record) {
  uses_.reports.takeVolume(record, uses_.presenter);
}

void MusicRecords::pauseToPlay(const ListenerRecord&) {
  uses_.state.gPlayMode = PlayMode::Playing;
  if (!shows()) return;
  uses_.state.gMusicState = MusicState::Play;
  uses_.presenter.showResumed();
}

void MusicRecords::mediaPlayerState(const ListenerRecord& record) {
  const auto number = record.whole(1);
  if (!number || std::abs(*number) > 1000) return;
  const auto mode = playModeOf(static_cast<int>(*number));
  if (!mode || *mode == uses_.state.gPlayMode) return;
  uses_.state.gPlayMode = *mode;
  if (!shows()) return;
  if (*mode == PlayMode::Playing) uses_.state.gMusicState = MusicState::Play;
  if (!news_) return;
  if (*mode == PlayMode::Paused) news_->playerPaused();
  if (*mode == PlayMode::Stopped) news_->playerStopped();
}

void MusicRecords::songPlaying(const ListenerRecord& record) {
  uses_.songs.plays();
  const auto title = record.text(1);
  if (!title || !shows()) return;
  uses_.state.gSongPlayingTitle = *title;
  uses_.presenter.showTitle(*title);
}

}  // namespace korvane

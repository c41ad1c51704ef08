// A statement whose field is missing or no number is skipped; the others of its record still run.
// What a handler changes in the state is there before the captions change: who mirrors a caption
// reads the state with it.
#include "listener/movie_records.h"

namespace korvane {

const MovieRecords::Entry MovieRecords::kRecords[] = {
    {"MOVIETIMER", &MovieRecords::movieTimer},
    {"DVDMOVIETIMER", &MovieRecords::dvdMovieTimer},
    {"MOVIEDURATION", &MovieRecords::movieDuration},
    {"MOVIEPLAYERSTATE", &MovieRecords::moviePlayerState},
    {"MOVIEPLAYING", &MovieRecords::moviePlaying},
    {"MOVIESCREEN", &MovieRecords::movieScreen},
    {"MOVIEERROR", &MovieRecords::movieError},
    {"PAUSETOPLAY", &MovieRecords::pauseToPlay},
    {"VOLUME", &MovieRecords::volume},
    {"MAXVOLUME", &MovieRecords::maxVolume},
};

void MovieRecords::handle(QByteArrayView block, WireText encoding) {
  forEachRecord(block, [&](QByteArrayView bytes) {
    const ListenerRecord record(bytes, encoding);
    if (waiting_ && shows()) takeState(*waiting_);
    for (const Entry& entry : kRecords) {
      if (entry.name != record.name()) continue;
      (this->*entry.handle)(record);
      break;
    }
    return !std::exchange(dropsRest_, false);
  });
}

void MovieRecords::listenerGone() {
  title_.clear();
  waiting_.reset();
  if (!shows()) return;
  uses_.state.gSongPlayingTitle.clear();
  uses_.state.gMusicState = MusicState::Stop;
  uses_.presenter.backToStart();
  if (news_) news_->movieStopped();
}

// Behind the time of a disc stand the other reports of the same moment, which are out of date as
// soon as the finger lets go.
void MovieRecords::dvdMovieTimer(const ListenerRecord& record) {
  dropsRest_ = uses_.state.sliderHeld;
  if (dropsRest_ || !shows()) return;
  const auto length = record.number(3);
  if (length && isTime(*length)) uses_.presenter.showLength(*length);
  showTime(record);
}

void MovieRecords::movieTimer(const ListenerRecord& record) {
  if (!uses_.state.sliderHeld && shows()) showTime(record);
}

void MovieRecords::showTime(const ListenerRecord& record) {
  if (const auto text = record.text(1)) uses_.presenter.showSliderText(*text);
  const auto position = record.number(2);
  if (position && isTime(*position)) uses_.presenter.showPositionWithin(*position);
}

void MovieRecords::movieDuration(const ListenerRecord& record) {
  const auto seconds = record.number(1);
  if (seconds && isTime(*seconds) && shows()) uses_.presenter.showLength(*seconds);
}

void MovieRecords::movieError(const ListenerRecord& record) {
  const auto text = record.text(1);
  if (!text || !shows()) return;  // of a movie that has been left for other things
  title_.clear();
  if (news_) news_->movieFailed(*text);
}

void MovieRecords::maxVolume(const ListenerRecord& record) {
  uses_.reports.takeMaxVolume(record);
}

void MovieRecords::volume(const ListenerRecord& record) {
  uses_.reports.takeVolume(record, uses_.presenter);
}

void MovieRecords::pauseToPlay(const ListenerRecord&) {
  takeState(MusicState::Play);
  if (shows()) uses_.presenter.showResumed();
}

void MovieRecords::moviePlayerState(const ListenerRecord& record) {
  if (record.field(1) == "PLAYING") takeState(MusicState::Play);
  if (record.field(1) == "PAUSED") takeState(MusicState::Paused);
  if (record.field(1) == "STOP") takeState(MusicState::Stop);
}

// One that plays is taken as it is: pressing play would begin the row that is chosen here. While
// the transport is another player's the state waits, and is taken with the first record after that.
void MovieRecords::takeState(MusicState now) {
  if (now == MusicState::Stop) title_.clear();
  if (!shows()) {
    waiting_ = now;
    return;
  }
  const bool waited = waiting_.has_value();
  waiting_.reset();
  if (now == std::exchange(uses_.state.gMusicState, now)) return;
  if (waited && !title_.isEmpty()) showTitle();
  if (!news_) return;
  switch (now) {
    case MusicState::Play:
      return news_->moviePlays();
    case MusicState::Paused:
      return news_->moviePaused();
    case MusicState::Stop:
      return news_->movieStopped();
  }
}

void MovieRecords::moviePlaying(const ListenerRecord& record) {
  const auto title = record.text(1);
  if (!title) return;
  title_ = *title;
  if (shows()) showTitle();
}

void MovieRecords::showTitle() {
  uses_.state.gSongPlayingTitle = title_;
  uses_.presenter.showTitle(title_);
  if (news_) news_->movieTitled(title_);
}

void MovieRecords::movieScreen(const ListenerRecord& record) {
  if (record.field(1) == "NORMAL" && news_) news_->movieScreenIsLarge();
}

}  // namespace korvane

#include "movies/movie_transport.h"

namespace korvane {

MovieTransport::MovieTransport(Uses uses) : uses_(uses) {
  uses_.connection.setNews(this);
  uses_.dvd.setNews(this);
}

bool MovieTransport::here() const {
  if (mode_ == PlayMode::Stopped) return false;
  return playing_.by == By::Disc || (playing_.by == By::Connection && !uses_.state.gMovieListener);
}

// In the cabin a folder with a DVD is the Listener's to play, as a file is.
std::optional<MovieTransport::Movie> MovieTransport::chosen() const {
  switch (uses_.state.gMovieType) {
    case MovieType::Dvd:
      return Movie{By::Disc, u"DVD"_s, {}, true};
    case MovieType::ListenerDvd:
      return Movie{By::ListenerDisc, u"DVD"_s, {}, true};
    case MovieType::Digital:
      break;
  }
  const MovieRow* row = uses_.catalogue.active();
  if (!row) return {};
  const bool disc = row->dvd && !uses_.state.gMovieListener;
  return Movie{disc ? By::Disc : By::Connection, row->name, row->path, row->dvd};
}

void MovieTransport::press(TransportButton button) {
  switch (button) {
    case TransportButton::Play:
      return play();
    case TransportButton::Pause:
      return pause();
    case TransportButton::Stop:
      return stop();
    case TransportButton::Previous:
      return chapter(-1);
    case TransportButton::Next:
      return chapter(+1);
    case TransportButton::Repeat:
    case TransportButton::Random:
    case TransportButton::Continue:
      return;
  }
}

void MovieTransport::play() {
  if (mode_ == PlayMode::Paused) return goOn();
  const std::optional<Movie> wanted = chosen();
  if (!wanted || (mode_ == PlayMode::Playing && *wanted == playing_)) return;
  if (mode_ == PlayMode::Playing) stop();
  start(*wanted);
}

void MovieTransport::playActive() {
  const std::optional<Movie> wanted = chosen();
  if (mode_ != PlayMode::Stopped && wanted && *wanted != playing_) stop();
  play();
}

void MovieTransport::start(const Movie& movie) {
  uses_.players.starts(*this);
  playing_ = movie;
  uses_.presenter.backToStart();
  become(PlayMode::Playing);
  showStatus();
  switch (movie.by) {
    case By::Connection:
      uses_.connection.ConnectionMovieSend(u"MOVIE"_s, u"PLAY"_s, movie.path, movie.title);
      break;
    case By::ListenerDisc:
      uses_.connection.ConnectionMovieSend(u"DVDP"_s, u"PLAY"_s);
      break;
    case By::Disc:
      if (movie.path.isEmpty())
        uses_.dvd.playDisc();
      else
        uses_.dvd.playFolder(movie.path);
      return;
  }
  // A Listener that cannot be reached plays nothing, whatever was sent.
  if (!uses_.state.gMovieListener || uses_.connection.connectionState() == Winsock::Connected)
    return;
  if (mode_ == PlayMode::Playing) become(PlayMode::Stopped);
  uses_.presenter.showStatus(u"Status: Movie Listener not connected"_s);
}

void MovieTransport::goOn() {
  become(PlayMode::Playing);
  switch (playing_.by) {
    case By::Connection:
      return uses_.connection.ConnectionMovieSend(u"MOVIE"_s, u"PLAY"_s, playing_.path,
                                                  playing_.title);
    case By::ListenerDisc:
      return uses_.connection.ConnectionMovieSend(u"DVDP"_s, u"PLAY"_s);
    case By::Disc:
      return uses_.dvd.goOn();
  }
}

void MovieTransport::pause() {
  if (mode_ != PlayMode::Playing) return;
  become(PlayMode::Paused);
  if (playing_.by == By::Disc)
    uses_.dvd.pause();
  else
    send(u"PAUSE"_s);
}

void MovieTransport::showStatus() {
  if (mode_ == PlayMode::Stopped || !uses_.players.shows(*this)) return;
  const bool disc = playing_.dvd && playing_.path.isEmpty();
  uses_.presenter.showStatus(disc ? u"Playing  DVD "_s : u"Playing  movie "_s + playing_.title);
}

// Also where nothing seems to play: the Listener may be at work for another console.
void MovieTransport::stop() {
  const bool played = mode_ != PlayMode::Stopped;
  become(PlayMode::Stopped);
  if (played && playing_.by == By::Disc) return uses_.dvd.stop();
  if (played || uses_.state.gMovieListener) send(u"STOP"_s);
}

void MovieTransport::chapter(int by) {
  if (mode_ == PlayMode::Stopped || !playing_.dvd) return;
  if (playing_.by != By::Disc)
    return uses_.connection.ConnectionMovieSend(u"DVDP"_s,
                                                by < 0 ? u"PREVCHAPTER"_s : u"NEXTCHAPTER"_s);
  by < 0 ? uses_.dvd.previousChapter() : uses_.dvd.nextChapter();
}

void MovieTransport::moveTo(double seconds) {
  if (mode_ == PlayMode::Stopped) return;
  if (playing_.by == By::Disc)
    uses_.dvd.moveTo(seconds);
  else
    send(u"CURRENTPOSITION"_s, numberText(seconds));
}

double MovieTransport::level() const {
  return uses_.state.gMovieListener ? uses_.connection.listenerVolume : uses_.level.now();
}

double MovieTransport::levelMaximum() const {
  return uses_.state.gMovieListener ? uses_.connection.listenerMaxVolume : uses_.level.maximum();
}

void MovieTransport::setLevel(double level) {
  uses_.connection.ConnectionMovieSend(u"MOVIE"_s, u"VOLUME"_s,
                                       QString::number(std::llround(level)));
}

void MovieTransport::setMute(bool on) {
  const bool disc = uses_.state.gMovieType == MovieType::ListenerDvd;
  uses_.connection.ConnectionMovieSend(disc ? u"DVDP"_s : u"MOVIE"_s,
                                       on ? u"MUTE=TRUE"_s : u"MUTE=FALSE"_s);
}

void MovieTransport::send(const QString& command, const QString& argument) {
  const bool disc = mode_ == PlayMode::Stopped ? uses_.state.gMovieType == MovieType::ListenerDvd
                                               : playing_.by == By::ListenerDisc;
  uses_.connection.ConnectionMovieSend(disc ? u"DVDP"_s : u"MOVIE"_s, command, argument);
}

// What the shared controls show follows while nothing else is heard.
void MovieTransport::become(PlayMode mode) {
  mode_ = mode;
  if (uses_.players.shows(*this)) {
    uses_.state.gMusicState = musicStateOf(mode);
    uses_.main.showPlayState(mode);
    if (mode == PlayMode::Stopped) showIdle();
  }
  uses_.awake.need(this, mode == PlayMode::Playing && here());
  uses_.addTimer.rest(this, mode != PlayMode::Stopped);
  for (const auto& hear : changed) hear();
}

void MovieTransport::showIdle() {
  uses_.presenter.showNoTime();
  uses_.presenter.showStatus(u"Status: Idle"_s);
}

// At the word of another console; what plays there is not started again from here.
void MovieTransport::moviePlays() {
  if (mode_ == PlayMode::Playing) return;
  if (mode_ == PlayMode::Stopped)
    playing_ = {
        uses_.state.gMovieType == MovieType::ListenerDvd ? By::ListenerDisc : By::Connection,
        playing_.title,
        {},
        uses_.state.gMovieType == MovieType::ListenerDvd};
  become(PlayMode::Playing);
}

void MovieTransport::moviePaused() {
  if (mode_ != PlayMode::Paused) become(PlayMode::Paused);
}

void MovieTransport::movieStopped() {
  if (mode_ != PlayMode::Stopped) become(PlayMode::Stopped);
}

// Once a movie: a Listener may say it again and again.
void MovieTransport::movieFailed(const QString& text) {
  if (mode_ == PlayMode::Stopped) return;
  movieStopped();
  uses_.connection.sayTrouble(text);
}

void MovieTransport::discIn() {
  if (uses_.tabs.open(kMoviesTab) && uses_.state.gMovieType == MovieType::Dvd &&
      mode_ == PlayMode::Stopped)
    uses_.players.press(*this, TransportButton::Play);
}

void MovieTransport::discOut() {
  if (playing_.by == By::Disc && playing_.path.isEmpty() && mode_ != PlayMode::Stopped)
    uses_.players.press(*this, TransportButton::Stop);
}

}  // namespace korvane

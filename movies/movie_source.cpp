#include "movies/movie_source.h"

namespace korvane {

MovieSourceIs MovieSource::source() const {
  if (uses_.state.gMovieType != MovieType::Digital) return MovieSourceIs::DvdPlayer;
  return uses_.state.gMovieDigitalPlaying ? MovieSourceIs::DvdFolders : MovieSourceIs::Files;
}

bool MovieSource::refuses(const QString& what) {
  if (uses_.state.gMusicState == MusicState::Stop) return false;
  uses_.messages.say(u"Stop what plays first, then choose where "_s + what);
  return true;
}

// The Listener has a DVD player of its own: its disc is meant where exactly "1" says that movies
// play through it.
void MovieSource::lblMovieType_Click(int index) {
  const auto wanted = static_cast<MovieSourceIs>(index);
  if (wanted == source() && wanted != MovieSourceIs::DvdPlayer) return fillList();
  if (refuses(u"movies come from."_s)) return;
  AppState& state = uses_.state;
  if (wanted == MovieSourceIs::DvdPlayer) {
    state.gMovieType = MovieType::Dvd;
    uses_.dvd.takeRealDisc();
    state.gMovieListener = uses_.settings.str(key::MovieListener) == "1"_L1;
    if (state.gMovieListener) state.gMovieType = MovieType::ListenerDvd;
    showRole();
  } else {
    state.gMovieType = MovieType::Digital;
    state.gMovieDigitalPlaying = wanted == MovieSourceIs::DvdFolders;
  }
  uses_.settings.SaveSetting(u"KRV"_s, u"MOVIES"_s, u"MOVIETYPE"_s,
                             wanted == MovieSourceIs::DvdPlayer ? u"DVD"_s : u"DIGITAL"_s);
  showSource();
  fillList();
  changed();
}

void MovieSource::fillList() {
  switch (source()) {
    case MovieSourceIs::Files:
      return uses_.catalogue.SetupFiles();
    case MovieSourceIs::DvdFolders:
      return uses_.catalogue.SetupFilesDigital();
    case MovieSourceIs::DvdPlayer:
      return;
  }
}

void MovieSource::showSource() {
  const MovieSourceIs is = source();
  using enum MovieSourceIs;
  panel_.lblMovieType[0]->setPicture(u"movies"_s,
                                     is == Files ? u"DigitalMovieOn"_s : u"DigitalMovieOFF"_s);
  panel_.lblMovieType[1]->setPicture(u"movies"_s,
                                     is == DvdPlayer ? u"DVDPlayerON"_s : u"DVDPlayerOff"_s);
  panel_.lblMovieType[2]->setPicture(u"movies"_s,
                                     is == DvdFolders ? u"DVDDigitalOn"_s : u"DVDDigitalOff"_s);
  const bool disc = is == DvdPlayer;
  panel_.previous->toolTip = disc ? u"Previous Chapter"_s : u"Skip back one in the play list"_s;
  panel_.next->toolTip = disc ? u"Next Chapter"_s : u"Jump forward one in the play list"_s;
}

void MovieSource::lblMoviesPlay_Click(int index) {
  if (refuses(u"movies play."_s)) return;
  uses_.state.gMovieListener = index != 0;
  AppState& state = uses_.state;
  if (state.gMovieType != MovieType::Digital)
    state.gMovieType = state.gMovieListener ? MovieType::ListenerDvd : MovieType::Dvd;
  if (state.gMovieListener) uses_.connection.ConnectionMovieConnect();
  showRole();
  changed();
}

void MovieSource::settleRole() {
  showSource();
  showRole();
  if (uses_.state.gMovieListener && !uses_.state.gMovieListenerPort.isEmpty())
    uses_.connection.connectAgain();
}

void MovieSource::showRole() {
  const bool cabin = uses_.state.gMovieListener;
  panel_.lblMoviesPlay[0]->setPicture(u"movies"_s, cabin ? u"AtSeatOff"_s : u"AtSeatOn"_s);
  panel_.lblMoviesPlay[1]->setPicture(u"movies"_s, cabin ? u"InCabinOn"_s : u"InCabinOff"_s);
}

}  // namespace korvane

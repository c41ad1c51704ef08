#include "movies/movies_tab.h"

namespace korvane {

MoviesTab::MoviesTab(Uses uses)
    : uses_(uses),
      parts_(uses.parts),
      panel_(uses.parts.form),
      page_(uses.parts.form, {"MovieList", "cmdMovieFullScreen", "MoviePic", "MSWebDVD1",
                              "lblMovieNote", "cmdMenuforDVD", "cmdRemoteDVD", "framMovieSays"}),
      remote_(uses.parts.form, {"cmdRemoteDVD"}),
      types_(uses.parts.form, {"lblMovieType"}),
      roles_(uses.parts.form, {"lblMoviesPlay"}),
      listPlay_(uses.parts.form,
                {"cmdControls#0", "cmdControls#4", "cmdControls#5", "cmdControls#6"}) {}

// What plays at this seat is paused, since its picture goes. In the cabin it goes on where the
// transport follows what is heard.
void MoviesTab::leave() {
  entered_ = false;
  uses_.full.set(false);
  if (!parts_.state.gMovieListener || !parts_.settings.flag(key::FollowSound)) {
    if (uses_.transport.mode() == PlayMode::Playing) uses_.transport.press(TransportButton::Pause);
  }
  page_.hide();
  roles_.hide();
  types_.hide();
  panel_.mute->setPicture(u"music"_s, u"mute"_s);
  parts_.tabPicture(kMoviesTab, u"movies"_s, u"movies"_s);
  listPlay_.show();
  parts_.paging.hide();
  panel_.grid.at(static_cast<size_t>(parts_.state.gridMode))->visible = true;
}

void MoviesTab::enter() {
  entered_ = true;
  parts_.main.setBackground(u"movies"_s);
  parts_.main.HideAllGrids();
  roles_.show(parts_.state.gLocalServer);
  types_.show();
  parts_.showSound();
  parts_.status.show();
  showMute();
  parts_.tabPicture(kMoviesTab, u"movies"_s, u"moviesb"_s);
  parts_.top.hide();
  parts_.main.showPlayState(playModeOf(parts_.state.gMusicState));
  using enum TransportButton;
  for (const TransportButton button : {Repeat, Random, Continue})
    panel_.cmdControls[at(button)]->visible = false;
  uses_.transport.showStatus();
  showPage();
  uses_.source.fillList();
  if (parts_.state.gMovieListener) uses_.connection.ConnectionMovieConnect();
  uses_.connection.ConnectionMovieSend(u"MOVIE"_s, u"STATUS"_s);
}

void MoviesTab::showPage() {
  if (!entered_) return;
  const MovieTransport& transport = uses_.transport;
  const MovieType type = parts_.state.gMovieType;
  const bool file = transport.showsFile(), disc = transport.showsDisc();
  const bool stopped = transport.mode() == PlayMode::Stopped;
  const bool list = type == MovieType::Digital && !file && !disc;
  panel_.MoviePic->visible = file;
  panel_.MSWebDVD1->visible = disc;
  panel_.MovieList->visible = list;
  if (list)
    parts_.paging.show(*panel_.MovieList);
  else
    parts_.paging.hide();
  remote_.show(type == MovieType::ListenerDvd);
  panel_.cmdMenuforDVD->visible = type == MovieType::Dvd || disc;
  panel_.cmdMovieFullScreen->visible = type != MovieType::ListenerDvd;
  const bool chapters = type != MovieType::Digital || (!stopped && transport.playing().dvd);
  for (const TransportButton step : {TransportButton::Previous, TransportButton::Next})
    panel_.cmdControls[at(step)]->visible = chapters;
  showNote();
}

// In the place of the list, where there is none.
void MoviesTab::showNote() {
  const bool disc = parts_.state.gMovieType == MovieType::Dvd;
  panel_.lblMovieNote->visible = disc && !uses_.transport.showsDisc();
  panel_.lblMovieNote->caption = u"Put a DVD into the drive, then press Play."_s;
}

void MoviesTab::showMute() {
  panel_.mute->setPicture(u"music"_s, panel_.mute->tag().endsWith(u'1') ? u"muteb"_s : u"mute"_s);
}

Grid* MoviesTab::list() {
  return panel_.MovieList;
}

void MoviesTab::cmdRemoteDVD_Click(int index) {
  constexpr const char* kKeys[] = {"ENTER", "UPPER", "RIGHT", "LOWER", "LEFT"};
  if (index < 0 || index >= static_cast<int>(std::size(kKeys))) return;
  uses_.connection.ConnectionMovieSend(u"DVDP"_s, QString::fromLatin1(kKeys[index]));
}

}  // namespace korvane

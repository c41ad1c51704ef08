#include "movies/movies_tab.h"

namespace korvane {

MoviesTab::MoviesTab(TabParts& parts)
    : parts_(parts),
      panel_(parts.form),
      list_(parts.form, {"MovieList", "cmdMovieFullScreen"}),
      picture_(parts.form, {"MoviePic", "MSWebDVD1"}),
      remote_(parts.form, {"cmdRemoteDVD"}),
      menu_(parts.form, {"cmdMenuforDVD"}),
      types_(parts.form, {"lblMovieType"}),
      roles_(parts.form, {"lblMoviesPlay"}),
      listPlay_(parts.form, {"cmdControls#0", "cmdControls#4", "cmdControls#5", "cmdControls#6"}) {}

void MoviesTab::leave() {
  menu_.hide();
  remote_.hide();
  roles_.hide();
  types_.hide();
  panel_.mute->setPicture(u"music"_s, u"mute"_s);
  panel_.movieTimer->enabled = false;
  parts_.tabPicture(kMoviesTab, u"movies"_s, u"movies"_s);
  picture_.hide();
  list_.hide();
  listPlay_.show();
  parts_.paging.hide();
  panel_.grid.at(static_cast<size_t>(parts_.state.gridMode))->visible = true;
}

void MoviesTab::enter() {
  parts_.main.setBackground(u"movies"_s);
  parts_.main.HideAllGrids();
  roles_.show(parts_.state.gLocalServer);
  types_.show();
  parts_.showSound();
  parts_.status.show();
  remote_.show(parts_.state.gMovieType == MovieType::ListenerDvd);
  showMute();
  list_.show();
  parts_.paging.show(*list());
  parts_.tabPicture(kMoviesTab, u"movies"_s, u"moviesb"_s);
  parts_.top.hide();
  menu_.show(parts_.state.gMovieType == MovieType::Dvd);
  parts_.main.showPlayState(playModeOf(parts_.state.gMusicState));
  using enum TransportButton;
  for (const TransportButton button : {Previous, Next, Repeat, Random, Continue})
    panel_.cmdControls[at(button)]->visible = false;
}

void MoviesTab::showMute() {
  panel_.mute->setPicture(u"music"_s, panel_.mute->tag().endsWith(u'1') ? u"muteb"_s : u"mute"_s);
}

Grid* MoviesTab::list() {
  return panel_.MovieList;
}

void MoviesTab::lblMoviesPlay_Click(int index) {
  if (parts_.state.gMusicState != MusicState::Stop) return;
  const bool cabin = index == 1;
  parts_.state.gMovieListener = cabin;
  panel_.lblMoviesPlay[0]->setPicture(u"movies"_s, cabin ? u"AtSeatOff"_s : u"AtSeatOn"_s);
  panel_.lblMoviesPlay[1]->setPicture(u"movies"_s, cabin ? u"InCabinOn"_s : u"InCabinOff"_s);
}

}  // namespace korvane

#include "movies/movies_tab.h"

namespace korvane {

MoviesTab::MoviesTab(TabParts& parts)
    : parts_(parts),
      list_(parts.form, {"MovieList", "cmdMovieFullScreen"}),
      picture_(parts.form, {"MoviePic", "MSWebDVD1"}),
      remote_(parts.form, {"cmdRemoteDVD"}),
      menu_(parts.form, {"cmdMenuforDVD"}),
      types_(parts.form, {"lblMovieType"}),
      roles_(parts.form, {"lblMoviesPlay"}),
      listPlay_(parts.form, {"cmdControls#0", "cmdControls#4", "cmdControls#5", "cmdControls#6"}) {
  static constexpr const char* keys[] = {"enter", "up", "right", "down", "left"};
  for (int i = 0; i < 5; ++i)
    parts.form.find(u"cmdRemoteDVD", i)->setPicture(u"music"_s, QString::fromLatin1(keys[i]));
}

void MoviesTab::leave() {
  AppState& state = parts_.state;
  menu_.hide();
  remote_.hide();
  roles_.hide();
  types_.hide();
  parts_.form.find(u"mute")->setPicture(u"music"_s, u"mute"_s);
  parts_.form.find(u"movieTimer")->enabled = false;
  parts_.tabPicture(kMoviesTab, u"movies"_s, u"movies"_s);
  picture_.hide();
  list_.hide();
  listPlay_.show();
  parts_.paging.hide();
  if (Control* grid = parts_.form.find(u"Grid", static_cast<int>(state.gridMode)))
    grid->visible = true;
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
  parts_.form.find(u"cmdControls", 0)->visible = false;
  parts_.form.find(u"cmdControls", 4)->visible = false;
  parts_.paging.show(*list());
  parts_.tabPicture(kMoviesTab, u"movies"_s, u"moviesb"_s);
  parts_.top.hide();
  menu_.show(parts_.state.gMovieType == MovieType::Dvd);
  parts_.main.showPlayState(playModeOf(parts_.state.gMusicState));
  for (int i : {5, 6, 7}) parts_.form.find(u"cmdControls", i)->visible = false;
}

void MoviesTab::showMute() {
  Control* mute = parts_.form.find(u"mute");
  mute->setPicture(u"music"_s, mute->tag().endsWith(u'1') ? u"muteb"_s : u"mute"_s);
}

Grid* MoviesTab::list() {
  return &controlOf<Grid>(parts_.form, u"MovieList");
}

void MoviesTab::lblMoviesPlay_Click(int index) {
  if (parts_.state.gMusicState != MusicState::Stop) return;
  const bool cabin = index == 1;
  parts_.state.gMovieListener = cabin;
  parts_.form.find(u"lblMoviesPlay", 0)
      ->setPicture(u"movies"_s, cabin ? u"AtSeatOff"_s : u"AtSeatOn"_s);
  parts_.form.find(u"lblMoviesPlay", 1)
      ->setPicture(u"movies"_s, cabin ? u"InCabinOn"_s : u"InCabinOff"_s);
}

}  // namespace korvane

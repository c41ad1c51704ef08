// Movies and DVDs: the Movies tab, what plays, its full screen, and the setup of its directories.
#pragma once

#include "listener/listener_side.h"
#include "movies/local_movies.h"
#include "movies/movie_controls.h"
#include "movies/movie_posters.h"
#include "movies/movies_tab.h"
#include "movies/screens/setup_movies_form.h"
#include "playback/playback_side.h"

namespace korvane {

class MoviesSide : private MovieFacts {
 public:
  MoviesSide(Desk& desk, ListenerSide& listener, PlaybackSide& playback);

 private:
  // MovieFacts
  std::optional<Picture> poster(const MovieRow& row) const override;
  QString length(const MovieRow& row) const override;
  QString seen(const MovieRow& row) const override;

  void connectPlaying(Desk& desk, ListenerSide& listener, PlaybackSide& playback);
  void connectControls(Desk& desk);
  void connectSteps(Desk& desk);
  void addWords(Desk& desk);
  void offerTheStart(double seconds);

  const Settings& settings_;
  Grid& MovieList_;
  PlayPresenter presenter_;
  MovieMarks marks_;
  MoviePosters posters_;

 public:
  MovieDirectories directories;
  MovieCatalogue catalogue;
  DvdSeat dvd;
  clsMovies movies;
  MovieTransport transport;
  LocalMovies local;
  MovieSource source;
  FullScreen full;
  MovieSays says;
  MovieControls controls;
  MoviesTab tab;
  SetupMoviesForm setup;
};

}  // namespace korvane

// A movie connection between fakes, beside the music connection that shares the form with it.
#pragma once

#include "listener/movie_connection.h"
#include "tests/listener/music_parts.h"

namespace korvane {

// The transport of the movies, which only keeps what it hears, with the state as it stands then.
struct HeardMovies : MovieNews {
  explicit HeardMovies(const AppState& appState) : state(appState) {}
  void moviePlays() override { hear(u"plays"_s); }
  void moviePaused() override { hear(u"paused"_s); }
  void movieStopped() override { hear(u"stopped"_s); }
  void movieFailed(const QString& text) override { hear(u"failed "_s + text); }
  void movieTitled(const QString& title) override { hear(u"titled "_s + title); }
  void movieScreenIsLarge() override { hear(u"large"_s); }
  void hear(const QString& what) {
    heard << what;
    states << state.gMusicState;
  }

  const AppState& state;
  QStringList heard;
  QList<MusicState> states;
};

struct FakeMovieSeat : MovieSeat {
  void perform(const MovieCommand& c) override {
    performed << QStringList{c.target, c.command, c.argument1, c.argument2}.join(u'|');
    if (onPerform) onPerform();
  }
  QStringList performed;
  std::function<void()> onPerform;
};

struct MovieParts : MusicParts {
  MovieParts() {
    state.gMovieListener = true;
    state.gMovieListenerIP = u"10.0.0.3"_s;
    state.gMovieListenerPort = u"4002"_s;
    movies.setNews(&movieNews);
    movies.setSeat(&seat);
  }
  void stand() {
    movies.ConnectionMovieConnect();
    movieSocket.stand();
    movieSocket.sent.clear();
  }

  FakeWinsock movieSocket;
  HeardMovies movieNews{state};
  FakeMovieSeat seat;
  MovieConnection movies{{form, state, settings, messages, logger, system.pump, movieSocket}};
};

}  // namespace korvane

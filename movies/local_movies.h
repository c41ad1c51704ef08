// The local role of the movie connection: its commands act on the movie player of this seat, and
// the answers are those of a Movie Listener.
#pragma once

#include "core/form/panel.h"
#include "listener/movie_connection.h"
#include "listener/player_level.h"
#include "movies/cls_movies.h"
#include "movies/movie_marks.h"
#include "platform/dvd_player.h"

namespace korvane {

class LocalMovies : public MovieSeat, private VideoPlayer::Events {
 public:
  struct Uses {
    Form& form;
    const AppState& state;
    const Settings& settings;
    MovieConnection& connection;
    clsMovies& movies;
    VideoPlayer& video;
    DvdPlayer& dvd;
    PlayerLevel& level;
    PlayPresenter& presenter;
    MovieMarks& marks;
    Pump& pump;
    std::function<bool()> shows;  // whether the shared slider is the movies' now
  };
  explicit LocalMovies(Uses uses);  // hears the player while it lives
  ~LocalMovies() override;

  void perform(const MovieCommand& command) override;
  void movieTimer_Timer();
  void close();  // at the end of the program; remembers where the movie was left

  // A movie goes on where it was left; the seconds.
  std::function<void(double seconds)> resumed = [](double) {};
  std::function<void()> moved = [] {};     // the position has been shown
  std::function<void()> levelSet = [] {};  // of this machine

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Surface* MoviePic = bind("MoviePic");
    Slider* Slider1 = bind("Slider1");
    Timer* movieTimer = bind("movieTimer");
  };
  using Action = void (LocalMovies::*)(const MovieCommand&);
  struct Entry {
    QLatin1StringView command;
    Action action;
  };
  static const Entry kCommands[];

  void status(const MovieCommand&);
  void play(const MovieCommand&);
  void stop(const MovieCommand&);
  void pause(const MovieCommand&);
  void duration(const MovieCommand&);
  void muteOn(const MovieCommand&);
  void muteOff(const MovieCommand&);
  void volume(const MovieCommand&);
  void currentPosition(const MovieCommand&);
  void resize(const MovieCommand&);

  void endOfMovie() override;
  void durationKnown(double seconds) override;
  void failed(const QString& description) override;

  void setMute(bool on);
  void showLength();
  void showPosition();
  void remember();
  void goOnWhereItWasLeft();
  void reply(std::initializer_list<QString> fields);
  void replyVolume();

  Uses uses_;
  Panel panel_;
  QString path_;         // of the movie at hand; empty for none
  double resumeAt_ = 0;  // seconds, when its length is known
};

}  // namespace korvane

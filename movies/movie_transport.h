// Movies as the transport plays them: a file or a DVD, at this seat or at the Movie Listener. What
// plays is remembered here; what a press on Play means stands in the source and the list.
#pragma once

#include "core/add_timer.h"
#include "core/keep_awake.h"
#include "core/players.h"
#include "listener/movie_connection.h"
#include "listener/player_level.h"
#include "movies/dvd_seat.h"
#include "movies/movie_catalogue.h"

namespace korvane {

class MovieTransport : public Player, public MovieNews, private DvdSeat::News {
 public:
  // Who plays it: the movie connection, here or there by the role; MSWebDVD1; the Listener's own
  // DVD player.
  enum class By { Connection, Disc, ListenerDisc };
  struct Movie {
    By by = By::Connection;
    QString title, path;  // the path is empty for a disc in a drive
    bool dvd = false;     // has chapters and menus
    bool operator==(const Movie&) const = default;
  };
  struct Uses {
    MainForm& main;
    AppState& state;
    TabController& tabs;
    Players& players;
    KeepAwake& awake;
    MovieConnection& connection;
    MovieCatalogue& catalogue;
    DvdSeat& dvd;
    const PlayerLevel& level;  // of this machine
    PlayPresenter& presenter;
    AddTimer& addTimer;
  };
  explicit MovieTransport(Uses uses);

  // Player
  void press(TransportButton button) override;  // Yields.
  PlayMode mode() const override { return mode_; }
  bool canGoOn() const override { return !here() || uses_.tabs.open(kMoviesTab); }
  void moveTo(double seconds) override;
  void showTimes() override { uses_.presenter.ShowSliderTimes(); }
  Sound sound() const override { return Sound::Movies; }
  double level() const override;
  double levelMaximum() const override;
  void setLevel(double level) override;
  void setMute(bool on) override;

  void playActive();  // the active row of the list, whatever plays. Yields.
  void showStatus();  // on the line that all share: what plays or is paused

  const Movie& playing() const { return playing_; }  // or paused; of before while Stopped
  // Whether its picture belongs into MoviePic or MSWebDVD1 of this seat.
  bool showsFile() const { return here() && playing_.by == By::Connection; }
  bool showsDisc() const { return here() && playing_.by == By::Disc; }

  // Something has begun, been paused, or ended.
  std::vector<std::function<void()>> changed;
  std::function<void()> screenIsLarge = [] {};  // the picture fills the Listener's screen
  std::function<void()> moved = [] {};          // the disc: its time, chapter or menu

 private:
  // MovieNews
  void moviePlays() override;
  void moviePaused() override;
  void movieStopped() override;
  void movieFailed(const QString& text) override;
  void movieTitled(const QString& title) override { playing_.title = title; }
  void movieScreenIsLarge() override { screenIsLarge(); }
  // DvdSeat::News
  void discIn() override;
  void discOut() override;
  void discEnded() override { movieStopped(); }
  void discFailed(const QString& description) override { movieFailed(description); }
  void discMoved() override { moved(); }

  bool here() const;
  std::optional<Movie> chosen() const;
  void play();
  void goOn();
  void pause();
  void stop();
  void chapter(int by);
  void start(const Movie& movie);
  void send(const QString& command, const QString& argument = {});
  void become(PlayMode mode);
  void showIdle();

  Uses uses_;
  Movie playing_;
  PlayMode mode_ = PlayMode::Stopped;
};

}  // namespace korvane

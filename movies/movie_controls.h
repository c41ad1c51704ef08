// By key MovieControls: what a finger finds upon the picture in full screen. The first touch shows
// large controls, which go after some seconds without one; a lock keeps stray touches out. Without
// the key the first touch ends the full screen.
#pragma once

#include "core/settings.h"
#include "movies/full_screen.h"
#include "movies/movie_says.h"

namespace korvane {

class MovieControls {
 public:
  static constexpr int kShownMs = 4000;
  static constexpr int kHoldMs = 1000;  // to open the lock

  struct Uses {
    Form& form;
    AppState& state;
    Settings& settings;
    Players& players;
    MovieTransport& transport;
    FullScreen& full;
    VideoPlayer& video;
    DvdSeat& dvd;
    MovieSays& says;
  };
  explicit MovieControls(Uses uses);

  void picture_Click();  // a touch of the picture itself
  void cmdMovie_Click(int index);
  void update();             // time, length, buttons: something has moved or changed
  void fullScreenChanged();  // it has begun or ended
  void applyFit();           // the stored fit, at a start

 private:
  enum Button {
    PlayPause,
    Back,
    On,
    PreviousChapter,
    NextChapter,
    Sound,
    Subtitles,
    Menu,
    Fit,
    Lock,
    Leave
  };
  static constexpr size_t kButtons = 11;

  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Surface* MoviePic = bind("MoviePic");
    Surface* MSWebDVD1 = bind("MSWebDVD1");
    Frame* framMovie = bind("framMovie");
    Frame* framMovieLevel = bind("framMovieLevel");
    std::array<Image*, kButtons> cmdMovie = bind("cmdMovie");
    Label* lblMovieTime = bind("lblMovieTime");
    Label* lblMovieLength = bind("lblMovieLength");
    Slider* sldMovie = bind("sldMovie");
    Slider* sldMovieLevel = bind("sldMovieLevel");
    Slider* scrollVolume = bind("scrollVolume");
    Slider* Slider1 = bind("Slider1");
    Image* cmdMovieLocked = bind("cmdMovieLocked");
    Image* cmdMovieLeave = bind("cmdMovieLeave");
    Timer* MovieControlsTimer = bind("MovieControlsTimer");
    Timer* MovieHoldTimer = bind("MovieHoldTimer");
  };

  void connect();
  void show();
  void hide();
  void stayShown();
  void unlock();
  void step(double seconds);
  void moved();
  void nextTrack(TrackKind kind);
  void nextFit();
  void letPicturePressed();
  bool disc() const { return uses_.transport.showsDisc(); }

  Uses uses_;
  Panel panel_;
  bool locked_ = false, held_ = false;
};

VideoFit videoFitOf(const QString& stored);  // "FILLED", "STRETCHED"; anything else is Whole
QString stored(VideoFit fit);

}  // namespace korvane

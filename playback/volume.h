// The sound level and the mutes: the bar, the two buttons that are held, and an owner's bounds.
#pragma once

#include "core/form/panel.h"
#include "core/main_form.h"
#include "core/settings.h"
#include "core/tab_controller.h"
#include "listener/music_connection.h"

namespace korvane {

// The movie side's own sound, once there is one.
class MovieSound {
 public:
  virtual ~MovieSound() = default;
  // VOLUME with a level, MUTE=TRUE, MUTE=FALSE to "MOVIE" or "DVDP". Yields.
  virtual void ConnectionMovieSend(const QString& target, const QString& command,
                                   const QString& argument = {}) = 0;
};

class Volume {
 public:
  struct Uses {
    AppState& state;
    const Settings& settings;
    const TabController& tabs;
    MusicConnection& music;
    Mixer& mixer;
    const Log& log;
    Pump& pump;
  };
  Volume(Form& form, Uses uses);
  void setMovieSound(MovieSound* movies) { movies_ = movies; }  // not owned

  void scrollVolume_Change();             // the finger moved the bar. Yields.
  void scrollVolumeButton_Press(int by);  // +1 louder, -1 quieter. Yields.
  void scrollVolumeButton_Release();
  void RepeatTimer_Tick();  // while a button is held. Yields.
  void mute_Click();        // of the page: music or movies. Yields.
  void muteMusic();         // from any page. Yields.

  // A player has told its level: the bar follows, and a level above the owner's goes down. Yields.
  void volumeTold();
  // The mixer was changed by another program or has gone.
  void mixerChanged();

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* scrollVolume = bind("scrollVolume");
    Image* ScrollVolumeUp = bind("ScrollVolumeUp");
    Image* ScrollVolumeDN = bind("ScrollVolumeDN");
    Image* mute = bind("mute");
    Label* lblVolume = bind("lblVolume");
    Timer* RepeatTimer = bind("RepeatTimer");
  };
  enum RepeatModes { Still = 0, Quieter = 4, Louder = 5 };
  void toggleMute(bool movies);
  void send(double level);
  void step(double share);
  double ceiling() const;
  void showBar();

  Uses uses_;
  Panel panel_;
  MovieSound* movies_ = nullptr;
  int RepeatMode_ = Still;
};

// The part of the full level that percent of a bar of 2400 steps means; the bar's own share back.
double levelOfBar(double bar, double maximum);
double barOfLevel(double level, double maximum);

}  // namespace korvane

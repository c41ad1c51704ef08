// The sound level and the mutes: the bar, the two buttons that are held, and an owner's ceiling.
// They act on the player that a finger means, and on the music where there is none.
#pragma once

#include "core/form/panel.h"
#include "core/paging.h"
#include "core/players.h"
#include "core/settings.h"
#include "listener/music_connection.h"

namespace korvane {

class Volume {
 public:
  struct Uses {
    AppState& state;
    const Settings& settings;
    const Players& players;
    Player& music;
    Paging& paging;  // repeats a held button
    MusicConnection& connection;
    PlayerLevel& level;  // of this machine
    Mixer& mixer;
    const Log& log;
    Pump& pump;
  };
  Volume(Form& form, Uses uses);

  void scrollVolume_Change();             // the finger moved the bar. Yields.
  void scrollVolumeButton_Press(int by);  // +1 louder, -1 quieter. Yields.
  void scrollVolumeButton_Release();
  void mute_Click();  // of what the finger means, on the Music and the Movies tab. Yields.
  void muteMusic();   // from any page. Yields.
  void showMute();    // of what the finger means

  // A player has reported its level: one above the owner's goes down, and the bar follows when a
  // finger means that player. Yields.
  void volumeTold(Player& player);
  void showLevel();              // of the player that a finger means, on the bar
  void mixerChanged();           // by another program, or it has gone
  void holdCeiling();            // of this machine's own sound, by the mixer or else the player
  void mixerOpened(bool there);  // the console's own sound begins at the owner's level

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* scrollVolume = bind("scrollVolume");
    Image* ScrollVolumeUp = bind("ScrollVolumeUp");
    Image* ScrollVolumeDN = bind("ScrollVolumeDN");
    Image* mute = bind("mute");
    Label* lblVolume = bind("lblVolume");
  };

  Player& meant() const;
  Player::Sound soundMeant() const;
  bool toggleMute(Player::Sound sound);  // true when it is muted now
  void send(double level);
  void step(int by, double share);
  double ceilingOf(double maximum) const;

  Uses uses_;
  Panel panel_;
};

// The level that a place of the bar of 2400 steps means; the bar's own place back. With a maximum
// that is not known the place is the level.
double levelOfBar(double bar, double maximum);
double barOfLevel(double level, double maximum);

}  // namespace korvane

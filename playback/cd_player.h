// The audio CD as the source of music: the choice between CD and digital music, the list of the
// disc's tracks, and the transport's buttons, slider and timer while a disc plays.
//
// The songs of a data disc are an ordinary list: the transport plays them as files.
#pragma once

#include "core/form/panel.h"
#include "core/log.h"
#include "core/settings.h"
#include "playback/cd_command.h"
#include "playback/transport.h"

namespace korvane {

class CdPlayer : public Player, private DiscDrive::Events {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    Screen& screen;
    Settings& settings;
    Messages& messages;
    const Log& log;
    Pump& pump;
    DiscDrive& drive;
    Database& database;
    Browsing& browsing;
    MusicConnection& connection;
    Transport& transport;
    Players& players;
  };
  CdPlayer(Form& form, Uses uses);
  ~CdPlayer() override;

  void lblMusicType_Click(int index);  // 0 the CD, 1 digital music. Yields.
  void getCDTracks();                  // fills Grid(7). Yields.
  void MusicTimer_Timer();
  void stopCd();  // at the end of the program
  QString cdCommand(int function, int track = 0, int seconds = 0) {
    return commands_.cdCommand(function, track, seconds);
  }

  void playRow(int row);  // of the list: a track, a song of a data disc, or the look for a disc

  // Player. Repeat, random and continue are the transport's also while a disc plays.
  void press(TransportButton button) override;  // Yields.
  PlayMode mode() const override;
  void moveTo(double seconds) override;  // of the track at hand
  void showTimes() override { uses_.transport.showTimes(); }
  double level() const override { return uses_.transport.level(); }
  double levelMaximum() const override { return uses_.transport.levelMaximum(); }
  void setLevel(double level) override { uses_.transport.setLevel(level); }
  void setMute(bool on) override { uses_.transport.setMute(on); }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* grid = bind("Grid", static_cast<int>(MusicList::DiscTracks));
    Slider* Slider1 = bind("Slider1");
    Label* TxtTime = bind("TxtTime");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* lblDuration = bind("lblDuration");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
    Timer* MusicTimer = bind("MusicTimer");
    std::array<Image*, 2> lblMusicType = bind("lblMusicType");
    std::array<Image*, 2> lblMusicPlay = bind("lblMusicPlay");
    std::array<Image*, 2> optMode = bind("optMode");
    std::array<Image*, 7> cmdTop = bind("cmdTop");
    Image* cmdFavoriateAdd = bind("cmdFavoriateAdd");
    PictureArea* coverArt = bind("coverArt");
  };

  void discChanged() override;
  void toCd();
  void toDigital();
  void showSource(bool cd);
  void showDisc();
  void showTracks(const Disc& disc);
  void showSongs(const Disc& disc);
  void startTrack(int track);
  void goOn();
  void pause();
  void stop();
  void step(int by);
  void playSong(int row);
  void takePosition(const QString& position);
  void showPlaying(PlayMode playMode, const QString& caption);

  Uses uses_;
  Panel panel_;
  CdCommands commands_;
  MusicList savedGrid_ = MusicList::Artists;  // on screen before the CD
  bool looking_ = false;                      // for the drive to answer
};

}  // namespace korvane

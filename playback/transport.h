// Digital music as the transport plays it: the buttons cmdControls, the choice of the next song,
// the modes and the status lines. It never touches the player; every command goes through the music
// connection.
#pragma once

#include "core/form/panel.h"
#include "core/main_form.h"
#include "core/players.h"
#include "library/data/database.h"
#include "library/lists/browsing.h"
#include "listener/music_connection.h"
#include "platform/clock.h"
#include "playback/next_song.h"

namespace korvane {

class Transport : public Player, public SongActivation, public TransportNews {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    const Settings& settings;
    Screen& screen;
    TabController& tabs;
    Players& players;
    Database& database;
    Browsing& browsing;
    MusicConnection& connection;
    Chance& chance;
  };
  Transport(Form& form, Uses uses);

  // Player
  void press(TransportButton button) override;  // Yields.
  PlayMode mode() const override;
  void moveTo(double seconds) override;
  void showTimes() override { uses_.connection.ShowSliderTimes(); }
  double level() const override { return uses_.connection.listenerVolume; }
  double levelMaximum() const override { return uses_.connection.listenerMaxVolume; }
  void setLevel(double level) override;
  void setMute(bool on) override;

  void MediaPlayer1_EndOfStream();  // Yields.
  void lblCurrentPlay_DblClick();

  // What runs, and going back to it: the list, its place, and where it came from.
  struct Running {
    int number = 0;  // of the start
    MusicList list = MusicList::AlbumSongs;
    int allSongs = 0;  // the row on the page of all songs
    QList<PlaySong> songs;
    QList<int> pool;
    int record = 0;
    const PlaySong& song() const;  // at that record; an empty one where there is none
  };
  Running running() const;                              // as the list stands now
  const Running& started() const { return started_; }   // as it stood when its song was started
  void resume(const Running& running, bool playAgain);  // Yields.

  bool lit(TransportButton mode) const { return panel_.cmdControls[at(mode)]->tagged(); }

  // SongActivation
  void startFrom(MusicList list) override;
  void playSongRecord(int record) override;
  void jukeboxAdd(const PlaySong& song) override;
  void playFailed() override;
  void playDiscRow(int row) override;
  void allSongsMoved() override;

  // TransportNews
  void playerPaused() override;
  void playerStopped() override;
  void endOfStream() override { MediaPlayer1_EndOfStream(); }
  void songFailed(int inARow) override;

  // The jukebox takes over adding, the next song and the button of repeat while it is on; set by
  // it.
  struct Queue {
    virtual ~Queue() = default;
    virtual void jukeboxAdd(const PlaySong& song) = 0;  // Yields.
    virtual void jukeboxNext() = 0;                     // Yields.
    virtual void playTop() = 0;                         // Yields.
    virtual void deleteSelection() = 0;
  };
  void setQueue(Queue& queue) { queue_ = &queue; }

  std::function<void(int row)> playDisc = [](int) {};  // a row of the list of the CD; set by it

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    Slider* Slider1 = bind("Slider1");
    Label* TxtTime = bind("TxtTime");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* lblDuration = bind("lblDuration");
    PictureArea* coverArt = bind("coverArt");
    Timer* MusicTimer = bind("MusicTimer");
  };

  PlayModes modes() const;
  bool playsAllSongs() const;
  int countOfAllSongs() const;
  void play();
  void pause();
  void stop();
  void step(int by);
  void stepInAllSongs(int by);
  void toggle(TransportButton button);
  void turnOff(TransportButton button);
  void takeAllSongs(int row);
  void showRow(int row);
  void showIdle();
  void goIdle();
  void playPaths();

  Uses uses_;
  Panel panel_;
  Queue* queue_ = nullptr;
  bool stepped_ = false;  // the last start came from previous or next, not from a list
  MusicList playGrid_ = MusicList::AlbumSongs;  // that plays
  int allSongsPos_ = 0;
  Running started_;
};

}  // namespace korvane

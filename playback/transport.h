// The transport: the buttons cmdControls, the choice of the next song, the position slider and the
// status lines. It never touches the player; every command goes through the music connection.
#pragma once

#include "core/form/panel.h"
#include "core/main_form.h"
#include "core/screen.h"
#include "core/tab_controller.h"
#include "library/data/database.h"
#include "library/lists/browsing.h"
#include "listener/music_connection.h"
#include "platform/clock.h"
#include "playback/next_song.h"

namespace korvane {

struct TransportPanel : FormPanel {
  using FormPanel::FormPanel;
  std::array<Image*, 8> cmdControls = bind("cmdControls");
  std::array<Grid*, 11> grid = bind("Grid");
  std::array<Image*, 2> optMode = bind("optMode");
  Image* cmdTopPlaylist = bind("cmdTop", 2);
  Slider* Slider1 = bind("Slider1");
  Slider* VscrollAllSongs = bind("VscrollAllSongs");
  Label* TxtTime = bind("TxtTime");
  Label* lblCurrentPlay = bind("lblCurrentPlay");
  Label* lblDuration = bind("lblDuration");
  Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  PictureArea* coverArt = bind("coverArt");
  Timer* MusicTimer = bind("MusicTimer");
};

class Transport : public SongActivation, public TransportNews {
 public:
  enum Button { Previous, Play, Pause, Stop, Next, Repeat, Random, Continue };
  struct Uses {
    MainForm& main;
    AppState& state;
    Screen& screen;
    TabController& tabs;
    Database& database;
    MusicConnection& connection;
    Pump& pump;
    Chance& chance;
  };
  Transport(Form& form, Uses uses);
  void setBrowsing(Browsing& browsing) { browsing_ = &browsing; }

  void cmdControls_Click(int index);  // Yields.
  void pressMusic(int index);         // a button's branch for the Music tab. Yields.
  void MediaPlayer1_EndOfStream();    // Yields.
  void Slider1_Press();
  void Slider1_Scroll();
  void Slider1_Release();  // Yields.
  void lblCurrentPlay_DblClick();

  // What runs, and going back to it: the list, its place, and where it came from.
  struct Running {
    int number = 0;  // of the start
    int grid = 1, allSongs = 0;
    QList<PlaySong> songs;
    QList<int> pool;
    int record = 0;
  };
  Running running() const;                              // as the list stands now
  const Running& started() const { return started_; }   // as it stood when its song was started
  void resume(const Running& running, bool playAgain);  // Yields.

  // SongActivation
  void startFrom(int grid) override;
  void playSongRecord(int record) override;
  void jukeboxAdd(const PlaySong& song) override;
  void playFailed() override;
  void playDiscRow(int row) override;

  // TransportNews
  void playerPaused() override;   // Yields.
  void playerStopped() override;  // Yields.
  void endOfStream() override { MediaPlayer1_EndOfStream(); }
  void songFailed(int inARow) override;

  // The jukebox takes over adding, the next song and button 5 while it is on; set by it.
  struct Queue {
    virtual ~Queue() = default;
    virtual void jukeboxAdd(const PlaySong& song) = 0;
    virtual void jukeboxNext() = 0;
    virtual void playTop() = 0;
    virtual void deleteSelection() = 0;
  };
  void setQueue(Queue& queue) { queue_ = &queue; }

  // The CD takes over the first five buttons and the slider while its sound is the source, and the
  // rows of its list; set by it.
  struct DiscSource {
    virtual ~DiscSource() = default;
    virtual void press(int button) = 0;
    virtual void moveTo(int seconds) = 0;  // of the track at hand
    virtual void playRow(int row) = 0;
  };
  void setDisc(DiscSource& disc) { disc_ = &disc; }

 private:
  PlayModes modes() const;
  Grid& playing() { return *panel_.grid[static_cast<size_t>(playGrid_)]; }
  void play();
  void pause();
  void stop();
  void step(int by);
  void toggle(Button button);
  void turnOff(Button button);
  void takeAllSongs(int record);
  void showRow(int row);
  void goIdle();
  void playPaths();
  bool discPlays() const { return disc_ && uses_.state.playsDiscAudio(); }

  Uses uses_;
  TransportPanel panel_;
  Browsing* browsing_ = nullptr;
  Queue* queue_ = nullptr;
  DiscSource* disc_ = nullptr;
  int lastControl_ = -1;  // -1 when the last start came from a list
  int playGrid_ = 1;      // the list that plays
  int allSongsPos_ = 0;
  Running started_;
};

}  // namespace korvane

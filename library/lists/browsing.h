// The music lists: what each shows, what a press on a row or a list command does, and how a finger
// or a keyboard moves through the long ones.
#pragma once

#include "core/form/form.h"
#include "core/form/panel.h"
#include "core/log.h"
#include "core/main_form.h"
#include "core/palette.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "library/data/database.h"
#include "library/lists/playlists.h"
#include "platform/machine.h"
#include "platform/pump.h"

namespace korvane {

// What a press on a song asks of the player.
class SongActivation {
 public:
  virtual ~SongActivation() = default;
  // A row of that list is about to play: the movie side stops, the list becomes the playing one.
  virtual void startFrom(int grid) = 0;
  virtual void playSongRecord(int record) = 0;  // of rsPlaySongs; 0 keeps the cursor. Yields.
  virtual void jukeboxAdd(const PlaySong& song) = 0;
  virtual void playDiscRow(int /*row*/) {}  // of the list of the CD. Yields.
  virtual void playFailed() = 0;            // the transport's pictures go back to stopped
};

// The playlist editor, as the lists see it.
class ListEditor {
 public:
  virtual ~ListEditor() = default;
  virtual void cancel() = 0;             // what was not saved is dropped
  virtual void listShown(int grid) = 0;  // another list of the library is in front
  virtual void search() = 0;             // shows or hides its search panel
  virtual bool searching() const = 0;
};

struct BrowsingPanel : FormPanel {
  using FormPanel::FormPanel;
  std::array<Grid*, 11> grid = bind("Grid");
  std::array<Image*, 7> cmdTop = bind("cmdTop");
  std::array<Image*, 4> cmdOneSong = bind("cmdOneSong");
  std::array<Image*, 8> cmdControls = bind("cmdControls");
  std::array<Image*, 2> optMode = bind("optMode");
  Slider* VscrollAllSongs = bind("VscrollAllSongs");
  Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  Timer* KeyboardTimer = bind("KeyboardTimer");
  Timer* RepeatTimer = bind("RepeatTimer");
};

class Browsing {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    Screen& screen;
    Messages& messages;
    SystemBox& box;
    const Log& log;
    const Palette& palette;
    Database& database;
    Playlists& playlists;
  };
  Browsing(Form& form, Uses uses);

  void setSongs(SongActivation& songs) { songs_ = &songs; }  // before the first press

  void setEditor(ListEditor& editor) { editor_ = &editor; }

  // Columns, font, row height and colours of every list.
  void setUpGrids();
  void fillArtists();
  void fillAlbums();
  void fillSongs();
  void getFavorites(bool fill);
  // Fills Grid(1) with an album, without touching the play list.
  void getArtistOrAlbumSongs(const QString& artist, const QString& album);

  // Opens a list: its songs, with the caption that names it. Says so when it has none. Yields.
  void openPlaylist(const QString& name, const QString& path);

  void cmdTop_Click(int index);
  void Grid_Click(int index, int column, int row);
  void Grid_DblClick(int index, int column, int row);
  void Grid_ButtonClicked(int index, int column, int row);
  void VscrollAllSongs_Change();
  void VscrollAllSongs_Scroll();  // while the thumb is held: the letter beside it
  void VscrollAllSongs_Release();
  void cmdOneSong_Press(int index);
  void cmdOneSong_Release();
  void RepeatTimer_Tick();
  void Form_KeyDown(int key);
  void Form_KeyPress(const QString& text);
  void KeyboardTimer_Tick();  // forgets what was typed

  // Shows one list, alone, with its paging.
  void showGrid(int index);
  // Opens the lists at a song of the library; false when it is not there.
  bool openAt(const QString& path);
  // Shows the album of a song with the song active, and marks the artists' command.
  void showSongInAlbum(const QString& artist, const QString& album, const QString& title);
  // The selected song of the list on screen, with its own title; nothing where no song is shown.
  std::optional<PlaySong> selectedSong() const;
  void showMarked();  // the selected song has become a favourite
  // Shows a list that runs, its song active: an album, a playlist with its caption, all songs or
  // the favourites.
  void showRunning(int grid, int row, const QList<PlaySong>& songs, const QString& caption);
  bool moveActive(int grid, int rows);  // false at an end
  void resetPlayListView();             // no list chosen, the artists in front

 private:
  void goBack();
  void search();
  void lookUp(const QString& text);
  void openArtist(int row);
  void openAlbum(const QString& artist, const QString& album, int from);
  void setActive(int grid, int row);
  void play(int index, int row);
  void addToJukebox(int index, int row);
  PlaySong songAt(int index, int row) const;
  void fillPlaySongs(const QList<Song>& songs);
  bool leaveEditing(int command);
  void forgetMarks();

  Uses uses_;
  SongActivation* songs_ = nullptr;
  ListEditor* editor_ = nullptr;
  BrowsingPanel panel_;
  std::shared_ptr<AllSongs> rsMain_;
  QList<Song> albumSongs_, favouriteSongs_;  // of Grid(1) and Grid(8)
  QString artist_;                           // of Grid(2)
  QString typed_;
  int lastTop_ = 0;
  int backGrid_ = 0;    // where Grid(1) was entered from: 4 all albums, 0 artists
  int repeatRows_ = 0;  // of a held page button
};

}  // namespace korvane

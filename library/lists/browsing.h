// The music lists: which of them is on screen, what a press on a row or a list command does, and
// how a keyboard moves through the long ones.
#pragma once

#include "core/form/panel.h"
#include "core/log.h"
#include "core/main_form.h"
#include "core/paging.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "library/lists/music_lists.h"
#include "platform/machine.h"

namespace korvane {

// What a press on a song asks of the player.
class SongActivation {
 public:
  virtual ~SongActivation() = default;
  // A row of that list is about to play: the movie side stops, the list becomes the playing one.
  virtual void startFrom(MusicList list) = 0;
  virtual void playSongRecord(int record) = 0;        // of rsPlaySongs; 0 keeps the cursor. Yields.
  virtual void jukeboxAdd(const PlaySong& song) = 0;  // Yields.
  virtual void playDiscRow(int /*row*/) {}            // of the list of the CD. Yields.
  virtual void playFailed() = 0;                      // the transport's pictures go back to stopped
  virtual void allSongsMoved() {}                     // the page of all songs has other rows now
};

// The playlist editor, as the lists see it.
class ListEditor {
 public:
  virtual ~ListEditor() = default;
  virtual void cancel() = 0;                   // what was not saved is dropped
  virtual void listShown(MusicList list) = 0;  // another list of the library is in front
  virtual void search() = 0;                   // shows or hides its search panel
  virtual bool searching() const = 0;
};

class Browsing {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    const Settings& settings;
    Screen& screen;
    Messages& messages;
    SystemBox& box;
    const Log& log;
    const Palette& palette;
    Paging& paging;
    Database& database;
    Playlists& playlists;
  };
  Browsing(Form& form, Uses uses);

  void setSongs(SongActivation& songs) { songs_ = &songs; }  // before the first press
  void setEditor(ListEditor& editor) { editor_ = &editor; }

  // Fills. What the database cannot do is thrown, and the list stays as it was.
  void setUpGrids();  // columns, font, row height and colours of every list
  void fillArtists();
  void fillAlbums();
  void fillSongs();

  // Opens a list: its songs, with the caption that names it. Says so when it has none. Yields.
  void openPlaylist(const QString& name, const QString& path);

  void cmdTop_Click(PageCommand command);  // Yields.
  void Grid_Click(MusicList list, int column, int row);
  void Grid_DblClick(MusicList list, int column, int row);  // Yields.
  void Grid_ButtonClicked(MusicList list, int column, int row);
  void Form_KeyDown(int key);
  void Form_KeyPress(const QString& text);
  void KeyboardTimer_Tick();  // forgets what was typed

  MusicListPage& page(MusicList list) const { return *pages_[at(list)]; }
  Grid& shownGrid() const { return page(uses_.state.gridMode).grid; }

  void showGrid(MusicList list);  // alone, with its paging
  // Starts the list on screen at its active row; nothing when it is none of songs. Yields.
  void playShown();
  // Whether that row of the list is that song: it may show another list than the one that plays.
  bool shows(MusicList list, int row, const PlaySong& song) const;

  // Opens the lists at a song of the library; false when it is not there.
  bool openAt(const QString& path);
  // Shows the album of a song with the song active, and marks the artists' command.
  void showSongInAlbum(const QString& artist, const QString& album, const QString& title);
  // The selected song of the list on screen, with its own title; nothing where no song is shown.
  std::optional<PlaySong> selectedSong() const;
  void showMarked();  // the selected song has become a favourite
  // Shows a list that runs, its song active: an album, a playlist with its caption, all songs or
  // the favourites.
  void showRunning(MusicList list, int row, const QList<PlaySong>& songs, const QString& caption);
  void setActive(MusicList list, int row);
  void resetPlayListView();  // no list chosen, the artists in front

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Grid*, kMusicLists> grid = bind("Grid");
    std::array<Image*, 7> cmdTop = bind("cmdTop");
    Image* repeat = bind("cmdControls", static_cast<int>(TransportButton::Repeat));
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
    Timer* KeyboardTimer = bind("KeyboardTimer");
  };

  std::unique_ptr<MusicListPage> makePage(MusicList list);
  SongListPage& songPage(MusicList list) const;
  AllSongsPage& allSongs() const;
  bool looksOnly() const;  // a page that is opened leaves the list alone that runs

  void goBack();
  void search();
  void lookUp(const QString& text);
  void openFavourites();
  void openArtist(const QString& artist);
  void openAlbum(const QString& artist, const QString& album, MusicList from);
  void activate(MusicList list, int row);
  void play(MusicListPage& page, int row);
  void fillPlaySongs(const QList<PlaySong>& songs);
  bool leaveEditing(PageCommand command);
  void forgetMarks();
  void mark(MusicList list);

  Uses uses_;
  Panel panel_;
  std::array<std::unique_ptr<MusicListPage>, kMusicLists> pages_;
  SongActivation* songs_ = nullptr;
  ListEditor* editor_ = nullptr;
  QString artist_;  // of the list of an artist's albums
  QString typed_;
  PageCommand lastTop_ = PageCommand::Artists;
  MusicList backGrid_ = MusicList::Artists;  // where the songs of an album were entered from
};

}  // namespace korvane

// The playlist editor of the Music tab: a list being made on the right, the library's lists beside
// it, and the commands between them.
#pragma once

#include "core/form/panel.h"
#include "library/lists/browsing.h"
#include "library/lists/search_panel.h"

namespace korvane {

class PlaylistEditor : public ListEditor {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    Screen& screen;
    Messages& messages;
    const Palette& palette;
    Pump& pump;
    Paging& paging;
    Database& database;
    Playlists& playlists;
    Browsing& browsing;
  };
  PlaylistEditor(Form& form, Uses uses);

  void create();                                        // an empty list, named when it is saved
  void edit(const QString& name, const QString& path);  // Yields.

  void cmdPlayListCommands_Click(int index);  // Yields.
  void cmdPlayListChoices_Click(int index);   // 0 Cancel, 1 Save. Yields.
  void cmdOneSong_Press(int index);           // 2 and 3: the selection one place up and down
  void playlistslider_Change();
  void gridPlayListSongs_Click(int row);

  // The controls that the editor shows or moves, on entering and leaving the Music tab while a list
  // is being edited.
  void show();
  void hide();

  // The search panel's keyboard has come up, or gone (0): what stands beside the panel ends above
  // `keyboardTop`.
  void keyboardShown(int keyboardTop);

  // ListEditor
  void cancel() override;
  void listShown(MusicList list) override;
  void search() override;
  bool searching() const override { return search_.shown(); }

  SearchPanel& searchPanel() { return search_; }

 private:
  enum Command { Delete, Up, Down, AddSong, AddAlbum };
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Grid*, 11> grid = bind("Grid");
    Grid* gridPlayListSongs = bind("gridPlayListSongs");
    Frame* framSongEdit = bind("framSongEdit");
    Slider* playlistslider = bind("playlistslider");
    Slider* VscrollAllSongs = bind("VscrollAllSongs");
    std::array<Image*, 4> cmdOneSong = bind("cmdOneSong");
    std::array<Image*, 7> cmdTop = bind("cmdTop");
    std::array<Image*, 5> cmdPlayListCommands = bind("cmdPlayListCommands");
    std::array<Button*, 2> cmdPlayListChoices = bind("cmdPlayListChoices");
    std::array<Image*, 2> optMode = bind("optMode");
    PictureArea* coverArt = bind("coverArt");
    std::array<Image*, 2> lblMusicType = bind("lblMusicType");
    std::array<Image*, 2> lblMusicPlay = bind("lblMusicPlay");
    Image* cmdFavoriateAdd = bind("cmdFavoriateAdd");
    Image* cmdPlayLists = bind("cmdPlayLists");
  };

  void open(const QString& name);
  void close();
  std::vector<Control*> covered();
  void makeRoom();
  void setOwn(bool visible);
  void showCommands(MusicList list);
  void removeRow();
  void moveRow(int by);
  void addFrom(MusicList list, int row);
  void addSong(const QString& title, const QString& path);
  void pageTo();
  void rowsChanged();
  bool save();  // false when the list is not on the disk
  QString askName();

  Uses uses_;
  Panel panel_;
  SearchPanel search_;
  QString name_;
  std::vector<std::pair<Control*, Rect>> moved_;  // and where they stood
  std::optional<Rect> tall_;                      // of gridPlayListSongs without the keyboard
  std::vector<Grid::Column> wideColumns_;         // of Grid(5)
};

}  // namespace korvane

// frmPlayList: the playlists as a dialog, to use, rename, delete, change or make one.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"
#include "core/log.h"
#include "library/lists/playlists.h"

namespace korvane {

// Where a chosen list goes: the Music tab. Called when the dialog has gone.
class PlayListViews {
 public:
  virtual ~PlayListViews() = default;
  virtual void usePlayList(const QString& name, const QString& path) = 0;   // Yields.
  virtual void editPlayList(const QString& name, const QString& path) = 0;  // Yields.
  virtual void createPlayList() = 0;                                        // Yields.
};

class PlayListForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    const AppState& state;
    const Log& log;
    Playlists& playlists;
    PlayListViews& views;
  };
  explicit PlayListForm(Uses uses);

  // True when a list was handed to the Music tab. Yields.
  bool open();

  // The choices that change what runs or is kept: not for a guest of a locked jukebox.
  static std::vector<int> guardedChoices() { return {Use, Rename, Delete, Edit}; }

 private:
  enum Choice { Use, Done, Rename, Delete, Edit, Create };
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* gridPlayList = bind("gridPlayList");
    Slider* VscrollAllSongs = bind("VscrollAllSongs");
    std::array<Image*, 6> cmdPlayListChoices = bind("cmdPlayListChoices");
  };
  void cmdPlayListChoices_Click(int index);
  void choose(int index);
  void rename();
  void remove();
  void fill();
  void leaveWith(Choice choice);
  void select(int row);

  Uses uses_;
  Panel panel_;
  Choice left_ = Done;
};

}  // namespace korvane

// frmMp3Setup: "Digital Music Setup", the entry to all that fills the library.
#pragma once

#include "core/screen_doors.h"
#include "library/screens/directory_scan.h"
#include "library/screens/single_song_form.h"

namespace korvane {

class Mp3SetupForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Chooser& chooser;
    const Settings& settings;
    const FileSystem& files;
    SongImport& import;
    ImportNews& news;
    DirectoryScan& scan;
    SingleSongForm& singleSong;
  };
  explicit Mp3SetupForm(Uses uses);

  // Which of cmdMp3(0) "Delete" and cmdMp3(1) "Copy Directories" lead somewhere.
  void setDoors(ScreenDoors doors) { doors_ = std::move(doors); }

  void open();  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Button*, 4> cmdMp3 = bind("cmdMp3");
    std::array<Check*, 2> optScan = bind("optScan");
    Button* cmdaddfile = bind("cmdaddfile");
    Button* cmdListing = bind("cmdListing");
  };
  enum Command { Delete, CopyDirectories, Scan, AddMisc };

  void cmdMp3_Click(int index);
  void cmdaddfile_Click();
  void cmdListing_Click();
  void chooseScan(int index);
  void showCommands();
  void layOut(std::span<Control* const> commands);

  Uses uses_;
  Panel panel_;
  ScreenDoors doors_;
};

}  // namespace korvane

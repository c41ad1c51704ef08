// frmMp3Setup: "Digital Music Setup", the entry to all that fills the library.
#pragma once

#include "core/form/panel.h"
#include "core/screen_doors.h"
#include "library/screens/single_song_form.h"

namespace korvane {

class Mp3SetupForm {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    const Settings& settings;
    Messages& messages;
    SongImport& import;
    ImportNews& news;
    DirectorysForm& directorys;
    SingleSongForm& singleSong;
  };
  explicit Mp3SetupForm(Uses uses);

  // Which of cmdMp3(0) "Delete" and cmdMp3(1) "Copy Directories" lead somewhere.
  void setDoors(ScreenDoors doors) { doors_ = std::move(doors); }

  void open();  // Yields.

  Form& form() { return form_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    std::array<Button*, 4> cmdMp3 = bind("cmdMp3");
    std::array<Check*, 2> optScan = bind("optScan");
    Button* cmdaddfile = bind("cmdaddfile");
    Button* cmdOK = bind("cmdOK");
  };
  enum Command { Delete, CopyDirectories, Scan, AddMisc };

  void cmdMp3_Click(int index);
  void cmdaddfile_Click();
  void chooseScan(int index);
  void showCommands();
  void layOut(std::span<Control* const> commands);

  Uses uses_;
  Form form_;
  Panel panel_;
  ScreenDoors doors_;
};

}  // namespace korvane

// frmRipper: the discs in the drives, what their tracks are called, which of them become songs, and
// how far that is. It may be left while a run is at work, and shows it again when it comes back; a
// disc that is put in meanwhile is offered next.
#pragma once

#include "core/chooser.h"
#include "core/dialog.h"
#include "core/form/control_set.h"
#include "core/settings.h"
#include "library/screens/song_import.h"
#include "platform/system.h"
#include "ripper/disc_look_up.h"
#include "ripper/rip_plan.h"
#include "ripper/screens/name_editor.h"

namespace korvane {

class RipperForm : public Dialog, private RipNews {
 public:
  struct Uses {  // none owned
    DialogUses dialog;
    System& system;
    Settings& settings;
    const Log& log;
    Chooser& chooser;
    Database& database;
    const SongImport& import;
    RipRun& run;
    std::function<void()> songsChanged;      // of the library; throws as it does
    std::function<KeyboardLayout()> layout;  // the one in use
    // Music that plays from the disc in that drive stops. True when there was some. Yields.
    std::function<bool(const QString& source)> stopDisc;
  };
  explicit RipperForm(Uses uses);

  void open();  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    TextBox* lblArtist = bind("lblArtist");
    TextBox* lblAlbum = bind("lblAlbum");
    Grid* ss = bind("ss");
    Label* StatusBar = bind("StatusBar");
    Label* lblID = bind("lblID");
    Grid* DriveCombo = bind("DriveCombo");
    TextBox* txtFilename = bind("txtFilename");
    Label* lblFreeSpace = bind("lblFreeSpace");
    Progress* prgTotal = bind("prgTotal");
    Progress* prgTrack = bind("prgTrack");
    TextBox* txtStatus = bind("txtStatus");
    Button* cmdExtract = bind("cmdExtract");
    Button* cmdRipStop = bind("cmdRipStop");
    Button* cmdEnd = bind("cmdEnd");
  };

  void connectButtons();
  void connectList();
  void Form_Load();
  void Form_Unload();

  // Drives and their discs
  void listDrives();
  void DriveCombo_Click(int index);
  void CDRipper_OnCDChange(const QString& source);
  QString source() const;  // of the drive that is chosen; empty for none
  const Disc* audioDisc(const QString& source) const;  // null unless it holds a track of sound
  bool waitsForNext() const;
  void watchDrives();
  void forgetDrives();
  void take(const QString& source);         // shows the disc in it
  void takeNext(const QString& source);     // that was put in while another one was ripped
  void namesCame(const FoundNames& names);  // Yields.
  void offer();                             // the next disc, when its names are looked up. Yields.

  // Its names
  void fillGrid();
  void fillgrid2(const FoundNames& names);
  void showInLibrary();

  // A run
  void cmdExtract_Click();  // Yields.
  QString notYet(const std::vector<RipRequest::Row>& rows) const;
  std::vector<RipRequest::Row> tickedRows(const Disc& disc) const;
  void saveNames();
  QString ripPath() const;
  void cmdFilename_Click();  // Yields.
  void cmdEnd_Click();
  void refreshLibrary();
  void showFreeSpace();
  void showRun(bool on);
  void status(const QString& text) { panel_.StatusBar->caption = text; }

  // RipNews
  void runBegan() override;
  void runMoved() override;
  void trackBegan(const RipTrack& track) override;
  void trackEnded(const RipTrack& track, const RipResult& result, bool entered) override;
  void runEnds() override;
  void runEnded(bool whole) override;

  const Uses uses_;
  Panel panel_;
  TrackList tracks_;
  NameEditor editor_;
  DiscLookUp lookUp_;
  RipPlan plan_;
  ControlSet choices_, progress_;  // either these or those
  int driveIndex_ = 0;
  QString discId_;
  FoundNames names_;               // of the disc in the list
  QStringList answered_;           // drives that have been looked at since the form came up
  QString waiting_;                // a drive whose disc was put in during the run
  bool offers_ = false;            // the disc in the list is one that waited
  std::optional<qint64> endedAt_;  // ms; when a run ended with the form away
  bool keepList_ = false;          // when the form comes up
  bool watching_ = false;          // the drives
};

}  // namespace korvane

// frmSingleSong: copies the songs of a folder into the music tree and enters them.
#pragma once

#include "core/chooser.h"
#include "core/screen.h"
#include "core/settings.h"
#include "library/screens/song_import.h"
#include "platform/pump.h"

namespace korvane {

class SingleSongForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Chooser& chooser;
    const Settings& settings;
    FileSystem& files;  // used from the thread of a copy as well
    Pump& pump;
    Screen& screen;
    SongImport& import;
    ImportNews& news;
  };
  explicit SingleSongForm(Uses uses);

  void open();  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblSource = bind("lblSource");
    Label* lblDestination = bind("lblDestination");
    Label* txtStatus = bind("txtStatus");
    TextBox* txtArtist = bind("txtArtist");
    TextBox* txtAlbum = bind("txtAlbum");
    Button* cmdCancel = bind("cmdCancel");
  };

  void choose(Label& shown, const QString& caption);
  void cmdCopy_Click();
  void cmdCancel_Click();

  QString refusal() const;  // why it cannot begin; empty when it can
  void copySongs();         // Yields.
  void checkRoom(const QString& folder, const QStringList& names) const;
  void copySong(const QString& folder, const QString& name);  // Yields.
  bool copyFile(const QString& from, const QString& to);      // false when stopped. Yields.
  void status(const QString& text);                           // Yields.

  Uses uses_;
  Panel panel_;
  bool copying_ = false, stopped_ = false;
};

// A text as the name of one folder: what a path cannot hold becomes "_".
QString folderName(const QString& text);

}  // namespace korvane

// frmSingleSong: copies the songs of a folder into the music tree and enters them.
#pragma once

#include "core/form/panel.h"
#include "library/screens/directorys_form.h"

namespace korvane {

class SingleSongForm {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    FileSystem& files;
    Pump& pump;
    Screen& screen;
    Messages& messages;
    SongImport& import;
    ImportNews& news;
    DirectorysForm& directorys;
  };
  explicit SingleSongForm(Uses uses);

  void open();  // Yields.

  Form& form() { return form_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Label* lblSource = bind("lblSource");
    Label* lblDestination = bind("lblDestination");
    Label* lblArtist = bind("lblArtist");
    Label* lblAlbum = bind("lblAlbum");
    Label* txtStatus = bind("txtStatus");
    TextBox* txtArtist = bind("txtArtist");
    TextBox* txtAlbum = bind("txtAlbum");
    Button* cmdSource = bind("cmdSource");
    Button* cmdDestination = bind("cmdDestination");
    Button* cmdCopy = bind("cmdCopy");
    Button* cmdCancel = bind("cmdCancel");
  };

  void askInto(TextBox& box, const QString& prompt);
  void choose(Label& shown, const QString& caption);
  void cmdCopy_Click();
  void cmdCancel_Click();

  QString refusal() const;  // why it cannot begin; empty when it can
  void copySongs();         // Yields.
  void copySong(const QString& folder, const QString& name);
  void status(const QString& text);  // Yields.

  Uses uses_;
  Form form_;
  Panel panel_;
  bool copying_ = false, stopped_ = false;
};

}  // namespace korvane

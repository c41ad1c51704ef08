// frmSingleSong: copies the songs of a folder into the music tree and enters them.
#pragma once

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
  struct Panel {
    Label *lblTitle, *lblSource, *lblDestination, *lblArtist, *lblAlbum, *txtStatus;
    TextBox *txtArtist, *txtAlbum;
    Button *cmdSource, *cmdDestination, *cmdCopy, *cmdCancel;
    explicit Panel(Form& form);
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

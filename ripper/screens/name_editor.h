// Typing on frmRipper: the keyboard under the finger, the artist, the album and one title at a
// time. Enter goes on to the next of them.
#pragma once

#include "core/form/panel.h"
#include "custom/keyboard/nctrl_keyboard.h"
#include "ripper/screens/track_list.h"

namespace korvane {

class NameEditor {
 public:
  // The form has the controls of ripperInventory(). None is owned; all outlive this.
  NameEditor(Form& form, TrackList& tracks, FormHost& host, const Palette& palette);

  void setLayout(const KeyboardLayout& layout) { keyboard_.setLayout(layout); }
  void editTitle(int row);
  void end();                              // the keyboard goes
  void setEnabled(bool on);                // of the fields
  void showNobody();                       // the words that stand for names that nobody knows
  bool edited() const { return edited_; }  // since forget()
  void forget() { edited_ = false; }

  std::function<void()> typed = [] {};  // one of the names

  static QString nobodysArtist() { return u"Artist Name here"_s; }
  static QString nobodysAlbum() { return u"Album Name here"_s; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    TextBox* lblArtist = bind("lblArtist");
    TextBox* lblAlbum = bind("lblAlbum");
    TextBox* txtTitle = bind("txtTitle");
    TextBox* txtFilename = bind("txtFilename");
    Grid* ss = bind("ss");
  };

  void edit(TextBox& box);
  void next();
  void leaveTitle();
  void keyboardShown(bool shown);
  void layOut(const Rect& tracks);

  Form& form_;
  TrackList& tracks_;
  Panel panel_;
  NctrlKeyboard keyboard_;
  int row_ = 0;  // whose title is typed
  bool edited_ = false;
};

}  // namespace korvane

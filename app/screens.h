// The modal screens above the main form: the keyboard, setup with its pages, and the import of
// songs.
#pragma once

#include "custom/keyboard/ctrl_keyboard.h"
#include "custom/keyboard/keyboard_files.h"
#include "custom/keyboard/nctrl_keyboard.h"
#include "custom/screens/colour_pick_form.h"
#include "custom/screens/gui_setup_form.h"
#include "custom/screens/keyboard_form.h"
#include "custom/screens/setup_access.h"
#include "library/screens/mp3_setup_form.h"
#include "library/screens/play_list_form.h"
#include "library/screens/scanner_import.h"

namespace korvane {

class Console;

class Screens : private SetupParts, private ImportNews, private PlayListViews {
 public:
  explicit Screens(Console& console);

  void cmdPlayLists_Click() { playList.open(); }      // Yields.
  void cmdSetup_Click() { access.cmdSetup_Click(); }  // Yields.
  void openMusic();                                   // the Music tab
  // The lists of the whole library filled anew, at once from the database and, when the list file
  // is made, from that.
  void songsChanged() override;

 private:
  Console& console_;
  QString keyboardLayout_;  // the one in use

 public:
  KeyboardFiles keyboardFiles;
  KeyboardForm keyboard;
  CtrlKeyboard searchKeyboard;
  NctrlKeyboard newKeyboard;
  ScannerImport import;
  DirectorysForm directorys;
  SingleSongForm singleSong;
  Mp3SetupForm mp3Setup;
  PlayListForm playList;
  ColourPickForm colours;
  GuiSetupForm guiSetup;
  NicForm nic;
  SetupForm setup;
  SetupAccess access;

 private:
  void useKeyboard();
  void editButtons();
  std::optional<QString> chooseAction();  // of an owner's button. Yields.
  void wireSearch();
  void wireKeyboards();
  void chooseDirectory(const QString& caption, DirectoryRequest::Store store);

  // SetupParts
  void closeAlwaysOnTop() override;
  void reloadMainForm() override;
  void showMainPage() override;
  QString getLibraryCounts() override;
  void eraseLibrary() override;
  void restartMasterListener() override;
  void closeMovieConnection() override;
  QString keyboardLayout() const override { return keyboardLayout_; }
  void nextKeyboardLayout() override;
  void gridLookChanged() override;

  // PlayListViews
  void usePlayList(const QString& name, const QString& path) override;
  void editPlayList(const QString& name, const QString& path) override;
  void createPlayList() override;

  // ImportNews
  void movieDirectoryChanged() override;
  void photoDirectoryChanged() override;
};

}  // namespace korvane

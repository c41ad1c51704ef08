// What an owner can change, and how a finger types: the Main tab with its buttons, setup with its
// screens, the keyboards and the guest lock.
#pragma once

#include "core/form/panel.h"
#include "custom/buttons/button_editor.h"
#include "custom/guest_lock.h"
#include "custom/keyboard/ctrl_keyboard.h"
#include "custom/keyboard/keyboard_files.h"
#include "custom/keyboard/nctrl_keyboard.h"
#include "custom/main_tab.h"
#include "custom/moved_controls.h"
#include "custom/screens/colour_pick_form.h"
#include "custom/screens/gui_setup_form.h"
#include "custom/screens/keyboard_form.h"
#include "custom/screens/setup_access.h"
#include "playback/playback_side.h"

namespace korvane {

class CustomSide : private SetupParts {
 public:
  CustomSide(Desk& desk, LibrarySide& library, ListenerSide& listener, PlaybackSide& playback);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    TextBox* txtSearch = bind("txtSearch");
    TextBox* txtLookup = bind("txtLookup");
    Button* mapKeyboard = bind("cmdmap", 1);
  };

  Desk& desk_;
  LibrarySide& library_;
  ListenerSide& listener_;
  Panel panel_;
  QString keyboardLayout_;  // the one in use

 public:
  CustomButtons buttons;
  ButtonEditor buttonEditor;
  HomePanel homePanel;
  MainTab mainTab;
  MovedControls movedControls;
  GuestLock guestLock;
  KeyboardFiles keyboardFiles;
  KeyboardForm keyboard;
  CtrlKeyboard searchKeyboard;
  NctrlKeyboard newKeyboard;
  ColourPickForm colours;
  GuiSetupForm guiSetup;
  NicForm nic;
  SetupForm setup;
  SetupAccess access;

 private:
  void connectLock(PlaybackSide& playback);
  void connectHome(PlaybackSide& playback);
  void connectButtons();
  void connectEditor();
  void connectKeyboards(ListUndo& listUndo);
  void openDoors();
  void addWords();
  void useKeyboard();
  void editButtons();
  std::optional<QString> chooseAction();  // of an owner's button. Yields.

  // SetupParts
  void closeAlwaysOnTop() override { desk_.window.closeAlwaysOnTop(); }
  void reloadMainForm() override;
  void showMainPage() override;
  QString getLibraryCounts() override;
  void eraseLibrary() override { library_.erase(); }
  void restartMasterListener() override;
  void closeMovieConnection() override { listener_.movies.ConnectionMovieClose(); }
  QString keyboardLayout() const override { return keyboardLayout_; }
  bool nextKeyboardLayout(QString* error) override;
  void gridLookChanged() override { library_.browsing.setUpGrids(); }
};

}  // namespace korvane

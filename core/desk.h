// The desk: the services that every side of the console shares, and the places where a side hands
// in what the whole must know. Made first and gone last; knows no side.
#pragma once

#include "core/add_timer.h"
#include "core/button_words.h"
#include "core/chooser.h"
#include "core/dialog.h"
#include "core/keep_awake.h"
#include "core/paging.h"
#include "core/players.h"
#include "core/screen_doors.h"
#include "core/startup.h"
#include "core/tab_parts.h"
#include "core/window_buttons.h"

namespace korvane {

class Desk {
 public:
  using MakeHost = std::function<std::unique_ptr<FormHost>(Graphics&)>;
  // `home` is the program directory; `makeHost` makes what shows forms; `end` ends the program.
  Desk(System& system, const MakeHost& makeHost, QString home, std::function<void()> end);
  ~Desk();

  System& system;
  AppState state;
  Log log;
  Settings settings;
  Graphics graphics;

 private:
  std::unique_ptr<FormHost> ownHost_;

 public:
  FormHost& host;
  Palette palette;
  Screen screen;
  KeepAwake awake;
  Form frmMain, frmSplash;
  AddTimer addTimer;
  ThemedMessages messages;
  const DialogUses dialogs;  // what every modal form is given
  Chooser chooser;
  MainForm main;
  TabController tabs;
  Paging paging;
  TabParts parts;
  Players players;

  // What the sides hand in, each before the start.
  Steps steps;                // what they do at the start, a reload and the stop
  ButtonWords words;          // what an owner's button may do
  ScreenDoors setupDoors;     // buttons of frmSetup that lead somewhere
  ScreenDoors advancedDoors;  // buttons of frmGuiSetup that do
  std::function<void(bool opened)> mixerOpened = [](bool) {};  // of this console's own sound
  // A user has left what was on screen: what hangs above it goes.
  std::vector<std::function<void()>> onTabPress;

  Startup startup;
  WindowButtons window;

  // Whether a press that a guest may be kept from can act; asks for the password where it is
  // locked. Yields. Set by the side that has the lock.
  std::function<bool()> admits = [] { return true; };

  std::function<void()> leaveSetup = [] {};  // for a door that goes to the main form

  // Connects a control's event to a handler that wants the index alone.
  void on(QStringView control, Event::Type type, std::function<void(int)> handler);
  // A guest of a locked jukebox may not press this: all members of an array unless some are named.
  void guard(Form& form, QStringView control, Event::Type type, std::vector<int> members = {});
  std::function<void()> guarded(std::function<void()> act);  // the same for a word

  // What failed, and where: a line of the log and a box. Yields.
  void failed(const QString& what, const QByteArray& procedure, const QByteArray& module);

  // Opens a tab unless it is open. Yields.
  void openTab(TabIndex tab);
  // The word of an owner's button that opens a tab.
  void addTabWord(TabIndex tab, const QString& word, const QString& icon, const QString& meaning);

 private:
  void connectWindow();
  void connectPaging();
  void connectPlayers();
  void addWindowWords();
};

}  // namespace korvane

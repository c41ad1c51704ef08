// The music library: its database, lists, playlists and the setup screens that fill it.
#pragma once

#include "core/desk.h"
#include "library/lists/favourites.h"
#include "library/lists/playlist_editor.h"
#include "library/screens/mp3_setup_form.h"
#include "library/screens/play_list_form.h"
#include "library/screens/scanner_import.h"

namespace korvane {

class LibrarySide : private ImportNews, private PlayListViews {
 public:
  explicit LibrarySide(Desk& desk);

 private:
  Desk& desk_;

 public:
  Database database;
  Playlists playlists;
  Browsing browsing;
  PlaylistEditor editor;
  Favourites favourites;
  ScannerImport import;
  DirectoryScan scan;
  SingleSongForm singleSong;
  Mp3SetupForm mp3Setup;
  PlayListForm playList;

  // The lists of the whole library are filled anew as soon as the list file is made, from the event
  // loop. Throws DatabaseError, with the lists as they were, when the database cannot be opened;
  // what fails later is said.
  void songsChanged() override;
  void erase();  // the database empty again, its views reset. Yields.

 private:
  void addSteps();
  void connectLists();
  void connectPlaylists();
  void openDoors();
  void choosePlaylistDirectory();
  void saying(const std::function<void()>& work);  // what it throws is said, and thrown on

  // PlayListViews
  void usePlayList(const QString& name, const QString& path) override;
  void editPlayList(const QString& name, const QString& path) override;
  void createPlayList() override;
};

}  // namespace korvane

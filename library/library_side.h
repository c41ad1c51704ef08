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
  DirectorysForm directorys;
  SingleSongForm singleSong;
  Mp3SetupForm mp3Setup;
  PlayListForm playList;

  // The lists of the whole library filled anew, at once from the database and, when the list file
  // is made, from that.
  void songsChanged() override;
  void erase();  // the database empty again, its views reset. Yields.

 private:
  void addSteps();
  void connectLists();
  void connectPlaylists();
  void openDoors();
  void chooseDirectory(const QString& caption, DirectoryRequest::Store store);

  // PlayListViews
  void usePlayList(const QString& name, const QString& path) override;
  void editPlayList(const QString& name, const QString& path) override;
  void createPlayList() override;

  // ImportNews
  void movieDirectoryChanged() override { desk_.tabs.imgTabs_Click(kMoviesTab); }
  void photoDirectoryChanged() override { desk_.tabs.imgTabs_Click(kPhotosTab); }
};

}  // namespace korvane

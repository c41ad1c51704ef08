// Favourites: the mark in the column year, set from every list that shows songs, and the file
// "Favorites.m3u" of the playlists' directory.
#pragma once

#include "core/main_form.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "library/lists/browsing.h"

namespace korvane {

class Favourites {
 public:
  struct Uses {
    AppState& state;
    Settings& settings;
    FileSystem& files;
    Pump& pump;
    Screen& screen;
    Messages& messages;
    Database& database;
    Playlists& playlists;
    Browsing& browsing;
  };
  Favourites(Form& form, Uses uses);

  // Marks the selected song of the list on screen. Yields.
  void cmdFavoriateAdd_Click();

  void exportFavorites();
  void importFavorites();  // Yields.

 private:
  QString file() const;  // nothing, with a message, when the directory is missing

  Uses uses_;
  Image& cmdFavoriateAdd_;
};

}  // namespace korvane

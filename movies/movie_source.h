// Where movies come from (files, the DVD player, folders with DVDs) and where they play (at seat,
// in cabin): lblMovieType and lblMoviesPlay.
#pragma once

#include "core/form/panel.h"
#include "listener/movie_connection.h"
#include "movies/dvd_seat.h"
#include "movies/movie_catalogue.h"

namespace korvane {

enum class MovieSourceIs { Files, DvdPlayer, DvdFolders };  // as in lblMovieType

class MovieSource {
 public:
  struct Uses {
    Form& form;
    AppState& state;
    Settings& settings;
    Messages& messages;
    MovieConnection& connection;
    MovieCatalogue& catalogue;
    DvdSeat& dvd;
  };
  explicit MovieSource(Uses uses) : uses_(uses), panel_(uses.form) {}

  // Both only while nothing plays; else they say so.
  void lblMovieType_Click(int index);   // Yields.
  void lblMoviesPlay_Click(int index);  // 0 at seat, else in cabin. Yields.

  MovieSourceIs source() const;
  void fillList();    // of the source; none for the DVD player
  void settleRole();  // at a start: the pictures and the link agree. Yields.
  std::function<void()> changed = [] {};

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 3> lblMovieType = bind("lblMovieType");
    std::array<Image*, 2> lblMoviesPlay = bind("lblMoviesPlay");
    Image* previous = bind("cmdControls", static_cast<int>(TransportButton::Previous));
    Image* next = bind("cmdControls", static_cast<int>(TransportButton::Next));
  };

  bool refuses(const QString& what);
  void showSource();
  void showRole();

  Uses uses_;
  Panel panel_;
};

}  // namespace korvane

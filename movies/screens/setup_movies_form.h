// frmSetupMovies: the directories of movies and their passwords.
#pragma once

#include "core/chooser.h"
#include "core/form/panel.h"
#include "movies/movie_directories.h"

namespace korvane {

class SetupMoviesForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Chooser& chooser;
    MovieDirectories& directories;
    const Settings& settings;
  };
  explicit SetupMoviesForm(const Uses& uses);

  void open();  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<TextBox*, kMovieDirectories> txtDir = bind("txtDir");
    std::array<TextBox*, kMovieDirectories> txtpw = bind("txtpw");
  };

  void Form_Load();
  void dirSel_Click(int index);
  void dirPW_Click(int index);
  void store(const std::function<bool(QString*)>& write);

  Uses uses_;
  Panel panel_;
};

}  // namespace korvane

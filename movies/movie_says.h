// A line about the movie upon its picture, which goes by itself; with a button where there is
// something to choose.
#pragma once

#include "core/form/panel.h"

namespace korvane {

class MovieSays {
 public:
  explicit MovieSays(Form& form);

  void say(const QString& text, int milliseconds);
  // The button says `choice` and does `act` when pressed, once.
  void offer(const QString& text, const QString& choice, std::function<void()> act,
             int milliseconds);
  void hide();

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* framMovieSays = bind("framMovieSays");
    Label* lblMovieSays = bind("lblMovieSays");
    Button* cmdMovieSays = bind("cmdMovieSays");
    Timer* MovieSaysTimer = bind("MovieSaysTimer");
  };

  void show(const QString& text, int milliseconds);

  Panel panel_;
  std::function<void()> act_;
};

}  // namespace korvane

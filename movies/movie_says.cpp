#include "movies/movie_says.h"

namespace korvane {

MovieSays::MovieSays(Form& form) : panel_(form) {
  form.on(u"MovieSaysTimer", Event::Tick, [this](auto&, auto&) { hide(); });
  form.on(u"cmdMovieSays", Event::Click, [this](auto&, auto&) {
    const auto act = std::exchange(act_, {});
    hide();
    if (act) act();
  });
}

void MovieSays::show(const QString& text, int milliseconds) {
  panel_.lblMovieSays->caption = text;
  panel_.framMovieSays->visible = true;
  panel_.MovieSaysTimer->enabled = false;
  panel_.MovieSaysTimer->interval = milliseconds;
  panel_.MovieSaysTimer->enabled = true;
}

void MovieSays::say(const QString& text, int milliseconds) {
  act_ = {};
  panel_.cmdMovieSays->visible = false;
  show(text, milliseconds);
}

void MovieSays::offer(const QString& text, const QString& choice, std::function<void()> act,
                      int milliseconds) {
  act_ = std::move(act);
  panel_.cmdMovieSays->caption = choice;
  panel_.cmdMovieSays->visible = true;
  show(text, milliseconds);
}

void MovieSays::hide() {
  act_ = {};
  panel_.MovieSaysTimer->enabled = false;
  panel_.framMovieSays->visible = false;
}

}  // namespace korvane

#include "movies/full_screen.h"

namespace korvane {
namespace {

// What the button does next.
QString toLarge() {
  return u"Full Screen"_s;
}

QString toSmall() {
  return u"Normal"_s;
}

}  // namespace

void FullScreen::cmdMovieFullScreen_Click() {
  if (!uses_.state.gMovieListener) return set(true);
  if (uses_.transport.mode() != PlayMode::Playing) return;
  const bool large = panel_.cmdMovieFullScreen->caption() != toSmall();
  uses_.connection.ConnectionMovieSend(u"MOVIE"_s, large ? u"FULLSCREEN"_s : u"NORMALSCREEN"_s);
  showButton(large);
}

void FullScreen::set(bool on) {
  if (on == this->on()) return;
  if (on) {
    if (uses_.transport.showsFile()) surface_ = panel_.MoviePic;
    if (uses_.transport.showsDisc()) surface_ = panel_.MSWebDVD1;
    if (!surface_) return;
    before_ = surface_->design;
    surface_->form.moveDesign(*surface_, kSurface);
  } else {
    surface_->form.moveDesign(*surface_, before_);
    surface_ = nullptr;
  }
  changed();
}

void FullScreen::showButton(bool large) {
  panel_.cmdMovieFullScreen->caption = large ? toSmall() : toLarge();
}

}  // namespace korvane

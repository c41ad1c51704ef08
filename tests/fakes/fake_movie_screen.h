// A screen that keeps what it was asked to show.
#pragma once

#include "platform/movie_screen.h"

namespace korvane {

struct FakeMovieScreen : MovieScreen {
  void showFrames(VideoPicture&) override { shows = u"frames"_s; }
  void showDisc(DvdPlayer& player) override {
    shows = u"disc"_s;
    player.setWindow(7);
  }
  void showNothing() override { shows.clear(); }
  void setLarge(bool on) override { large = on; }

  QString shows;
  bool large = false;
};

}  // namespace korvane

// korvane-listener-movies: the Listener with a window for movies. korvane-listener starts it.
#include <cstdio>

#include "platform/video/dvd_player_vlc.h"
#include "platform/video/video_player_vlc.h"
#include "services/listener/listener_program.h"
#include "view/window/movie_window.h"

namespace {

using namespace korvane;

MovieDoors makeDoors(Pump& pump, const QString& place, QString* error) {
  return {std::make_unique<VideoPlayerVlc>(pump), std::make_unique<DvdPlayerVlc>(pump),
          MovieWindow::make(place, error)};
}

}  // namespace

int main(int argc, char** argv) {
  QString error;
  const auto application = MovieWindow::application(argc, argv, &error);
  if (!application) {
    std::fprintf(stderr, "korvane-listener: %s\n", qUtf8Printable(error));
    return 1;
  }
  return runListener(makeDoors);
}

// korvane-listener-movies: the Listener with a window for movies. korvane-listener starts it.
#include <cstdio>

#include "platform/machine/end_signal.h"
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

// Qt's application takes options of its own out of what it is given, such as --name, so it is given
// none.
int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  EndSignal::hold();
  QString error;
  int one = 1;
  const auto application = MovieWindow::application(one, argv, &error);
  if (!application) {
    std::fprintf(stderr, "korvane-listener: %s\n", qUtf8Printable(error));
    return 1;
  }
  return runListener(arguments, makeDoors);
}

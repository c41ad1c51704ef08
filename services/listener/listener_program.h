// The program korvane-listener: its command line, and what it makes of it. There are two programs
// of that name: one for music alone, which has nothing of a window in it and starts at once, and
// one that also plays movies, in whose stead the first starts it.
#pragma once

#include <memory>

#include "platform/dvd_player.h"
#include "platform/movie_screen.h"
#include "platform/pump.h"
#include "platform/video_player.h"
#include "services/server/options.h"

namespace korvane {

// What movies are played through. The screen shows the players, so it goes first.
struct MovieDoors {
  std::unique_ptr<VideoPlayer> video;
  std::unique_ptr<DvdPlayer> dvd;
  std::unique_ptr<MovieScreen> screen;  // null with `error` when it cannot be had
};
// `place`: the value of --screen.
using MakeMovieDoors = std::function<MovieDoors(Pump& pump, const QString& place, QString* error)>;

// Whether these options ask for movies.
bool wantsScreen(const Options& options);

// Until SIGTERM; the exit code. `arguments` are those behind the program's name. It wants a
// QCoreApplication, and one with widgets where `makeDoors` makes a screen; a program without it is
// never given options that want one.
int runListener(const QStringList& arguments, const MakeMovieDoors& makeDoors);

}  // namespace korvane

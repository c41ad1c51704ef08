// The modes of the benchmark that show movies. Each prints one line of JSON and returns 0 when what
// it checked held. HOME is the program directory of a console; its settings are changed.
#pragma once

#include "platform/text.h"

namespace korvane {

int benchMovies(const QStringList& arguments);     // HOME: the list of 5,000
int benchMovie(const QStringList& arguments);      // HOME FILE: one that plays, on a display
int benchDvd(const QStringList& arguments);        // DISC: a press in its menu, on a display
int benchBareMovie(const QStringList& arguments);  // FILE: the memory of bare libVLC, in KiB

}  // namespace korvane

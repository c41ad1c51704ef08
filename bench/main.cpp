// korvane-bench MODE ARGUMENTS: measures the real modules beside a bare loop that does only the
// unavoidable work. Each mode prints one line of JSON; the exit code is 0 when what it checked
// held.
#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "bench/bench_ftp.h"
#include "bench/bench_library.h"
#include "bench/bench_movies.h"
#include "bench/bench_music.h"
#include "bench/bench_pictures.h"

namespace {

struct Mode {
  const char* name;
  const char* arguments;
  int (*run)(const QStringList& arguments);
  bool onDisplay = false;  // paints on the display that there is
};

constexpr Mode kModes[] = {
    {"scan", "TREE HOME", korvane::benchScan},
    {"lists", "HOME", korvane::benchLists},
    {"find", "HOME", korvane::benchFind},
    {"play", "FILE FILE2", korvane::benchPlay},
    {"records", "", korvane::benchRecords},
    {"rip", "[SECONDS]", korvane::benchRip},
    {"page", "GRID HOME", korvane::benchPage},
    {"playlist", "HOME", korvane::benchPlaylist},
    {"search", "HOME", korvane::benchSearch},
    {"keys", "", korvane::benchKeys},
    {"links", "HOME", korvane::benchLinks},
    {"listener", "LISTENER FILE", korvane::benchListener},
    {"lights", "HOME LIGHTS", korvane::benchLights},
    {"movies", "HOME", korvane::benchMovies},
    {"movie", "HOME FILE", korvane::benchMovie, true},
    {"dvd", "DISC", korvane::benchDvd, true},
    {"movie-bare", "FILE", korvane::benchBareMovie},
    {"thumbs", "", korvane::benchThumbs},
    {"turns", "", korvane::benchTurns},
    {"cddb", "", korvane::benchCddb},
    {"showpicture", "", korvane::benchShowPicture},
    {"sheet", "HOME", korvane::benchSheet},
    {"show", "HOME", korvane::benchShow},
    {"ftp", "", korvane::benchFtp},
};

int usage() {
  for (const Mode& mode : kModes)
    std::fprintf(stderr, "korvane-bench %s %s\n", mode.name, mode.arguments);
  return 2;
}

}  // namespace

int main(int count, char** values) {
  const auto onDisplay = [&](const Mode& mode) {
    return mode.onDisplay && count > 1 && std::strcmp(values[1], mode.name) == 0;
  };
  if (std::ranges::none_of(kModes, onDisplay)) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(count, values);
  QStringList arguments = QCoreApplication::arguments().mid(1);
  if (arguments.isEmpty()) return usage();
  const QString wanted = arguments.takeFirst();
  for (const Mode& mode : kModes)
    if (wanted == QLatin1StringView(mode.name)) return mode.run(arguments);
  return usage();
}

// korvane-listener: plays out of this machine what consoles ask for. For movies it gives way to
// korvane-listener-movies, which has a window.
#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <cstdio>

#include "services/listener/listener_program.h"

namespace {

using namespace korvane;

bool asksForMovies(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](const char* word) {
    const QByteArray name = QByteArray(word).split('=').first();
    return name == "--movie-root" || name == "--dvd";
  });
}

// Returns only when there is none.
void becomeMovies(char** argv) {
  const QString here = QFileInfo(u"/proc/self/exe"_s).canonicalPath();
  for (const char* place :
       {"/korvane-listener-movies", "/../libexec/korvane/korvane-listener-movies"})
    execv((here + QLatin1StringView(place)).toLocal8Bit().constData(), argv);
  std::perror("korvane-listener: korvane-listener-movies cannot be started");
}

}  // namespace

int main(int argc, char** argv) {
  if (asksForMovies(argc, argv)) {
    becomeMovies(argv);
    return 1;
  }
  const QCoreApplication application(argc, argv);
  return runListener(QCoreApplication::arguments().mid(1), {});
}

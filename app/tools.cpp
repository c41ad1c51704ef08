#include "app/tools.h"

#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>

#include <cstdio>

#include "core/app_state.h"
#include "core/settings.h"
#include "library/scan/scanner.h"
#include "ripper/import/cddb_import.h"
#include "ripper/names/cls_cddb.h"

namespace korvane {
namespace {

int complain(const QString& text) {
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  return 1;
}

void printRows(const RowSource& rows, std::initializer_list<int> columns) {
  for (int row = 1; row <= rows.rowCount(); ++row) {
    QStringList cells;
    for (const int column : columns) cells << rows.cell(column, row);
    std::printf("%s\n", qUtf8Printable(cells.join(u'\t')));
  }
}

// Prints what a scan meets.
struct PrintedScan : ScanEvents {
  explicit PrintedScan(bool tellsProgress) : progress(tellsProgress) {}
  void scanStatus(const ScanProgress& at) override {
    if (!progress) return;
    std::fprintf(stderr, "\r%d files, %d new, %.0f a second", at.files, at.added,
                 at.filesPerSecond);
    std::fflush(stderr);
  }
  void scanError(const QString& text) override {
    std::fprintf(stderr, "%s%s\n", progress ? "\n" : "", qUtf8Printable(text));
  }
  bool progress;
};

// Prints how far an import is: in place on a terminal, else a line now and then.
struct PrintedImport {
  PrintedImport() { sinceLine.start(); }
  void operator()(const CddbImport& at) {
    if (sinceLine.elapsed() < (terminal ? 200 : 10'000)) return;
    sinceLine.start();
    std::fprintf(stderr, "%s%d records, %d discs added%s", terminal ? "\r" : "", at.records,
                 at.added, terminal ? "" : "\n");
    std::fflush(stderr);
  }
  const bool terminal = isatty(STDERR_FILENO) != 0;
  QElapsedTimer sinceLine;
};

ScanResult scan(const QString& home, const QString& directory, FileSystem& files, Pump& pump,
                ScanEvents& events) {
  const AppState state;
  const Settings settings(files, pump, state, home);
  Database database(home);
  const ScanResult result =
      Scanner(database, pump, events).scanTagged(directory, scanRules(settings));
  bool listed = false;
  database.refreshLists(pump, [&] { listed = true; });
  constexpr int kLongestBuild = 60'000;  // ms
  pump.wait(kLongestBuild, [&] { return listed; });
  return result;
}

}  // namespace

int scanDirectory(const QString& home, const QString& directory, FileSystem& files,
                  Pump& pump) try {
  if (!files.FolderExists(directory))
    return complain(u"korvane: there is no directory "_s + directory);
  PrintedScan events(isatty(STDERR_FILENO));
  const ScanResult result = scan(home, QDir(directory).absolutePath(), files, pump, events);
  std::printf("%s%d files, %d songs added, %d could not be read, %.2f s\n",
              events.progress ? "\n" : "", result.files, result.added, result.failed,
              result.seconds);
  return 0;
} catch (const std::exception& failure) {
  return complain(QString::fromUtf8(failure.what()));
}

int importDiscNames(const QString& home, const QString& dump, FileSystem& files, Pump& pump) {
  const AppState state;
  const Settings settings(files, pump, state, home);
  PrintedImport printed;
  QElapsedTimer time;
  time.start();
  const CddbImport done =
      importCddb(files, QDir(dump).absolutePath(), cddbDirectory(home, settings.str(key::CDDBPath)),
                 {.progress = std::ref(printed)});
  std::printf("%s%d records: %d discs added, %d known, %d bad, %.2f s\n",
              printed.terminal ? "\n" : "", done.records, done.added, done.known, done.bad,
              static_cast<double>(time.elapsed()) / 1000);
  return done.trouble.isEmpty() ? 0 : complain(done.trouble);
}

void scanStarterSongs(const QString& home, FileSystem& files, Pump& pump) try {
  PrintedScan events(false);
  const QString music = home + u"/Music"_s;
  if (files.FolderExists(music)) scan(home, music, files, pump, events);
} catch (const std::exception& failure) {
  complain(QString::fromUtf8(failure.what()));  // the console starts all the same, without songs
}

int listLibrary(const QString& home, const QString& what) try {
  Database database(home);
  if (what == "artists"_L1) printRows(*database.getArtists(), {1});
  if (what == "albums"_L1) printRows(*database.getAllAlbums(), {1, 2});
  if (what == "songs"_L1) printRows(*database.getAllSongs(), {1, 2, 4, 3});
  return 0;
} catch (const std::exception& failure) {
  return complain(QString::fromUtf8(failure.what()));
}

}  // namespace korvane

// korvane-bench playlist HOME: 20,000 lines of a playlist become songs of the library.
// korvane-bench search HOME: find as you type, each key of it.
#include <QTemporaryDir>
#include <random>

#include "bench/bench.h"
#include "bench/bench_library.h"
#include "core/form/form.h"
#include "library/data/song_search.h"
#include "library/data/statements.h"
#include "library/lists/m3u_reader.h"
#include "library/lists/playlists.h"
#include "platform/files/disk_file_system.h"
#include "platform/machine/system_clock.h"

namespace korvane {
namespace {

constexpr int kLines = 20'000, kKeys = 400;

// The unavoidable: each line looked up by the index, its columns read, in one transaction.
qsizetype lookUpBare(sql::Connection& connection, const QList<QByteArray>& lines) {
  sql::Transaction once(connection, sql::Transaction::Reading);
  qsizetype read = 0;
  for (const QByteArray& line : lines) {
    auto run = connection.run(statement::kSongAtPath, QByteArrayView(line));
    while (run.step())
      for (int column = 0; column < 6; ++column) read += run.bytes(column).size();
  }
  once.commit();
  return read;
}

QList<QByteArray> someLines(Database& database) {
  const auto songs = database.getAllSongs();
  std::mt19937 random(1);
  QList<QByteArray> lines;
  for (int i = 0; i < kLines; ++i)
    lines << songs
                 ->cell(3,
                        1 + static_cast<int>(random() % static_cast<unsigned>(songs->rowCount())))
                 .toUtf8();
  return lines;
}

}  // namespace

int benchPlaylist(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  const QTemporaryDir folder;
  DiskFileSystem files;
  SystemClock clock;
  MeasuringPump pump;
  AppState state;
  Settings settings(files, pump, state, folder.path());
  const Log log(files, clock, folder.path());
  Database database(arguments[0]);
  Playlists playlists({state, settings, files, pump, log, database});
  const QList<QByteArray> lines = someLines(database);
  const QString list = folder.filePath(u"list.m3u"_s);
  files.replace(list, lines.join('\n'));

  QList<PlaySong> songs;
  OpenedDatabase open(database);
  qsizetype read = 0;
  double ours = 1e9, bare = 1e9;
  for (int i = 0; i < 7; ++i) {  // by turns, so that a busy machine slows both
    pump.start();
    ours = std::min(ours,
                    fastest(1, [&] { songs = playlists.read(list).value_or(QList<PlaySong>()); }));
    bare = std::min(bare, fastest(1, [&] { read = lookUpBare(*open, lines); }));
  }
  bool right = songs.size() == kLines && read > 0;
  for (int i = 0; right && i < kLines; ++i)
    right = songs[i].Path.toUtf8() == lines[i] && !songs[i].Artist.isEmpty();
  Json("playlist")
      .add("lines", kLines)
      .add("songs", database.getAllSongs()->rowCount())
      .add("seconds", ours)
      .add("bare_seconds", bare)
      .add("ratio", ours / bare)
      .add("max_gap_ms", pump.maxGapMs())
      .add("right", right)
      .print();
  return right ? 0 : 1;
}

int benchSearch(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  constexpr InventoryRow kResult[] = {{"grid", -1, Kind::Grid, {}, Left | Top, ""}};
  Form form(u"bench"_s, kResult);
  auto& grid = *dynamic_cast<Grid*>(form.find(u"grid"));
  DiskFileSystem files;
  MeasuringPump pump;
  AppState state;
  const Settings settings(files, pump, state, arguments[0]);
  const Palette palette(settings);
  Database database(arguments[0]);
  clsSearch search(grid, database, palette, state);
  const auto songs = database.getAllSongs();
  std::mt19937 random(1);
  Json line("search");
  line.add("songs", songs->rowCount());
  bool right = true;
  for (const auto& [kind, column] : {std::pair("ARTIST", 2), {"ALBUM", 4}, {"SONG", 1}}) {
    double worst = 0, sum = 0;
    for (int key = 0; key < kKeys; ++key) {
      const int row = 1 + static_cast<int>(random() % static_cast<unsigned>(songs->rowCount()));
      // Every tenth text is in no row, which takes a walk through all.
      const QString text = key % 10 == 0 ? u"nowhere \u00df"_s.left(1 + key / 10 % 9) + u"\u00df"_s
                                         : songs->cell(column, row).left(1 + key % 12);
      QElapsedTimer timer;
      timer.start();
      search.Search(QString::fromLatin1(kind), text);
      const double took = static_cast<double>(timer.nsecsElapsed()) / 1e6;
      worst = std::max(worst, took);
      sum += took;
      right = right && (key % 10 == 0 || grid.maxRows() > 0);
    }
    const QByteArray name = QByteArray(kind).toLower();
    line.add((name + "_mean_ms").constData(), sum / kKeys);
    line.add((name + "_worst_ms").constData(), worst);
  }
  line.add("right", right).print();
  return right ? 0 : 1;
}

}  // namespace korvane

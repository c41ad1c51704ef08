// korvane-bench lists HOME: every statement of the lists beside the same query stepped bare.
#include "bench/bench.h"
#include "bench/bench_library.h"
#include "library/data/database.h"
#include "library/data/statements.h"

namespace korvane {
namespace {

constexpr double kAllowedMs = 1;

int touched(const RowSource& rows, int columns) {
  int characters = 0;
  for (int row = 1; row <= rows.rowCount(); ++row)
    for (int column = 1; column <= columns; ++column)
      characters += static_cast<int>(rows.cell(column, row).size());
  return characters;
}

// Steps the query and looks at every column, as whoever shows the rows must.
template <class... Values>
int stepped(Database& database, const char* sql, const Values&... values) {
  OpenedDatabase open(database);
  int rows = 0;
  for (auto run = open->run(sql, values...); run.step(); ++rows)
    for (int column = 0; column < run.columns(); ++column) run.bytes(column);
  return rows;
}

struct Line {
  const char* name;
  std::function<int()> ours, bare;  // rows
};

// A screenful of the list of all songs; each run shows another place of it, not read before.
double screenMs(Database& db, const AllSongs& all) {
  int screen = 0;
  return 1000 * median(7, [&] {
           AllSongs rows(
               all.image(),
               [&db]() -> sql::Connection& {
                 db.DbOpen();
                 return db.connection();
               },
               [](const QString&) {});
           const int first = 1 + all.rowCount() / 224 * 32 * screen++;
           for (int row = first; row < first + 20; ++row)
             for (int column = 1; column <= 4; ++column) rows.cell(column, row);
         });
}

}  // namespace

int benchLists(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  Database db(arguments[0]);
  const auto all = db.getAllSongs();  // makes the list file when it does not stand
  const QString artist = all->cell(2, all->rowCount() / 2),
                album = all->cell(4, all->rowCount() / 2);
  const QString path = all->cell(3, all->rowCount() / 2);
  const Line lines[] = {
      {"artists",
       [&] {
         const auto rows = db.getArtists();
         return touched(*rows, 1), rows->rowCount();
       },
       [&] { return stepped(db, statement::kAllArtists); }},
      {"albums",
       [&] {
         const auto rows = db.getAllAlbums();
         return touched(*rows, 2), rows->rowCount();
       },
       [&] { return stepped(db, statement::kAllAlbums); }},
      {"artist_albums", [&] { return static_cast<int>(db.getArtistAlbums(artist).size()); },
       [&] { return stepped(db, statement::kAlbumsOfArtist, artist); }},
      {"album_songs",
       [&] { return static_cast<int>(db.getArtistOrAlbumSongs(artist, album).size()); },
       [&] { return stepped(db, statement::kSongsOfAlbum, artist, album); }},
      {"favorites", [&] { return static_cast<int>(db.getFavorites().size()); },
       [&] { return stepped(db, statement::kFavorites); }},
      {"path", [&] { return static_cast<int>(db.getSongAtPath(path).has_value()); },
       [&] { return stepped(db, statement::kSongAtPath, path); }},
  };
  Json json("lists");
  json.add("songs", all->rowCount());
  bool right = true, within = true;
  for (const Line& line : lines) {
    int ours = 0, bare = 0;
    const double oursMs = 1000 * fastest(5, [&] { ours = line.ours(); });
    const double bareMs = 1000 * fastest(5, [&] { bare = line.bare(); });
    right = right && ours == bare && ours > 0;
    within = within && oursMs <= 1.5 * bareMs + kAllowedMs;
    const QByteArray name(line.name);
    json.add((name + "_rows").constData(), ours).add((name + "_ms").constData(), oursMs);
    json.add((name + "_bare_ms").constData(), bareMs);
  }
  const double openMs = 1000 * fastest(5, [&] { Database(arguments[0]).getAllSongs(); });
  const double countsMs = 1000 * fastest(5, [&] { db.getLibraryCounts(); });
  json.add("screen_ms", screenMs(db, *all)).add("open_ms", openMs).add("counts_ms", countsMs);
  json.add("peak_mib", measure([] {}).peakMib).add("right", right).add("within", within);
  json.print();
  return right ? 0 : 1;
}

}  // namespace korvane

#include "library/data/schema.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <cstdio>

#include "library/data/text_order.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

// Without an index on the title: one would draw the favourites' statement away from their own. The
// triggers void the memory of scans when a row that it stands for goes or changes its names.
constexpr char kTables[] = R"(
CREATE TABLE Songs (
  Artist    TEXT COLLATE TEXTORDER,
  album     TEXT COLLATE TEXTORDER,
  SongTitle TEXT COLLATE TEXTORDER,
  year      TEXT COLLATE TEXTORDER,
  Comment   TEXT COLLATE TEXTORDER,
  SongPath  TEXT COLLATE TEXTORDER,
  SongID    INTEGER PRIMARY KEY AUTOINCREMENT);
CREATE INDEX SongsByArtist ON Songs (Artist, album, SongTitle);
CREATE INDEX SongsByAlbum ON Songs (album, Artist);
CREATE INDEX SongsByPath ON Songs (SongPath);
CREATE INDEX SongsFavorite ON Songs (SongTitle) WHERE year = '-1';
CREATE TABLE Movies (
  MovieName TEXT COLLATE TEXTORDER PRIMARY KEY,
  MoviePath TEXT COLLATE TEXTORDER);
CREATE TABLE Scanned (Directory BLOB PRIMARY KEY, Stamps BLOB) WITHOUT ROWID;
CREATE TRIGGER SongsGone AFTER DELETE ON Songs BEGIN DELETE FROM Scanned; END;
CREATE TRIGGER SongsRenamed AFTER UPDATE OF Artist, album, SongTitle ON Songs
  BEGIN DELETE FROM Scanned; END;
)";

constexpr char kDrop[] = R"(
DROP TABLE IF EXISTS Songs;
DROP TABLE IF EXISTS Movies;
DROP TABLE IF EXISTS Scanned;
)";

constexpr char kLibrary[] = "CREATE TABLE Library (TextOrder INTEGER);";

qint64 newNumber() {
  return QRandomGenerator::system()->bounded(1, 0x7FFFFFFF);
}

// The library's number, by which two files with one history of changes are told apart.
void setNumber(sql::Connection& connection) {
  const qint64 number = newNumber();
  connection.script(("PRAGMA user_version = " + QByteArray::number(number)).constData());
}

}  // namespace

void createEmptyDatabase(const QString& path) {
  const QByteArray target = fromPath(path), fresh = target + ".new";
  ::unlink(fresh.constData());
  struct Litter {  // of an attempt that failed
    const QByteArray& path;
    ~Litter() { ::unlink(path.constData()); }
  } const litter{fresh};
  {
    sql::Connection connection(toPath(fresh), sql::Connection::Create);
    sql::Transaction whole(connection);
    connection.script(kTables);
    connection.script(kLibrary);
    connection.execute("INSERT INTO Library VALUES (?1)", qint64{text_order::version()});
    setNumber(connection);
    whole.commit();
  }
  // What a crash left of the old file would be played into the new one.
  ::unlink((target + "-journal").constData());
  if (::rename(fresh.constData(), target.constData()) != 0)
    throw DatabaseError(DatabaseError::NoAccess, path, QString::fromUtf8(strerror(errno)));
}

void eraseLibrary(sql::Connection& connection) {
  sql::Transaction whole(connection);
  connection.script(kDrop);
  connection.script(kTables);
  setNumber(connection);
  whole.commit();
}

void checkSchema(sql::Connection& connection) {
  const auto tables = connection.number(
      "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name IN ('Songs', 'Movies', "
      "'Scanned', 'Library')");
  if (tables != 4) throw DatabaseError(DatabaseError::NotADatabase, connection.path());
  const qint64 order = text_order::version();
  if (connection.number("SELECT TextOrder FROM Library") == order) return;
  sql::Transaction whole(connection);
  connection.script("REINDEX");
  connection.execute("UPDATE Library SET TextOrder = ?1", order);
  whole.commit();
}

}  // namespace korvane

#include "library/data/database.h"

#include <sys/stat.h>

#include <QLocale>
#include <cerrno>
#include <cstring>

#include "library/data/schema.h"
#include "library/data/sql_functions.h"
#include "library/data/statements.h"
#include "library/data/vb_text.h"
#include "library/index/mapped_rows.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

// A count in the format "###,###": nothing for zero.
QString counted(qint64 count) {
  return count == 0 ? QString() : QLocale(QLocale::English).toString(count);
}

std::shared_ptr<RowTable> table(sql::Run run, int columns) {
  auto rows = std::make_shared<RowTable>();
  while (run.step()) {
    RowTable::Row row;
    for (int column = 0; column < columns; ++column) row.cells << run.text(column);
    rows->rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

Database::Database(QString home)
    : path_(home + u'/' + QLatin1StringView(kFileName)), index_(path_) {}

Database::~Database() = default;

std::optional<Database::FileId> Database::fileId() const {
  struct stat status {};
  if (::stat(fromPath(path_).constData(), &status) != 0) return {};
  return FileId{status.st_dev, status.st_ino};
}

void Database::DbOpen() {
  if (writing_.valid()) writing_.wait();
  if (connection_ && held_ > 0) return;
  const auto file = fileId();
  const int error = errno;
  if (connection_ && file == opened_) return;
  connection_.reset();
  if (!file) {
    throw DatabaseError(error == ENOENT ? DatabaseError::Missing : DatabaseError::NoAccess, path_,
                        QString::fromLocal8Bit(std::strerror(error)));
  }
  auto fresh = std::make_unique<sql::Connection>(path_, sql::Connection::ReadWrite);
  fresh->onLocked = [this] { index_.giveWay(); };
  fresh->script("PRAGMA journal_mode = TRUNCATE");
  checkSchema(*fresh);
  connection_ = std::move(fresh);
  opened_ = *file;
}

void Database::DbClose() noexcept {}

sql::Connection& Database::connection() {
  return *connection_;
}

QString Database::getLibraryCounts() {
  OpenedDatabase db(*this);
  qint64 artists, albums, songs;
  if (const auto image = index_.valid(*db)) {
    artists = image->artists();
    albums = image->header().albumNames;
    songs = image->songs();
  } else {
    artists = db->number(statement::kCountArtists);
    albums = db->number(statement::kCountAlbums);
    songs = db->number(statement::kCountSongs);
  }
  return counted(artists) + u" Artist \n"_s + counted(albums) + u" Albums \n"_s + counted(songs) +
         u" Songs "_s;
}

std::shared_ptr<const RowSource> Database::getArtists() {
  OpenedDatabase db(*this);
  if (auto image = index_.valid(*db)) return std::make_shared<ArtistRows>(image);
  return table(db->run(statement::kAllArtists), 1);
}

std::shared_ptr<const RowSource> Database::getAllAlbums() {
  OpenedDatabase db(*this);
  if (auto image = index_.valid(*db)) return std::make_shared<AlbumRows>(image);
  return table(db->run(statement::kAllAlbums), 2);
}

std::shared_ptr<AllSongs> Database::getAllSongs() {
  OpenedDatabase db(*this);
  // While a scan writes, what is open stays; a list of its own would have to wait for the scan.
  if (db->inTransaction() && rsMain_) return rsMain_;
  auto image = index_.valid(*db);
  if (!image) image = db->inTransaction() ? index_.passing(*db) : index_.rebuild();
  if (!rsMain_ || rsMain_->image() != image)
    rsMain_ = std::make_shared<AllSongs>(
        image,
        [this]() -> sql::Connection& {
          DbOpen();
          return connection();
        },
        [this](const QString& why) { onUnreadable(why); });
  return rsMain_;
}

void Database::refreshLists(Pump& pump, std::function<void()> done) {
  OpenedDatabase db(*this);
  index_.refresh(*db, pump, std::move(done));
}

QStringList Database::findArtists(const QString& text, int most) {
  OpenedDatabase db(*this);
  QStringList found;
  if (const auto image = index_.valid(*db)) {
    const sql::Containing wanted(text.toUtf8().toStdString());
    for (int i = 0; i < image->artists() && found.size() < most; ++i)
      if (wanted.in(image->artist(i))) found << QString::fromUtf8(image->artist(i));
    return found;
  }
  auto run = db->run(statement::kFindArtists, text, qint64{most});
  while (run.step()) found << run.text(0);
  return found;
}

QList<std::pair<QString, QString>> Database::findAlbums(const QString& text, int most) {
  OpenedDatabase db(*this);
  QList<std::pair<QString, QString>> found;
  if (const auto image = index_.valid(*db)) {
    const sql::Containing wanted(text.toUtf8().toStdString());
    for (int i = 0; i < image->albums() && found.size() < most; ++i)
      if (wanted.in(image->album(i)))
        found.emplaceBack(QString::fromUtf8(image->album(i)),
                          QString::fromUtf8(image->albumArtist(i)));
    return found;
  }
  auto run = db->run(statement::kFindAlbums, text, qint64{most});
  while (run.step()) found.emplaceBack(run.text(0), run.text(1));
  return found;
}

QStringList Database::getArtistAlbums(const QString& artist) {
  OpenedDatabase db(*this);
  QStringList albums;
  for (auto run = db->run(statement::kAlbumsOfArtist, artist); run.step();) albums << run.text(0);
  return albums;
}

QList<Song> Database::songs(sql::Run run) const {
  QList<Song> found;
  while (run.step())
    found << Song{run.text(0), run.text(1), run.text(2),  run.text(3),
                  run.text(4), run.text(5), run.number(6)};
  return found;
}

QList<Song> Database::getArtistOrAlbumSongs(const QString& artist, const QString& album) {
  try {
    OpenedDatabase db(*this);
    return songs(db->run(statement::kSongsOfAlbum, artist, album));
  } catch (const DatabaseError& failure) {
    throw failure.in(u"getArtistOrAlbumSongs"_s);
  }
}

QList<Song> Database::getFavorites() {
  OpenedDatabase db(*this);
  return songs(db->run(statement::kFavorites));
}

std::optional<Song> Database::getSongAtPath(const QString& path) {
  OpenedDatabase db(*this);
  const auto found = songs(db->run(statement::kSongAtPath, path));
  if (found.isEmpty()) return {};
  // The column's order does not tell case apart, the disk does: the very path goes first.
  const auto exact =
      std::find_if(found.begin(), found.end(), [&](const Song& s) { return s.SongPath == path; });
  return exact != found.end() ? *exact : found.first();
}

std::optional<Song> Database::getSongByPath(const QString& path) {
  if (auto exact = getSongAtPath(path))
    return exact;  // by the index, where the next reads every row
  OpenedDatabase db(*this);
  auto run = db->run(statement::kSongLikePath, trimBlanks(QStringView(path).mid(1)));
  if (!run.step()) return {};
  return Song{run.text(0), run.text(1), run.text(2),  run.text(3),
              run.text(4), run.text(5), run.number(6)};
}

// Runs a change of marks in one transaction. No list shows a mark, so the list file stays valid.
template <class Change>
int Database::changeMark(Change change) {
  OpenedDatabase db(*this);
  const bool alone = !db->inTransaction();
  sql::Transaction whole(*db);
  const auto before = index_.valid(*db) ? DatabaseStamp::of(db->header()) : std::nullopt;
  const int changed = change(*db);
  whole.commit();
  if (alone) index_.restamp(before, *db);
  return changed;
}

int Database::setFavorite(const QString& artist, const QString& album, const QString& title,
                          const QString& path) {
  return changeMark([&](sql::Connection& db) {
    if (path.isEmpty()) return db.execute(statement::kMarkByTitle, artist, album, title);
    return db.execute(statement::kMarkByPath, artist, album, QString(u'*' + path.mid(1) + u'*'));
  });
}

int Database::markAtPath(const QString& path) {
  const auto song = getSongAtPath(path);
  if (!song) return 0;
  return changeMark(
      [&](sql::Connection& db) { return db.execute(statement::kMarkById, song->SongID); });
}

int Database::clearFavorite(const QString& artist, const QString& album, const QString& title) {
  return changeMark(
      [&](sql::Connection& db) { return db.execute(statement::kClearMark, artist, album, title); });
}

int Database::importFavorite(const QString& line) {
  return changeMark([&](sql::Connection& db) {
    return db.execute(statement::kMarkOnImport, QString(u'%' + line.mid(1)));
  });
}

bool Database::hasSong(const QString& artist, const QString& album, const QString& title) {
  OpenedDatabase db(*this);
  return db->run(statement::kDuplicate, artist, album, title).step();
}

void Database::insertSong(const Song& song) {
  OpenedDatabase db(*this);
  db->execute(statement::kInsert, song.Artist, song.album, song.SongTitle, song.year, song.Comment,
              song.SongPath);
}

void Database::erase() {
  try {
    OpenedDatabase db(*this);
    eraseLibrary(*db);
  } catch (const DatabaseError& failure) {
    const bool beyondRepair = failure.kind() == DatabaseError::Missing ||
                              failure.kind() == DatabaseError::NotADatabase ||
                              failure.kind() == DatabaseError::Damaged;
    if (!beyondRepair || held_ > 0) throw;
    connection_.reset();
    createEmptyDatabase(path_);
  }
}

}  // namespace korvane

// The song database, "Morvanta.mdb" of the program directory (an SQLite file), its shared
// statements and the running play list.
//
// Every operation opens and closes the database by itself. What cannot be done is thrown as
// DatabaseError, whose text is made for the user; the file then holds what it held before, and the
// next operation tries anew. One thread, the user interface's.
#pragma once

#include <future>
#include <memory>
#include <optional>

#include "core/form/row_source.h"
#include "library/data/play_songs.h"
#include "library/data/song.h"
#include "library/data/sql.h"
#include "library/index/all_songs.h"
#include "library/index/library_index.h"

namespace korvane {

class Database : public PlaySongs {
 public:
  static constexpr char kFileName[] = "Morvanta.mdb";

  explicit Database(QString home);  // the program directory; nothing is opened yet
  ~Database();

  const QString& path() const { return path_; }

  // Opens the file; it must exist (schema.h makes one). Waits up to two seconds for another program
  // that has it locked. Throws DatabaseError; what was open before is closed then. Cheap when it is
  // the one opened before: the handle is kept behind DbClose, and a file that was replaced or
  // removed is noticed here.
  void DbOpen();
  void DbClose() noexcept;  // harmless when closed
  // The connection, between DbOpen and DbClose.
  sql::Connection& connection();

  QString getLibraryCounts();  // "<n> Artist ", "<n> Albums " and "<n> Songs ", a line each

  // Lists of the whole library: mapped from the list file when it stands for the database as it is.
  std::shared_ptr<const RowSource> getArtists();    // artist
  std::shared_ptr<const RowSource> getAllAlbums();  // album, artist
  std::shared_ptr<AllSongs> getAllSongs();          // rsMain; the same until songs change

  // The first `most` artists or albums whose name is like "%<text>%", in their order.
  QStringList findArtists(const QString& text, int most);
  QList<std::pair<QString, QString>> findAlbums(const QString& text, int most);  // album, artist

  QStringList getArtistAlbums(const QString& artist);  // in the order of texts
  // In the order of their stored titles.
  QList<Song> getArtistOrAlbumSongs(const QString& artist, const QString& album);
  QList<Song> getFavorites();
  std::optional<Song> getSongAtPath(const QString& path);  // exactly that path, as play lists ask
  // The song of a path whose drive (first character) may be another here.
  std::optional<Song> getSongByPath(const QString& path);

  // With a path the mark goes by path, else by title. The rows marked.
  int setFavorite(const QString& artist, const QString& album, const QString& title,
                  const QString& path);
  int markAtPath(const QString& path);  // the song of exactly that path
  int clearFavorite(const QString& artist, const QString& album, const QString& title);
  // A line of Favorites.m3u, whose first character stands for any. The rows marked.
  int importFavorite(const QString& line);

  // The writers' two statements. insertSong does not look for a duplicate.
  bool hasSong(const QString& artist, const QString& album, const QString& title);
  void insertSong(const Song& song);

  // Every row of songs, movies and scans; the play list stays. A file that is missing or damaged
  // beyond reading is replaced by an empty one.
  void erase();

  // Hears, in words for the user, that rows of an open list of songs cannot be read: they show
  // empty cells. Once, until rows can be read again. May be called while a list is painted.
  std::function<void(const QString& why)> onUnreadable = [](const QString&) {};

  // Another thread uses the connection until `writing` is ready: whoever opens the database waits
  // for it. An empty one ends that.
  void setWriting(std::shared_future<void> writing) { writing_ = std::move(writing); }

  // Makes the list file anew in the background when it does not stand for the database as it is, as
  // after a scan; then the lists come from it again. `done` comes from the event loop.
  void refreshLists(Pump& pump, std::function<void()> done);

 private:
  friend class OpenedDatabase;
  struct FileId {
    quint64 device = 0, inode = 0;
    bool operator==(const FileId&) const = default;
  };
  std::optional<FileId> fileId() const;
  QList<Song> songs(sql::Run run) const;
  template <class Change>
  int changeMark(Change change);

  const QString path_;
  std::unique_ptr<sql::Connection> connection_;
  FileId opened_;
  LibraryIndex index_;
  std::shared_ptr<AllSongs> rsMain_;
  int held_ = 0;  // by OpenedDatabase
  std::shared_future<void> writing_;
};

// The connection for one operation, or for the whole run of a scan: while one lives, no file is
// opened in its place.
class OpenedDatabase {
 public:
  explicit OpenedDatabase(Database& database) : database_(database) {
    database_.DbOpen();
    ++database_.held_;
  }
  ~OpenedDatabase() {
    --database_.held_;
    database_.DbClose();
  }
  OpenedDatabase(const OpenedDatabase&) = delete;
  sql::Connection* operator->() { return &database_.connection(); }
  sql::Connection& operator*() { return database_.connection(); }

 private:
  Database& database_;
};

}  // namespace korvane

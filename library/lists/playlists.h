// Playlists: files "<name>.m3u" of one directory, one path a line. And the favourites' export and
// import, which share that directory.
#pragma once

#include "core/app_state.h"
#include "core/form/control.h"
#include "core/log.h"
#include "core/settings.h"
#include "library/data/database.h"

namespace korvane {

// The rows of an opened list: column 1 the title as shown, column 2 the path. A row without an
// artist is not of the library.
class PlaySongRows : public RowSource {
 public:
  explicit PlaySongRows(QList<PlaySong> rows) : songs(std::move(rows)) {}
  int rowCount() const override { return static_cast<int>(songs.size()); }
  QString cell(int column, int row) const override;
  bool foreign(int row) const override { return at(row).Artist.isEmpty(); }
  const PlaySong& at(int row) const;  // an empty one outside

  const QList<PlaySong> songs;
};

class Playlists {
 public:
  struct Uses {
    AppState& state;
    Settings& settings;
    FileSystem& files;
    Pump& pump;
    const Log& log;
    Database& database;
  };
  explicit Playlists(Uses uses) : uses_(uses) {}

  // The directory of the lists, made when it is missing; where it cannot be, "PlayLists" of the
  // program directory takes its place, and the key says so.
  QString directory();

  // Fills the list of playlists: column 1 the name, column 2 the path.
  void PlayListSetupFiles(Grid& grid);

  // Reads a list; it is the one opened last then, and no song of it is in the play list yet. Each
  // line becomes the song of the library that it means, or itself. False with `error` in words when
  // the file cannot be read, which leaves an empty one. Yields.
  bool getPlayListSongs(const QString& path, QString* error);
  // The songs alone; nothing when the file cannot be read. Yields.
  std::optional<QList<PlaySong>> read(const QString& path, QString* error = nullptr);

  void reopen(const QList<PlaySong>& songs);  // a list that was opened before is the last one again

  // The list opened last: its rows, its songs, and its way into the play list.
  std::shared_ptr<const RowSource> openedRows() const { return opened_; }
  QList<PlaySong> openedSongs() const { return opened_->songs; }
  int openedCount() const { return opened_->rowCount(); }
  void useOpened();  // nothing when it is the play list already

  // Replaces a list as a whole; until that is done, and after a failure (false, with `error` in
  // words), the old one stands. Yields.
  bool save(const QString& path, const QStringList& paths, QString* error);
  bool rename(const QString& path, const QString& name, QString* error);
  bool remove(const QString& path) { return uses_.files.DeleteFile(path); }
  bool taken(const QString& path) const { return uses_.files.FileExists(path); }
  QString pathOf(const QString& name) { return directory() + u'/' + name + u".m3u"_s; }

  // Why a list cannot have that name, in words for the user; empty when it can. The double quote is
  // allowed, whatever the words say.
  static QString nameFault(QStringView name);
  static QString nameOf(const QString& fileName);  // up to ".m3u" in any case

 private:
  QString ownDirectory();

  Uses uses_;
  std::shared_ptr<const PlaySongRows> opened_ =
      std::make_shared<PlaySongRows>(QList<PlaySong>());  // never null
};

}  // namespace korvane

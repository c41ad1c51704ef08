#include "library/lists/playlists.h"

#include "library/data/text_order.h"
#include "library/data/vb_text.h"
#include "library/lists/m3u_reader.h"

namespace korvane {
namespace {

constexpr qint64 kLargestFile = 256 << 20;  // bytes
constexpr int kMostSongs = 1'000'000;       // of one list; what follows is left out
constexpr int kShownOfLine = 50;            // characters of a line that is not in the library
constexpr int kBatch = 512;                 // look-ups under one lock, between two yields
constexpr qsizetype kLongestName = 200;     // bytes of a list's name

PlaySong ofLibrary(const Song& song) {
  return {song.SongTitle, song.Artist, song.album, song.Comment, song.year, song.SongPath};
}

bool exists(const FileSystem& files, const QString& path) {
  return path.startsWith(u'/') && files.FileExists(path);
}

// The song of the library that the line at hand means, or the line itself.
PlaySong songOf(const M3uReader& line, const QString& folder, Database& database,
                const FileSystem& files) {
  if (const auto song = database.getSongAtPath(line.text())) return ofLibrary(*song);
  PlaySong foreign;
  foreign.Title = line.text().right(kShownOfLine);
  foreign.Path = line.text();
  if (!line.ambiguous()) return foreign;
  const QStringList meanings = line.meanings(folder);
  for (const QString& meaning : meanings.mid(1))
    if (const auto song = database.getSongAtPath(meaning)) return ofLibrary(*song);
  for (const QString& meaning : meanings) {
    if (!exists(files, meaning)) continue;
    foreign.Path = meaning;
    break;
  }
  return foreign;
}

}  // namespace

QString PlaySongRows::cell(int column, int row) const {
  const PlaySong& song = at(row);
  if (column == 1) return song.Artist.isEmpty() ? song.Title : songTitleShown(song.Title);
  return column == 2 ? song.Path : QString();
}

const PlaySong& PlaySongRows::at(int row) const {
  static const PlaySong none{};
  return row < 1 || row > rowCount() ? none : songs[row - 1];
}

QString Playlists::ownDirectory() {
  const QString own = uses_.settings.home() + u"/PlayLists"_s;
  uses_.files.CreateFolder(own);
  uses_.settings.write(key::PLDirectory, own);
  return own;
}

QString Playlists::directory() {
  QString folder = FileSystem::slashed(uses_.settings.str(key::PLDirectory));
  while (folder.size() > 1 && folder.endsWith(u'/')) folder.chop(1);
  if (folder == "NO"_L1 || folder.isEmpty()) folder = ownDirectory();
  if (!uses_.files.FolderExists(folder) && !uses_.files.CreateFolder(folder))
    folder = ownDirectory();
  uses_.state.gPlaylistDir = folder;
  return folder;
}

QString Playlists::nameOf(const QString& fileName) {
  return fileName.left(fileName.indexOf(".M3U"_L1, 0, Qt::CaseInsensitive));
}

QString Playlists::nameFault(QStringView name) {
  const auto unfit = [](QChar c) { return c < u' ' || QStringView(u"\\/:*?<>|").contains(c); };
  if (std::ranges::any_of(name, unfit)) return u"File name cannot contain \\/:*?\"<>|"_s;
  if (name.startsWith(u'.'))
    return u"The name of a playlist cannot begin with a dot: the list would be hidden."_s;
  if (name.toUtf8().size() > kLongestName)
    return u"That name is too long for a file. Choose a shorter one."_s;
  return {};
}

void Playlists::PlayListSetupFiles(Grid& grid) {
  uses_.log.guard("PlayListSetupFiles", "Module Database", [&] {
    const QString folder = directory();
    QStringList names = uses_.files.Files(folder);
    names.removeIf([](const QString& name) {
      const qsizetype dot = name.indexOf(u'.');
      return dot <= 0 || !name.mid(dot + 1).contains("M3U"_L1, Qt::CaseInsensitive);
    });
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
      return text_order::compare(a.toUtf8().toStdString(), b.toUtf8().toStdString()) < 0;
    });
    std::vector<RowTable::Row> rows;
    for (const QString& name : names) rows.push_back({{nameOf(name), folder + u'/' + name}});
    grid.setRows(std::move(rows));
  });
}

std::optional<QList<PlaySong>> Playlists::read(const QString& path, QString* error) {
  std::optional<QByteArray> file = uses_.files.read(path, kLargestFile);
  if (!file) {
    if (error)
      *error = u"The playlist "_s + path +
               u" cannot be read. It may have been removed, or its disk is not there."_s;
    return {};
  }
  const QString folder = FileSystem::GetParentFolderName(path);
  M3uReader reader(std::move(*file));
  QList<PlaySong> songs;
  bool more = reader.next();
  while (more && songs.size() < kMostSongs) {
    {
      OpenedDatabase open(uses_.database);
      sql::Transaction once(*open, sql::Transaction::Reading);
      for (int i = 0; more && i < kBatch; ++i, more = reader.next()) {
        PlaySong song = songOf(reader, folder, uses_.database, uses_.files);
        songs << uses_.database.fitted(std::move(song));
      }
      once.commit();
    }
    uses_.pump.breathe();
  }
  return songs;
}

bool Playlists::getPlayListSongs(const QString& path, QString* error) {
  const auto songs = read(path, error);
  reopen(songs.value_or(QList<PlaySong>()));
  return songs.has_value();
}

void Playlists::reopen(const QList<PlaySong>& songs) {
  opened_ = std::make_shared<PlaySongRows>(songs);
}

void Playlists::useOpened() {
  if (uses_.database.rsPlaySongs.rows().isSharedWith(opened_->songs)) return;
  uses_.database.setPlaySongs(opened_->songs);
}

bool Playlists::save(const QString& path, const QStringList& paths, QString* error) {
  QByteArray file;
  for (const QString& line : paths) {
    file += playlistLine(line) + '\n';
    uses_.pump.breathe();
  }
  return uses_.files.replace(path, file, error);
}

bool Playlists::rename(const QString& path, const QString& name, QString* error) {
  const QString to = FileSystem::GetParentFolderName(path) + u'/' + name + u".m3u"_s;
  if (to == path) return true;
  const auto taken = uses_.files.resolve(to);
  if (taken && *taken != uses_.files.resolve(path)) {
    *error = u"A playlist of that name is there already."_s;
    return false;
  }
  if (uses_.files.MoveFile(path, to)) return true;
  *error = u"The playlist cannot be renamed. Is its disk write-protected?"_s;
  return false;
}

}  // namespace korvane

#include "library/lists/favourites.h"

#include "core/form/panel.h"
#include "library/lists/m3u_reader.h"

namespace korvane {
namespace {

constexpr int kShortestLine = 2;  // characters of a line that is imported
constexpr int kBatch = 16;        // lines of one transaction

}  // namespace

Favourites::Favourites(Form& form, Uses uses)
    : uses_(uses), cmdFavoriateAdd_(controlOf<Image>(form, u"cmdFavoriateAdd")) {}

void Favourites::cmdFavoriateAdd_Click() {
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  const std::optional<PlaySong> song = uses_.browsing.selectedSong();
  if (!song) return;
  cmdFavoriateAdd_.setPicture(u"music"_s, u"AddFavb"_s);
  uses_.pump.doEvents();
  int marked = 0;
  try {
    const bool ofAllSongs = uses_.state.gridMode == MusicList::AllSongs;
    marked = uses_.database.setFavorite(song->Artist, song->Album, song->Title,
                                        ofAllSongs ? song->Path : QString());
    // The path form's wildcard is not one of this engine's: what it leaves is marked by the path.
    if (marked == 0) marked = uses_.database.markAtPath(song->Path);
    if (marked > 0) uses_.browsing.showMarked();
  } catch (const DatabaseError& failure) {
    uses_.messages.say(QString::fromUtf8(failure.what()));
    marked = -1;
  }
  cmdFavoriateAdd_.setPicture(u"music"_s, u"AddFav"_s);
  if (marked == 0)
    uses_.messages.say(u"Only a song of the library can be a favourite. Scan it in first."_s);
}

QString Favourites::file() const {
  QString folder = uses_.settings.str(key::PLDirectory);
  if (folder == "NO"_L1) folder = uses_.playlists.directory();
  if (uses_.files.FolderExists(folder)) return FileSystem::BuildPath(folder, u"Favorites.m3u"_s);
  uses_.messages.say(u"Playlist directory does not exist "_s);
  return {};
}

void Favourites::exportFavorites() {
  const QString path = file();
  if (path.isEmpty()) return;
  QStringList lines;
  for (const Song& song : uses_.database.getFavorites()) lines << song.SongPath;
  QString error;
  if (uses_.playlists.save(path, lines, &error))
    uses_.messages.say(u" Output file written = "_s + path);
  else
    uses_.messages.say(error);
}

void Favourites::importFavorites() {
  const QString path = file();
  if (path.isEmpty()) return;
  std::optional<QByteArray> bytes = uses_.files.read(path);
  if (!bytes) {
    uses_.messages.say(path + u" cannot be read. Export the favourites first."_s);
    return;
  }
  M3uReader lines(std::move(*bytes));
  {
    const Busy busy(uses_.screen);
    for (bool more = lines.next(); more; uses_.pump.breathe()) {
      OpenedDatabase open(uses_.database);
      sql::Transaction whole(*open);
      for (int i = 0; more && i < kBatch; ++i, more = lines.next())
        if (lines.text().size() >= kShortestLine) uses_.database.importFavorite(lines.text());
      whole.commit();
    }
  }
  uses_.state.gFavoritesLoaded = false;
}

}  // namespace korvane

#include "ripper/ripped_songs.h"

#include "library/data/statements.h"

namespace korvane {
namespace {

constexpr char kNewPath[] =
    "update songs set songpath = ?1 where artist = ?2 and  songtitle = ?3 and album = ?4";

}  // namespace

bool inLibrary(Database& database, const StoredNames& names) {
  return database.hasSong(names.artist, names.album, names.title);
}

void enterSong(Database& database, const StoredNames& names, const QString& path) {
  OpenedDatabase db(database);
  if (inLibrary(database, names))
    db->execute(kNewPath, path, names.artist, names.title, names.album);
  else
    db->execute(statement::kInsertUntagged, names.artist, names.album, names.title, path);
}

}  // namespace korvane

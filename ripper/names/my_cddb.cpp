#include "ripper/names/my_cddb.h"

#include "ripper/names/cls_cddb.h"
#include "ripper/names/disc_database.h"

namespace korvane {

bool makeMyCddb(FileSystem& files, const QString& home, QString* error) {
  return makeDiscDatabase(files, myCddbPath(home), error);
}

bool insertMyDisc(const QString& home, const QString& discId, const QString& artist,
                  const QString& album, const QStringList& titles, QString* error) {
  const QString path = myCddbPath(home);
  if (discId.isEmpty()) {  // every disc that cannot be identified would be found under it
    *error = u"The disc could not be identified, so that its names are not kept."_s;
    return false;
  }
  try {
    sql::Connection database(path, sql::Connection::ReadWrite);
    insertDisc(database, discId.toUtf8(), discColumns(artist, album, titles));
    return true;
  } catch (const DatabaseError& failure) {
    *error = discDatabaseTrouble(failure, path);
    return false;
  }
}

}  // namespace korvane

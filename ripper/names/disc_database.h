// What all databases of disc names have in common: SQLite files with one table, cdData.
#pragma once

#include "library/data/sql.h"
#include "platform/file_system.h"

namespace korvane {

// The template of them: a whole file without rows.
QByteArray emptyDiscDatabase();

// Makes the file at `path` from the template unless it is there, whole or not at all. False with
// `error` in words.
bool makeDiscDatabase(FileSystem& files, const QString& path, QString* error);

// t0, t1... to t34, with commas between.
const std::string& titleColumns();

// The columns behind the identifier, UTF-8, each cut at its width: artist, album and the titles of
// track 1 on, of which the first 35 are kept.
QByteArrayList discColumns(const QString& artist, const QString& album, const QStringList& titles);

// A row of the open database. Throws DatabaseError.
void insertDisc(sql::Connection& database, const QByteArray& discId, const QByteArrayList& columns);

// The failure in words for the user: what happened, to which file, what to do.
QString discDatabaseTrouble(const DatabaseError& failure, const QString& path);

}  // namespace korvane

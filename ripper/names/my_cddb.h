// mycddb.mdb of the program directory: the names of the user's own discs, as they were typed.
#pragma once

#include "platform/file_system.h"

namespace korvane {

// Makes the file from the template that the program carries, unless it is there. False with `error`
// in words when it cannot; nothing half-made stays.
bool makeMyCddb(FileSystem& files, const QString& home, QString* error);

// One row: titles of track 1 on, of which the first 35 are kept, each column cut at its 80
// characters. False with `error` in words.
bool insertMyDisc(const QString& home, const QString& discId, const QString& artist,
                  const QString& album, const QStringList& titles, QString* error);

}  // namespace korvane

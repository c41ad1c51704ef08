// The rows of ripped songs in the library. What cannot be done is thrown as DatabaseError.
#pragma once

#include "library/data/database.h"
#include "ripper/rip_names.h"

namespace korvane {

bool inLibrary(Database& database, const StoredNames& names);

// The song of these names gets that path; there is one row more when there was none of them.
void enterSong(Database& database, const StoredNames& names, const QString& path);

}  // namespace korvane

// The tables of the music database, and what a file must be to be one.
#pragma once

#include "library/data/sql.h"

namespace korvane {

// Makes an empty music database at `path`, whole or not at all; a file that stands there is
// replaced, which nobody may have open. Throws DatabaseError.
void createEmptyDatabase(const QString& path);

// Drops every row of songs, movies and scans and gives the library a new number, in one
// transaction. Throws DatabaseError, with every row as it was.
void eraseLibrary(sql::Connection& connection);

// Throws NotADatabase or Damaged unless the connection's file is a music database. Sorts its
// indexes anew when the order of texts has changed since they were made.
void checkSchema(sql::Connection& connection);

}  // namespace korvane

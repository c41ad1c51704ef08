// The modes of the benchmark that read and fill the song database and those of disc names. Each
// prints one line of JSON and returns 0 when what it checked held. HOME is the directory of the
// database.
#pragma once

#include "platform/text.h"

namespace korvane {

int benchScan(const QStringList& arguments);      // TREE HOME: the database is made anew
int benchLists(const QStringList& arguments);     // HOME
int benchFind(const QStringList& arguments);      // HOME
int benchPlaylist(const QStringList& arguments);  // HOME
int benchSearch(const QStringList& arguments);    // HOME
int benchCddb(const QStringList& arguments);      // makes its own dump of disc names
int benchPage(const QStringList& arguments);      // GRID HOME: of a whole console

}  // namespace korvane

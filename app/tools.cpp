#include "app/tools.h"

#include <cstdio>

#include "library/database.h"

namespace korvane {
namespace {

int complain(const QString& text) {
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  return 1;
}

void printRows(const RowSource& rows, std::initializer_list<int> columns) {
  for (int row = 1; row <= rows.rowCount(); ++row) {
    QStringList cells;
    for (const int column : columns) cells << rows.cell(column, row);
    std::printf("%s\n", qUtf8Printable(cells.join(u'\t')));
  }
}

}  // namespace

int listLibrary(const QString& home, const QString& what) try {
  Database database(home);
  if (what == "artists"_L1) printRows(*database.getArtists(), {1});
  if (what == "albums"_L1) printRows(*database.getAllAlbums(), {1, 2});
  if (what == "songs"_L1) printRows(*database.getAllSongs(), {1, 2, 4, 3});
  return 0;
} catch (const std::exception& failure) {
  return complain(QString::fromUtf8(failure.what()));
}

}  // namespace korvane

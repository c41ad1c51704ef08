// A music database of its own in a temporary directory, and short ways to fill it.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>

#include "library/database.h"
#include "library/schema.h"
#include "tests/fakes/print.h"

namespace korvane {

class LibraryTest : public testing::Test {
 protected:
  LibraryTest() { createEmptyDatabase(db.path()); }
  ~LibraryTest() override { std::filesystem::remove_all(home.path().toStdString()); }

  void given(const QString& artist, const QString& album, const QString& title,
             const QString& year = {}) {
    db.insertSong(
        {artist, album, title, year, {}, "/music/%1/%2/%3.mp3"_L1.arg(artist, album, title)});
  }

  static QStringList column(const RowSource& rows, int number) {
    QStringList cells;
    for (int row = 1; row <= rows.rowCount(); ++row) cells << rows.cell(number, row);
    return cells;
  }
  static QStringList titles(const QList<Song>& songs) {
    QStringList found;
    for (const Song& song : songs) found << song.SongTitle;
    return found;
  }

  QTemporaryDir home;
  Database db{home.path()};
};

}  // namespace korvane

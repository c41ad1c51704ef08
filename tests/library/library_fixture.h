// A music database of its own in a temporary directory, and short ways to fill it.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "library/data/database.h"
#include "library/data/schema.h"
#include "tests/fakes/print.h"

namespace korvane {

// A song file of any bytes under a name of any bytes, with the directories above it.
inline void makeSongFile(const QByteArray& path, const QByteArray& bytes) {
  const std::filesystem::path file(path.toStdString());
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.constData(), bytes.size());
  out.close();
  if (!out) throw std::runtime_error("cannot write " + path.toStdString());
}

// An ID3v1 tag.
inline QByteArray songTag(const QByteArray& title, const QByteArray& artist,
                          const QByteArray& album) {
  const auto field = [](QByteArray text, qsizetype size) {
    return text.first(std::min(size, text.size())).append(size - std::min(size, text.size()), '\0');
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) + QByteArray(35, '\0');
}

class LibraryTest : public testing::Test {
 protected:
  LibraryTest() { createEmptyDatabase(db.path()); }
  ~LibraryTest() override { std::filesystem::remove_all(home.path().toStdString()); }

  void given(const QString& artist, const QString& album, const QString& title,
             const QString& year = {}) {
    db.insertSong(
        {artist, album, title, year, {}, "/music/%1/%2/%3.mp3"_L1.arg(artist, album, title)});
  }

  void givenMany(int count, const std::function<void(int)>& give) {
    OpenedDatabase open(db);
    sql::Transaction whole(*open);
    for (int i = 0; i < count; ++i) give(i);
    whole.commit();
  }
  QList<QStringList> rowsOf(const char* statement, int columns) {
    OpenedDatabase open(db);
    QList<QStringList> rows;
    for (auto run = open->run(statement); run.step();) {
      QStringList cells;
      for (int i = 0; i < columns; ++i) cells << run.text(i);
      rows << cells;
    }
    return rows;
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

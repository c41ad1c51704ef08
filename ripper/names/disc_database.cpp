#include "ripper/names/disc_database.h"

#include <new>

#include "library/data/sql_functions.h"
#include "library/data/vb_text.h"
#include "ripper/names/cls_cddb.h"

namespace korvane {
namespace {

constexpr int kWidth = 80;  // characters of each column but the identifier's

}  // namespace

QByteArray emptyDiscDatabase() {
  QByteArray table =
      "CREATE TABLE cdData (id INTEGER PRIMARY KEY, DISCID TEXT(8) COLLATE TEXTORDER, "
      "Artist TEXT(80) COLLATE TEXTORDER, Album TEXT(80) COLLATE TEXTORDER";
  for (int i = 0; i < DiscNames::kTitles; ++i)
    table += ", t" + QByteArray::number(i) + " TEXT(80) COLLATE TEXTORDER";
  table += "); CREATE INDEX ByDiscId ON cdData (DISCID);";

  sqlite3* opened = nullptr;
  const int code = sqlite3_open(":memory:", &opened);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> memory(opened, sqlite3_close);
  if (code == SQLITE_OK) sql::addFunctions(opened);
  sqlite3_int64 size = 0;
  unsigned char* image = nullptr;
  if (code == SQLITE_OK &&
      sqlite3_exec(opened, table.constData(), nullptr, nullptr, nullptr) == SQLITE_OK)
    image = sqlite3_serialize(opened, "main", &size, 0);
  const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> owned(image, sqlite3_free);
  if (!image) throw std::bad_alloc();
  return {reinterpret_cast<const char*>(image), static_cast<qsizetype>(size)};
}

bool makeDiscDatabase(FileSystem& files, const QString& path, QString* error) {
  return files.FileExists(path) || files.replace(path, emptyDiscDatabase(), error);
}

const std::string& titleColumns() {
  static const std::string columns = [] {
    QByteArrayList names;
    for (int i = 0; i < DiscNames::kTitles; ++i) names << "t" + QByteArray::number(i);
    return names.join(", ").toStdString();
  }();
  return columns;
}

QByteArrayList discColumns(const QString& artist, const QString& album, const QStringList& titles) {
  QByteArrayList columns{cut(artist, kWidth).toUtf8(), cut(album, kWidth).toUtf8()};
  for (const QString& title : titles.first(std::min<qsizetype>(titles.size(), DiscNames::kTitles)))
    columns << cut(title, kWidth).toUtf8();
  return columns;
}

void insertDisc(sql::Connection& database, const QByteArray& discId,
                const QByteArrayList& columns) {
  static const std::string statement = [] {
    QByteArrayList parameters;
    for (int i = 1; i <= 3 + DiscNames::kTitles; ++i) parameters << "?" + QByteArray::number(i);
    return "INSERT INTO cdData (DISCID, Artist, Album, " + titleColumns() + ") VALUES (" +
           parameters.join(", ").toStdString() + ")";
  }();
  sql::Run row = database.run(statement, QByteArrayView(discId));
  int parameter = 2;
  for (const QByteArray& column : columns) row.bind(parameter++, QByteArrayView(column));
  row.step();
}

QString discDatabaseTrouble(const DatabaseError& failure, const QString& path) {
  switch (failure.kind()) {
    case DatabaseError::Missing:
      return u"The database of disc names %1 is missing."_s.arg(path);
    case DatabaseError::NotADatabase:
      return u"%1 is no database of disc names. Move it away and try again."_s.arg(path);
    case DatabaseError::Other:
      return u"%1 is no database of disc names: its table cdData is missing or another. Move it "
             "away and try again."_s.arg(path);
    case DatabaseError::Damaged:
      return u"The database of disc names %1 is damaged. Put a good copy in its place."_s.arg(path);
    case DatabaseError::Locked:
      return u"The database of disc names %1 is in use by another program. Try again when that "
             "has ended."_s.arg(path);
    case DatabaseError::ReadOnly:
    case DatabaseError::NoAccess:
    case DatabaseError::Password:
      return u"The database of disc names %1 cannot be opened or written. Give this user the right "
             "to its file and its directory."_s.arg(path);
    case DatabaseError::DiskFull:
      return u"There is no room on the disk for the database of disc names %1. Free some space and "
             "try again."_s.arg(path);
    case DatabaseError::DiskFault:
      break;
  }
  return u"The disk of the database of disc names %1 reports a fault. Check the disk and its cable "
         "and try again."_s.arg(path);
}

}  // namespace korvane

// What can go wrong with the database, in words for the user: what happened, to what, what to do.
#pragma once

#include <exception>

#include "platform/text.h"

namespace korvane {

class DatabaseError : public std::exception {
 public:
  enum Kind {
    Missing,
    NotADatabase,
    Damaged,
    Locked,    // by another program, longer than a connection waits
    ReadOnly,  // reading goes on
    NoAccess,
    Password,
    DiskFull,
    DiskFault,
    Other
  };

  // `code` is an SQLite result code, `path` the file, `detail` the engine's own words.
  DatabaseError(int code, const QString& path, const QString& detail);
  DatabaseError(Kind kind, const QString& path, const QString& detail = {});

  // The same, said of the procedure that failed.
  DatabaseError in(const QString& procedure) const;

  Kind kind() const { return kind_; }
  const QString& text() const { return text_; }  // what happened, to which file, what to do
  // The same as UTF-8.
  const char* what() const noexcept override { return bytes_.constData(); }

 private:
  Kind kind_;
  QString text_;
  QByteArray bytes_;
};

}  // namespace korvane

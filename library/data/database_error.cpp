#include "library/data/database_error.h"

#include <sqlite3.h>

namespace korvane {
namespace {

DatabaseError::Kind kindOf(int code) {
  if (code == SQLITE_READONLY_DBMOVED) return DatabaseError::Missing;  // while it was open
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
      return DatabaseError::NotADatabase;
    case SQLITE_CORRUPT:
      return DatabaseError::Damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return DatabaseError::Locked;
    case SQLITE_READONLY:
      return DatabaseError::ReadOnly;
    case SQLITE_AUTH:
      return DatabaseError::Password;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return DatabaseError::NoAccess;
    case SQLITE_FULL:
      return DatabaseError::DiskFull;
    case SQLITE_IOERR:
      return DatabaseError::DiskFault;
    default:
      return DatabaseError::Other;
  }
}

QString sentence(DatabaseError::Kind kind, const QString& path, const QString& detail) {
  switch (kind) {
    case DatabaseError::Missing:
      return u"The music database is missing: %1\nPut the file back and try again. A new program "
             "directory (korvane --home DIR) brings a fresh one."_s.arg(path);
    case DatabaseError::NotADatabase:
      return u"This file is not a music database: %1\nPut a good copy in its place."_s.arg(path);
    case DatabaseError::Damaged:
      return u"The music database is damaged: %1\nPut a good copy in its place, or erase the "
             "library and scan again. (%2)"_s.arg(path, detail);
    case DatabaseError::Locked:
      return u"The music database is in use by another program: %1\nClose that program and try "
             "again."_s.arg(path);
    case DatabaseError::ReadOnly:
      return u"The music database cannot be written: %1\nGive this user the right to write the "
             "file and its directory."_s.arg(path);
    case DatabaseError::NoAccess:
      return u"The music database cannot be opened: %1\nGive this user the right to read and write "
             "it. (%2)"_s.arg(path, detail);
    case DatabaseError::Password:
      return u"invalid database password "_s;
    case DatabaseError::DiskFull:
      return u"There is no room on the disk of the music database: %1\nFree some space and try "
             "again."_s.arg(path);
    case DatabaseError::DiskFault:
      return u"The disk of the music database reports a fault: %1\nCheck the disk and its cable "
             "and try again. (%2)"_s.arg(path, detail);
    case DatabaseError::Other:
      break;
  }
  return u"The music database failed: %1\nTry again; if that does not help, put a good copy in its "
         "place. (%2)"_s.arg(path, detail);
}

}  // namespace

DatabaseError::DatabaseError(int code, const QString& path, const QString& detail)
    : DatabaseError(kindOf(code), path, detail) {}

DatabaseError::DatabaseError(Kind kind, const QString& path, const QString& detail)
    : kind_(kind), text_(sentence(kind, path, detail)), bytes_(text_.toUtf8()) {}

DatabaseError DatabaseError::in(const QString& procedure) const {
  DatabaseError named(*this);
  named.text_ = u"Error in %1 \n%2"_s.arg(procedure, text_);
  named.bytes_ = named.text_.toUtf8();
  return named;
}

}  // namespace korvane

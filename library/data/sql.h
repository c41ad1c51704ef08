// SQLite, owned: a connection with its statements kept prepared, typed values in and out, and
// errors thrown as DatabaseError. One thread at a time.
//
// Every connection has the collation TEXTORDER (text_order.h) and the functions mid and like of
// sql_functions.h. Text is stored as UTF-8.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>

#include "library/data/database_error.h"

namespace korvane::sql {

class Connection;

// One run of a prepared statement; gives the statement back when it ends. Its connection must
// outlive it.
class Run {
 public:
  // `owned`: the statement is finalized at the end, in place of being kept.
  Run(Connection& connection, sqlite3_stmt* statement, bool owned);
  ~Run();
  Run(Run&& other) noexcept;

  // The value of parameter `index`, from 1; null where none is bound. Throw DatabaseError.
  Run& bind(int index, const QString& text);
  Run& bind(int index, QByteArrayView utf8);       // the bytes must outlive the run
  Run& bindBlob(int index, QByteArrayView bytes);  // as above
  Run& bind(int index, qint64 number);
  Run& bind(int index, std::nullptr_t);

  // The next row; false behind the last. Throws DatabaseError. Columns count from 0.
  bool step();
  QString text(int column) const;          // empty for null
  QByteArrayView bytes(int column) const;  // until the next step
  qint64 number(int column) const;         // 0 for null and for what is no number
  int columns() const { return sqlite3_column_count(statement_); }

 private:
  void check(int code) const;

  Connection& connection_;
  sqlite3_stmt* statement_;
  bool owned_;
};

class Connection {
 public:
  enum Mode { ReadOnly, ReadWrite, Create };

  // Create makes a missing file; the others throw, as everything here does: DatabaseError. A lock
  // of another connection is waited for, at most two seconds a statement.
  Connection(const QString& path, Mode mode);
  ~Connection();
  Connection(const Connection&) = delete;

  // `sql` is kept prepared under its text. Arguments are bound from 1 on.
  template <class... Values>
  Run run(std::string_view sql, const Values&... values);
  // Runs to the end; the rows changed.
  template <class... Values>
  int execute(std::string_view sql, const Values&... values);
  // The first column of the first row, as a number; 0 without a row.
  template <class... Values>
  qint64 number(std::string_view sql, const Values&... values);
  // Several statements, none kept. Those before one that fails have been done.
  void script(const char* sql);

  // Asked now and then while a statement runs; an answer other than 0 ends it with an error.
  void onProgress(int (*asked)(void*), void* data) {
    sqlite3_progress_handler(db_, asked ? 2000 : 0, asked, data);
  }
  // Runs while another connection holds the file, before each wait.
  std::function<void()> onLocked;

  bool inTransaction() const { return sqlite3_get_autocommit(db_) == 0; }
  qint64 lastRowId() const { return sqlite3_last_insert_rowid(db_); }

  // The first 100 bytes of the file as they stand on disk. Never opens the file anew: closing a
  // second handle would drop this process's locks on it.
  std::optional<QByteArray> header() const;

  const QString& path() const { return path_; }
  [[noreturn]] void fail(int code) const;  // throws what the engine says of it last

 private:
  friend class Run;
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  sqlite3_stmt* prepare(std::string_view sql);
  std::pair<sqlite3_stmt*, bool> take(std::string_view sql);
  static int locked(void* self, int times);

  QString path_;
  sqlite3* db_ = nullptr;
  std::unordered_map<std::string, std::unique_ptr<sqlite3_stmt, Finalize>> statements_;
};

// A transaction that rolls back unless committed. Inside another one it is a part of it that can be
// undone alone.
class Transaction {
 public:
  enum Purpose { Writing, Reading };  // writing takes the file's lock at once
  explicit Transaction(Connection& connection, Purpose purpose = Writing);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  void commit();  // throws DatabaseError and is open still when the engine refuses

 private:
  Connection& connection_;
  const bool nested_;
  bool open_ = true;
};

template <class... Values>
Run Connection::run(std::string_view sql, const Values&... values) {
  const auto [statement, owned] = take(sql);
  Run run(*this, statement, owned);
  int index = 0;
  (run.bind(++index, values), ...);
  return run;
}

template <class... Values>
int Connection::execute(std::string_view sql, const Values&... values) {
  Run one = run(sql, values...);
  while (one.step()) {
  }
  return sqlite3_changes(db_);
}

template <class... Values>
qint64 Connection::number(std::string_view sql, const Values&... values) {
  Run one = run(sql, values...);
  return one.step() ? one.number(0) : 0;
}

}  // namespace korvane::sql

#include "library/data/sql.h"

#include <thread>

#include "library/data/sql_functions.h"
#include "platform/path_text.h"

namespace korvane::sql {

namespace {
constexpr int kBusyTimeoutMs = 2000, kBusyStepMs = 2;
}

Run::Run(Connection& connection, sqlite3_stmt* statement, bool owned)
    : connection_(connection), statement_(statement), owned_(owned) {}

Run::Run(Run&& other) noexcept
    : connection_(other.connection_),
      statement_(std::exchange(other.statement_, nullptr)),
      owned_(other.owned_) {}

Run::~Run() {
  if (!statement_) return;
  if (owned_) {
    sqlite3_finalize(statement_);
    return;
  }
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

void Run::check(int code) const {
  if (code != SQLITE_OK) connection_.fail(code);
}

Run& Run::bind(int index, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  check(sqlite3_bind_text(statement_, index, bytes.constData(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT));
  return *this;
}

Run& Run::bind(int index, QByteArrayView utf8) {
  check(sqlite3_bind_text(statement_, index, utf8.data() ? utf8.data() : "",
                          static_cast<int>(utf8.size()), SQLITE_STATIC));
  return *this;
}

Run& Run::bindBlob(int index, QByteArrayView bytes) {
  check(sqlite3_bind_blob(statement_, index, bytes.data() ? bytes.data() : "",
                          static_cast<int>(bytes.size()), SQLITE_STATIC));
  return *this;
}

Run& Run::bind(int index, qint64 number) {
  check(sqlite3_bind_int64(statement_, index, number));
  return *this;
}

Run& Run::bind(int index, std::nullptr_t) {
  check(sqlite3_bind_null(statement_, index));
  return *this;
}

bool Run::step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) connection_.fail(code);
  return false;
}

QString Run::text(int column) const {
  return QString::fromUtf8(bytes(column));
}

QByteArrayView Run::bytes(int column) const {
  const void* data = sqlite3_column_blob(statement_, column);
  return {static_cast<const char*>(data), data ? sqlite3_column_bytes(statement_, column) : 0};
}

qint64 Run::number(int column) const {
  return sqlite3_column_int64(statement_, column);
}

Connection::Connection(const QString& path, Mode mode) : path_(path) {
  const int flags = mode == ReadOnly    ? SQLITE_OPEN_READONLY
                    : mode == ReadWrite ? SQLITE_OPEN_READWRITE
                                        : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  const int code = sqlite3_open_v2(fromPath(path).constData(), &db_,
                                   flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code != SQLITE_OK) {
    const QString detail = QString::fromUtf8(db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(code));
    sqlite3_close(db_);
    throw DatabaseError(code, path, detail);
  }
  sqlite3_busy_handler(db_, locked, this);
  addFunctions(db_);
}

Connection::~Connection() {
  statements_.clear();
  sqlite3_close(db_);
}

int Connection::locked(void* self, int times) {
  const auto* connection = static_cast<const Connection*>(self);
  if (connection->onLocked) connection->onLocked();
  if (times * kBusyStepMs >= kBusyTimeoutMs) return 0;
  std::this_thread::sleep_for(std::chrono::milliseconds(kBusyStepMs));
  return 1;
}

void Connection::fail(int code) const {
  throw DatabaseError(code, path_, QString::fromUtf8(sqlite3_errmsg(db_)));
}

sqlite3_stmt* Connection::prepare(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int code =
      sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  if (code != SQLITE_OK) fail(code);
  return statement;
}

std::pair<sqlite3_stmt*, bool> Connection::take(std::string_view sql) {
  auto& kept = statements_[std::string(sql)];
  if (!kept) kept.reset(prepare(sql));
  // A run that is still being read keeps its statement; this one gets its own.
  if (sqlite3_stmt_busy(kept.get())) return {prepare(sql), true};
  return {kept.get(), false};
}

void Connection::script(const char* sql) {
  const int code = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) fail(code);
}

std::optional<QByteArray> Connection::header() const {
  sqlite3_file* file = nullptr;
  if (sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK) return {};
  if (!file || !file->pMethods) return {};
  QByteArray bytes(100, '\0');
  if (file->pMethods->xRead(file, bytes.data(), 100, 0) != SQLITE_OK) return {};
  return bytes;
}

Transaction::Transaction(Connection& connection, Purpose purpose)
    : connection_(connection), nested_(connection.inTransaction()) {
  connection_.script(nested_ ? "SAVEPOINT part" : purpose == Reading ? "BEGIN" : "BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    connection_.script(nested_ ? "ROLLBACK TO part; RELEASE part" : "ROLLBACK");
  } catch (const DatabaseError&) {  // the engine has rolled back by itself
  }
}

void Transaction::commit() {
  connection_.script(nested_ ? "RELEASE part" : "COMMIT");
  open_ = false;
}

}  // namespace korvane::sql

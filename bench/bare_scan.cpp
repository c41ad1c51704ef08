#include "bench/bare_scan.h"

#include <dirent.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <stdexcept>

namespace korvane {
namespace {

constexpr int kDeepest = 2;

void walk(const QByteArray& path, int depth, const std::function<void(const QByteArray&)>& file) {
  DIR* directory = ::opendir(path.constData());
  if (!directory) return;
  while (const dirent* entry = ::readdir(directory)) {
    if (entry->d_name[0] == '.') continue;
    const QByteArray name = path + '/' + entry->d_name;
    if (entry->d_type == DT_DIR && depth < kDeepest) walk(name, depth + 1, file);
    if (entry->d_type == DT_REG) file(name);
  }
  ::closedir(directory);
}

void must(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errstr(code));
}

class BareDatabase {
 public:
  explicit BareDatabase(const QByteArray& path) {
    must(sqlite3_open(path.constData(), &db_));
    script("PRAGMA journal_mode = TRUNCATE");
    script(
        "CREATE TABLE Songs (Artist TEXT COLLATE NOCASE, album TEXT COLLATE NOCASE, "
        "SongTitle TEXT COLLATE NOCASE, year TEXT, Comment TEXT, SongPath TEXT, SongID INTEGER "
        "PRIMARY KEY)");
    script("CREATE INDEX i ON Songs (Artist, album, SongTitle); BEGIN");
    find_ = prepare("SELECT * FROM Songs WHERE Artist = ?1 AND album = ?2 AND SongTitle = ?3");
    insert_ = prepare(
        "INSERT INTO Songs (Artist, album, SongTitle, year, Comment, SongPath) "
        "VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  }
  ~BareDatabase() {
    script("COMMIT");
    sqlite3_finalize(find_);
    sqlite3_finalize(insert_);
    sqlite3_close(db_);
  }
  BareDatabase(const BareDatabase&) = delete;

  bool add(const char* tag, const QByteArray& path) {
    const std::pair<int, int> fields[] = {{33, 30}, {63, 30}, {3, 30}, {93, 4}, {97, 30}};
    int index = 0;
    for (const auto& [offset, size] : fields) {
      const int length = static_cast<int>(::strnlen(tag + offset, static_cast<size_t>(size)));
      ++index;
      if (index <= 3) sqlite3_bind_text(find_, index, tag + offset, length, SQLITE_STATIC);
      sqlite3_bind_text(insert_, index, tag + offset, length, SQLITE_STATIC);
    }
    sqlite3_bind_text(insert_, 6, path.constData(), static_cast<int>(path.size()), SQLITE_STATIC);
    const bool known = sqlite3_step(find_) == SQLITE_ROW;
    sqlite3_reset(find_);
    if (known) return false;
    must(sqlite3_step(insert_));
    sqlite3_reset(insert_);
    return true;
  }

 private:
  void script(const char* sql) { must(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr)); }
  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    must(sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr));
    return statement;
  }
  sqlite3* db_ = nullptr;
  sqlite3_stmt *find_ = nullptr, *insert_ = nullptr;
};

}  // namespace

int bareScan(const QByteArray& tree, const QByteArray& path) {
  ::unlink(path.constData());
  BareDatabase database(path);
  int added = 0;
  walk(tree, 0, [&](const QByteArray& file) {
    char head[10], tag[128] = {};
    const int opened = ::open(file.constData(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (opened < 0 || ::fstat(opened, &status) != 0) return;
    if (::pread(opened, head, sizeof head, 0) == sizeof head &&
        ::pread(opened, tag, sizeof tag, status.st_size - 128) == sizeof tag)
      added += database.add(tag, file);
    ::close(opened);
  });
  return added;
}

int bareStat(const QByteArray& tree) {
  int files = 0;
  walk(tree, 0, [&](const QByteArray& file) {
    struct stat status {};
    files += ::stat(file.constData(), &status) == 0;
  });
  return files;
}

}  // namespace korvane

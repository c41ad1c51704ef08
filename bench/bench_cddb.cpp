// korvane-bench cddb: a dump of 100,000 discs brought into the five files, and discs looked up
// among them.
#include <archive.h>
#include <archive_entry.h>

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <random>

#include "bench/bench.h"
#include "bench/bench_library.h"
#include "core/log.h"
#include "library/data/sql_functions.h"
#include "platform/disc/packet_drive_linux.h"
#include "platform/files/disk_file_system.h"
#include "platform/machine/system_clock.h"
#include "ripper/import/cddb_import.h"
#include "ripper/import/dump_record.h"
#include "ripper/names/cls_cddb.h"
#include "ripper/names/disc_database.h"

namespace korvane {
namespace {

constexpr int kDiscs = 100'000, kRounds = 3, kLookUps = 1000;
constexpr double kMostRatio = 2, kLongestLookUp = 1;  // ms

// The file of a disc of 8 to 16 tracks, as a database's server writes it.
QByteArray makeRecord(std::mt19937& random) {
  const unsigned tracks = 8 + random() % 9;
  unsigned second = 2;
  QByteArray offsets, titles, more;
  for (unsigned track = 0; track < tracks; ++track) {
    offsets += "#\t" + QByteArray::number(second * 75 + random() % 75) + "\n";
    second += 120 + random() % 240;
    const QByteArray number = QByteArray::number(track);
    titles += "TTITLE" + number + "=Song of the Tide " + QByteArray::number(random()) + "\n";
    more += "EXTT" + number + "=\n";
  }
  const QByteArray name = QByteArray::number(random());
  return "# xmcd\n#\n# Track frame offsets:\n" + offsets +
         "#\n# Disc length: " + QByteArray::number(second) +
         " seconds\n#\n# Revision: 3\n# Processed by: a server\n# Submitted via: a player 2.0\n#\n"
         "DISCID=00000000\nDTITLE=Lumen Quay " +
         name + " / Harbour " + name + "\nDYEAR=1999\nDGENRE=Rock\n" + titles + "EXTD=\n" + more +
         "PLAYORDER=\n";
}

void makeDump(const QByteArray& path, std::vector<DumpRecord>& rows) {
  std::mt19937 random(1);
  QSet<QString> ids;
  archive* tar = archive_write_new();
  archive_write_set_format_ustar(tar);
  archive_write_open_filename(tar, path.constData());
  while (rows.size() < kDiscs) {
    const QByteArray bytes = makeRecord(random);
    DumpRecord row = readDumpRecord(bytes).value();
    const QString id = row.discIds.front();
    if (ids.contains(id)) continue;
    ids.insert(id);
    rows.push_back(std::move(row));
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, ("rock/" + id.toLatin1()).constData());
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, bytes.size());
    archive_write_header(tar, entry);
    archive_write_data(tar, bytes.constData(), static_cast<size_t>(bytes.size()));
    archive_entry_free(entry);
  }
  archive_write_close(tar);
  archive_write_free(tar);
}

void must(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errstr(code));
}

// A file filled by SQLite alone, in one transaction.
class BareFile {
 public:
  explicit BareFile(const QByteArray& path) {
    QFile file(QString::fromUtf8(path));
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no file can be made");
    file.write(emptyDiscDatabase());
    file.close();
    must(sqlite3_open(path.constData(), &db_));
    sql::addFunctions(db_);
    must(sqlite3_exec(db_, "BEGIN", nullptr, nullptr, nullptr));
    const QByteArray row = "INSERT INTO cdData VALUES (NULL" + QByteArray(", ?").repeated(38) + ")";
    must(sqlite3_prepare_v2(db_, row.constData(), -1, &insert_, nullptr));
  }
  ~BareFile() {
    sqlite3_finalize(insert_);
    sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db_);
  }
  BareFile(const BareFile&) = delete;

  void add(const QByteArrayList& columns) {
    int index = 0;
    for (const QByteArray& text : columns)
      sqlite3_bind_text(insert_, ++index, text.constData(), static_cast<int>(text.size()),
                        SQLITE_STATIC);
    must(sqlite3_step(insert_));
    must(sqlite3_reset(insert_));
    must(sqlite3_clear_bindings(insert_));
  }

 private:
  sqlite3* db_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
};

// The unavoidable work of an import: the dump's bytes are read, and rows that stand ready inserted.
void importBare(const QString& dump, const QString& folder,
                const std::vector<QByteArrayList>& rows) {
  QFile file(dump);
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no dump to read");
  QByteArray block(1 << 18, '\0');
  while (file.read(block.data(), block.size()) > 0) {
  }
  std::vector<std::unique_ptr<BareFile>> files;
  for (int i = 0; i < 5; ++i)
    files.push_back(std::make_unique<BareFile>((folder + u"/bare%1"_s.arg(i)).toUtf8()));
  for (size_t i = 0; i < rows.size(); ++i) files[i % files.size()]->add(rows[i]);
}

std::vector<QByteArrayList> columnsOf(const std::vector<DumpRecord>& records) {
  std::vector<QByteArrayList> rows;
  for (const DumpRecord& record : records) {
    QByteArrayList row{record.discIds.front().toUtf8(), record.artist.toUtf8(),
                       record.album.toUtf8()};
    for (const QString& title : record.titles) row << title.toUtf8();
    rows.push_back(std::move(row));
  }
  return rows;
}

// Milliseconds a look-up of discs of the dump, and of discs that none of the five files has.
struct LookUps {
  double hit = 0, miss = 0, slowest = 0;
  bool right = true;
};

LookUps lookUp(DiskFileSystem& files, const QString& folder, const std::vector<DumpRecord>& rows) {
  SystemClock clock;
  PacketDriveLinux packets;
  const Log log(files, clock, folder);
  clscddb names({files, packets, log, folder, folder});
  LookUps took;
  for (size_t i = 0; i < kLookUps; ++i) {
    const DumpRecord& row = rows[i * (rows.size() / kLookUps)];
    const QString id = row.discIds.front();
    const auto timed = [&](const QString& asked, bool there) {
      const double ms = 1000 * fastest(1, [&] {
                          const auto found = names.GetInfo(asked, false);
                          took.right &= found.has_value() == there &&
                                        (!found || found->titles[0] == row.titles[0]);
                        });
      took.slowest = std::max(took.slowest, ms);
      return ms / kLookUps;
    };
    took.hit += timed(id, true);
    took.miss += timed(u"ffff"_s + id.mid(4), false);
  }
  return took;
}

}  // namespace

int benchCddb(const QStringList& arguments) {
  if (!arguments.isEmpty()) return 2;
  const QTemporaryDir home;
  const QString dump = home.filePath(u"dump.tar"_s);
  std::vector<DumpRecord> rows;
  makeDump(dump.toUtf8(), rows);
  const std::vector<QByteArrayList> columns = columnsOf(rows);
  DiskFileSystem files;
  double ours = 1e9, bare = 1e9, again = 1e9;
  bool right = true;
  QString folder;
  for (int round = 0; round < kRounds; ++round) {
    folder = home.filePath(u"names%1"_s.arg(round));
    const auto import = [&] { right &= importCddb(files, dump, folder).records == kDiscs; };
    ours = std::min(ours, fastest(1, import));
    bare = std::min(bare, fastest(1, [&] { importBare(dump, folder, columns); }));
    CddbImport known;
    again = std::min(again, fastest(1, [&] { known = importCddb(files, dump, folder); }));
    right &= known.known == kDiscs;
  }
  const LookUps took = lookUp(files, folder, rows);
  right &= took.right;
  const bool met = right && ours / bare <= kMostRatio && took.hit <= kLongestLookUp &&
                   took.miss <= kLongestLookUp;
  Json("cddb")
      .add("discs", kDiscs)
      .add("import_seconds", ours)
      .add("bare_seconds", bare)
      .add("ratio", ours / bare)
      .add("again_seconds", again)
      .add("look_up_ms", took.hit)
      .add("miss_ms", took.miss)
      .add("slowest_ms", took.slowest)
      .add("right", right)
      .print();
  return met ? 0 : 1;
}

}  // namespace korvane

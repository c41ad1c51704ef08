// Dumps of disc names into the five databases: what a record means, a dump that is packed or lies
// open, killed and gone on with.
#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QSet>
#include <random>

#include "ripper/import/cddb_import.h"
#include "ripper/import/dump_record.h"
#include "tests/fakes/print.h"
#include "tests/ripper/names_world.h"

namespace korvane {
namespace {

QByteArray record(const QByteArray& lines, const QByteArray& comments = {}) {
  return "# xmcd\n#\n" + comments + "#\n" + lines;
}

const QByteArray kAddresses =
    "# Track frame offsets:\n#\t150\n#\t300\n#       600\n#\n# Disc length: 12 seconds\n";

// Of the tracks at 2, 4 and 8 s and the end at 12 s: digits of 14, a length of 10 s.
TEST(DumpRecord, IsFoundByItsAddressesElseByTheIdentifiersItNames) {
  const QByteArray falling = QByteArray(kAddresses).replace("300", "600");
  const QByteArray tooShort = QByteArray(kAddresses).replace("12", "8");
  const struct {
    const char* what;
    QByteArray bytes;
    QString ids;
  } cases[] = {
      {"no addresses", record("DISCID=FFFFFF03\nDTITLE=A / B\n"), u"ffffff03"_s},
      {"addresses", record("DISCID=ffffff03\r\nDTITLE=A / B\r\n", kAddresses), u"0e000a03"_s},
      {"addresses alone", record("DTITLE=A / B\n", kAddresses), u"0e000a03"_s},
      {"several discs",
       record("DISCID=0f000a03,0e000a03, 0F000A03,\nDISCID=11000b03,nonsense\nDTITLE=A / B\n",
              kAddresses),
       u"0e000a03 0f000a03 11000b03"_s},
      {"addresses that fall", record("DISCID=ffffff03\nDTITLE=A / B\n", falling), u"ffffff03"_s},
      {"an end within the tracks", record("DISCID=ffffff03\nDTITLE=A / B\n", tooShort),
       u"ffffff03"_s},
      {"seven digits", record("DISCID=fffff03\nDTITLE=A / B\n"), QString()},
      {"no title", record("DISCID=ffffff03\n", kAddresses), QString()},
      {"nothing", "", QString()},
  };
  for (const auto& c : cases) {
    const auto read = readDumpRecord(c.bytes).value_or(DumpRecord());
    EXPECT_EQ(read.discIds.join(u' '), c.ids) << c.what;
    EXPECT_EQ(read.artist, c.ids.isEmpty() ? QString() : u"A"_s) << c.what;
  }
}

// A disc of its own for each number: what its record says, and what it is found by.
struct MadeDisc {
  QString id, artist, album;
  QStringList titles;
  QByteArray bytes;
};

MadeDisc makeDisc(int number) {
  std::mt19937 random(static_cast<unsigned>(number) + 7);
  MadeDisc disc;
  disc.artist = u"Artist %1"_s.arg(number % 90);
  disc.album = number % 7 ? u"Album %1"_s.arg(number) : u"Début %1"_s.arg(number);
  const int tracks = 1 + number % 34;
  unsigned second = 2, digits = 0;
  QByteArray offsets, titles;
  for (int track = 0; track < tracks; ++track) {
    for (const char c : std::to_string(second)) digits += static_cast<unsigned>(c - '0');
    offsets += "#\t" + QByteArray::number(second * 75 + random() % 75) + "\n";
    second += 20 + random() % 150;
    disc.titles << u"Title %1 of %2"_s.arg(track).arg(number);
    const QString title = disc.titles.back();
    for (const QString& part : {title.left(5), title.mid(5)})
      titles += "TTITLE" + QByteArray::number(track) + "=" + part.toUtf8() + "\n";
  }
  char id[16];
  std::snprintf(id, sizeof id, "%02x%04x%02x", digits % 255, second - 2,
                static_cast<unsigned>(tracks));
  disc.id = QString::fromLatin1(id);
  const QString name = u"DTITLE=%1 / %2\n"_s.arg(disc.artist, disc.album);
  disc.bytes =
      record("DISCID=00000000\n" + (number % 14 ? name.toUtf8() : name.toLatin1()) + titles,
             "# Track frame offsets:\n" + offsets +
                 "#\n# Disc length: " + QByteArray::number(second) + " seconds\n");
  return disc;
}

std::vector<MadeDisc> makeDiscs(int count) {
  std::vector<MadeDisc> discs;
  QSet<QString> ids;
  for (int number = 0; static_cast<int>(discs.size()) < count; ++number) {
    discs.push_back(makeDisc(number));
    if (ids.contains(discs.back().id))
      discs.pop_back();
    else
      ids.insert(discs.back().id);
  }
  return discs;
}

QString packed(const NamesWorld& world, const std::vector<MadeDisc>& discs) {
  const QString path = world.home / u"dump.tar.bz2"_s;
  archive* tar = archive_write_new();
  archive_write_add_filter_bzip2(tar);
  archive_write_set_format_ustar(tar);
  archive_write_open_filename(tar, path.toUtf8().constData());
  const auto add = [&](const QByteArray& name, const QByteArray& bytes) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, name.constData());
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, bytes.size());
    archive_write_header(tar, entry);
    archive_write_data(tar, bytes.constData(), static_cast<size_t>(bytes.size()));
    archive_entry_free(entry);
  };
  add("README", "Names of discs");
  for (const MadeDisc& disc : discs) add("rock/" + disc.id.toLatin1(), disc.bytes);
  add("rock/huge", record("DISCID=0e000a03\nDTITLE=A / B\n") + QByteArray(2 << 20, 'x'));
  archive_write_close(tar);
  archive_write_free(tar);
  return path;
}

void laidOpen(const NamesWorld& world, const std::vector<MadeDisc>& discs) {
  for (const MadeDisc& disc : discs)
    world.home.put(u"dump/%1/%2"_s.arg(disc.titles.size() % 3).arg(disc.id), disc.bytes);
}

void expectFound(NamesWorld& world, const std::vector<MadeDisc>& discs, const QString& where) {
  clscddb look = world.look(where);
  for (const MadeDisc& disc : discs) {
    const auto names = look.GetInfo(disc.id, false);
    ASSERT_TRUE(names) << disc.bytes.toStdString();
    EXPECT_EQ(names->artist, disc.artist);
    EXPECT_EQ(names->album, disc.album);
    const QStringList titles(names->titles.begin(), names->titles.begin() + disc.titles.size());
    EXPECT_EQ(titles, disc.titles);
    EXPECT_TRUE(disc.titles.size() == 35 || names->titles[disc.titles.size()].isEmpty());
  }
}

qint64 rows(const QString& folder, const char* sql = "SELECT count(*) FROM cdData") {
  qint64 all = 0;
  for (const QString& path : cdDataPaths(folder))
    all += sql::Connection(path, sql::Connection::ReadWrite).number(sql);
  return all;
}

TEST(Import, BringsADumpOfThousandRecordsPackedOrOpen) {
  NamesWorld world;
  const std::vector<MadeDisc> discs = makeDiscs(1000);
  const QString folder = world.home / u"Names/Discs"_s;
  int heard = 0;
  CddbImportRules rules;
  rules.progress = [&](const CddbImport& at) { heard += at.records > 0; };
  CddbImport done = importCddb(world.files, packed(world, discs), folder, rules);
  EXPECT_EQ(done.trouble, QString());
  EXPECT_EQ(done.records, 1002);
  EXPECT_EQ(heard, 1002);
  EXPECT_EQ(done.added, 1000);
  EXPECT_EQ(done.bad, 2);
  expectFound(world, discs, folder);
  for (const QString& path : cdDataPaths(folder))
    EXPECT_GT(
        sql::Connection(path, sql::Connection::ReadOnly).number("SELECT count(*) FROM cdData"),
        100);
  // Once more, open now and with a disc that is new: the others stay as they are.
  laidOpen(world, makeDiscs(1001));
  done = importCddb(world.files, world.home / u"dump"_s, folder);
  EXPECT_EQ(done.known, 1000);
  EXPECT_EQ(done.added, 1);
  EXPECT_EQ(rows(folder), 1001);
  done = importCddb(world.files, world.home / u"dump"_s, world.home / u"Open"_s);
  EXPECT_EQ(done.added, 1001);
  expectFound(world, discs, world.home / u"Open"_s);
}

TEST(Import, SaysWhatKeptItAndKeepsWhatItHad) {
  NamesWorld world;
  const std::vector<MadeDisc> discs = makeDiscs(300);
  const QString tar = packed(world, discs), folder = world.home / u"Names"_s;
  const QByteArray bytes = world.home.get(u"dump.tar.bz2"_s);
  const auto trouble = [&](const QString& dump) {
    return importCddb(world.files, dump, folder).trouble;
  };
  EXPECT_TRUE(trouble(world.home / u"none"_s).startsWith("There is no"_L1));
  EXPECT_TRUE(trouble(world.home.put(u"text"_s, "no tar")).contains("text"_L1));
  EXPECT_EQ(rows(folder), 0);
  EXPECT_EQ(trouble(world.home.put(u"one"_s, discs[0].bytes)), QString());
  EXPECT_EQ(rows(folder), 1);
  world.home.put(u"dump.tar.bz2"_s, bytes.left(bytes.size() - 2000));
  const CddbImport cut = importCddb(world.files, tar, folder);
  EXPECT_TRUE(cut.trouble.contains("dump.tar.bz2 cannot be read to its end"_L1));
  EXPECT_EQ(rows(folder), 1 + cut.added);
  world.home.put(u"dump.tar.bz2"_s, bytes);
  world.home.put(u"Names/cddata4.mdb"_s,
                 "no database, and longer than the head of one. "_ba.repeated(9));
  EXPECT_TRUE(trouble(tar).contains("cddata4.mdb is no database of disc names"_L1));
}

// A process of its own that imports in transactions of 20 records.
pid_t startImporting(NamesWorld& world, const QString& folder) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  CddbImportRules rules;
  rules.batch = 20;
  const bool done =
      importCddb(world.files, world.home / u"dump"_s, folder, rules).trouble.isEmpty();
  ::_exit(done ? 0 : 1);
}

TEST(Import, GoesOnWhereItWasKilled) {
  NamesWorld world;
  const std::vector<MadeDisc> discs = makeDiscs(300);
  laidOpen(world, discs);
  const QString folder = world.home / u"Names"_s;
  std::mt19937 random(3);
  int killed = 0, status = -1;
  qint64 before = 0;
  while (!WIFEXITED(status)) {
    const pid_t child = startImporting(world, folder);
    ::usleep(5'000 + random() % 20'000 + static_cast<unsigned>(killed) * 3'000);
    ::kill(child, SIGKILL);
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    killed += WIFSIGNALED(status);
    const auto stands = [&](const QString& path) { return world.files.FileExists(path); };
    if (!std::ranges::all_of(cdDataPaths(folder), stands)) continue;  // it was still making them
    EXPECT_EQ(rows(folder, "SELECT count(*) - count(DISTINCT DISCID) FROM cdData"), 0);
    EXPECT_EQ(rows(folder,
                   "SELECT count(*) FROM pragma_integrity_check WHERE "
                   "integrity_check <> 'ok'"),
              0);
    EXPECT_GE(rows(folder), before) << "what was in is gone";
    before = rows(folder);
  }
  ASSERT_EQ(WEXITSTATUS(status), 0);
  EXPECT_GT(killed, 3) << "the kills came too late to mean anything";
  EXPECT_EQ(rows(folder), 300);
  expectFound(world, discs, folder);
}

}  // namespace
}  // namespace korvane

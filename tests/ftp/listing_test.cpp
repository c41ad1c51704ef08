// What servers list, as entries of a folder.
#include <gtest/gtest.h>

#include "ftp/listing.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

const QDateTime kNow(QDate(2026, 3, 10), QTime(12, 0));

struct Row {
  const char* line;
  const char* name;  // "" for a line that is no entry
  qint64 size = 0;
  const char* time = "";
  const char* marks = " -  -  -  -  N  -  -  -  - ";
};

void expectRows(const std::vector<Row>& rows, bool facts) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.line);
    const Listing listing = parseListing(QByteArray(row.line) + "\r\n", facts, kNow);
    if (*row.name == '\0') {
      EXPECT_TRUE(listing.items.empty());
      continue;
    }
    ASSERT_EQ(listing.items.size(), 1u);
    const cDirItem& item = listing.items[0];
    EXPECT_EQ(item.bytes, row.name);
    EXPECT_EQ(item.size, row.size);
    EXPECT_EQ(item.modified.toString(u"yyyy-MM-dd hh:mm"_s), QString::fromLatin1(row.time));
    EXPECT_EQ(attributeText(item.attributes), QString::fromLatin1(row.marks));
  }
}

constexpr char kFolder[] = " -  -  D  -  -  -  -  -  - ";
constexpr char kReadOnly[] = " -  -  -  -  -  -  R  -  - ";

TEST(Listing, OfUnixServers) {
  expectRows(
      {{"-rw-r--r--    1 1000     1000         1234 Jan 12 14:03 song one.mp3", "song one.mp3",
        1234, "2026-01-12 14:03"},
       {"-rw-r--r--    1 1000     1000         1234 Dec 24 14:03 a", "a", 1234, "2025-12-24 14:03"},
       {"-rw-r--r--    1 1000     1000         1234 Mar 11 09:00 ahead", "ahead", 1234,
        "2026-03-11 09:00"},
       {"-rw-r--r-- 1 u g 5000000000 Jan 12  2020 big", "big", 5000000000, "2020-01-12 00:00"},
       {"-rw-r--r-- 1 u 77 Feb 29  2024 no group", "no group", 77, "2024-02-29 00:00"},
       {"-rw-r--r-- 1 u g 77 2024-02-29 10:11 iso", "iso", 77, "2024-02-29 10:11"},
       {"-rw-r--r-- 1 u g 77 29 Feb 2024 day first", "day first", 77, "2024-02-29 00:00"},
       {"-r--r--r-- 1 u g 77 Jan 12  2020   two blanks ", "  two blanks ", 77, "2020-01-12 00:00",
        kReadOnly},
       {"drwxr-xr-x 2 u g 4096 Jan 12  2020 music", "music", 0, "2020-01-12 00:00", kFolder},
       {"-rw-r--r-- 1 u g 7 Jan 12  2020 .hidden", ".hidden", 7, "2020-01-12 00:00",
        " -  -  -  H  -  -  -  -  - "},
       {"lrwxrwxrwx 1 u g 7 Jan 12  2020 link -> /etc", "link", 7, "2020-01-12 00:00"},
       {"-rw-r--r-- 1 u g 7 Feb 30  2020 no day", "no day", 7, ""},
       {"-rw-r--r-- 1 u g 7 Jan 12  2020 \xE9t\xE9", "\xE9t\xE9", 7, "2020-01-12 00:00"},
       {"total 12", ""},
       {"drwxr-xr-x 2 u g 4096 Jan 12  2020 ..", ""},
       {"-rw-r--r-- 1 u g 12", ""},
       {"-rw-r--r-- 1 u g 99999999999999999999 Jan 12  2020 absurd", ""}},
      false);
  EXPECT_EQ(parseListing("-rw-r--r-- 1 u g 7 Feb 30  2020 x\n", false, kNow).badTime,
            u"Feb 30  2020 x"_s);
  EXPECT_EQ(
      parseListing("-rw-r--r-- 1 u g 7 Jan 12  2020 \xE9t\xE9\n", false, kNow).items[0].fileName,
      u"\u00E9t\u00E9"_s);
}

TEST(Listing, OfDosServers) {
  expectRows(
      {{"01-12-20  02:03PM       <DIR>          My Music", "My Music", 0, "2020-01-12 14:03",
        kFolder},
       {"01-12-2020  12:03AM              1,234 a b.txt", "a b.txt", 1234, "2020-01-12 00:03"},
       {"2020-01-12  14:03                 1234 iso", "iso", 1234, "2020-01-12 14:03"},
       {"13-45-20  02:03PM                  12 no day", "no day", 12, ""},
       {"01-12-20  13:03PM                  12 no time", ""},
       {"01-12-20  02:03PM", ""}},
      false);
}

TEST(Listing, OfMlsd) {
  const QString noon = QDateTime(QDate(2020, 1, 12), QTime(12, 0), Qt::UTC)
                           .toLocalTime()
                           .toString(u"yyyy-MM-dd hh:mm"_s);
  const QByteArray time = noon.toLatin1();
  expectRows({{"type=file;size=12;modify=20200112120000.123;perm=adfrw; a b", "a b", 12, time},
              {"Type=dir;Modify=20200112120000;Perm=elcm; folder", "folder", 0, time, kFolder},
              {"type=file;size=12;perm=r; fixed", "fixed", 12, "", kReadOnly},
              {"type=file;size=1;win32.ea=0x1926; w", "w", 1, "", " A  C  -  H  -  O  -  S  T "},
              {"type=OS.unix=slink:/x;size=3; l", "l", 3},
              {"type=cdir;perm=el; .", ""},
              {"type=file;size=3;", ""},
              {"size=3; untyped", ""}},
             true);
}

TEST(Listing, FiltersAndNamesThatLeadElsewhere) {
  const struct {
    const char *name, *filter;
    bool fits;
  } kFilters[] = {{"readme", "*.*", true},  {"a b.mp3", "a?b.mp3", true},
                  {"A.MP3", "*.mp3", true}, {"a.mp3x", "*.mp3", false},
                  {"aXbXc", "a*b*c", true}, {"ab", "a?b", false},
                  {"", "*", true},          {"aaaaaaaaaaaab", "a*a*a*a*c", false}};
  for (const auto& [name, filter, wanted] : kFilters)
    EXPECT_EQ(fitsFilter(QString::fromLatin1(name), QString::fromLatin1(filter)), wanted)
        << name << " " << filter;
  for (const QByteArray& name :
       {QByteArray(""), QByteArray("."), QByteArray(".."), QByteArray("../x"), QByteArray("/etc"),
        QByteArray("a\\b"), QByteArray("a\nb"), QByteArray("a\0b", 3), QByteArray(300, 'x')})
    EXPECT_TRUE(nameRefusal(name).startsWith(u"The server has a file named"_s)) << name.constData();
  for (const char* name : {"a", "...", "a..b", ".x", "-rf", "\xE9"})
    EXPECT_EQ(nameRefusal(name), QString()) << name;
}

}  // namespace
}  // namespace korvane

// Records of discs, whole and broken.
#include <gtest/gtest.h>

#include "ripper/names/xmcd_record.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(XmcdRecord, aRecordAsServersWriteIt) {
  const auto record = readXmcd(
      "# xmcd CD database file\r\n#\r\n# Track frame offsets:\r\n#\t150\r\n#\t15239\r\n# 24000\r\n"
      "#\r\n# Disc length: 2663 seconds\r\n#\r\n# Revision: 7\r\n# Processed by: cddbd "
      "v1.5\r\n#\r\n"
      "DISCID=1E0A6503,1e0a6504,none,1e0a6503\r\nDTITLE=The Long\r\nDTITLE= Artist / The Al\r\n"
      "DTITLE=bum / Live\r\nDYEAR=1994\r\nDGENRE=Folk\r\nTTITLE0=C:\\\\Music\\nand\\tmore\r\n"
      "TTITLE2=caf\xc3\r\nTTITLE2=\xa9\r\nEXTD= YEAR: 1990\r\nEXTT0=\r\nPLAYORDER=\r\n");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->discIds, QStringList({u"1e0a6503"_s, u"1e0a6504"_s}));
  EXPECT_EQ(record->offsets, QList<int>({150, 15239, 24000}));
  EXPECT_EQ(record->seconds, 2663);
  EXPECT_EQ(record->artist, u"The Long Artist"_s);
  EXPECT_EQ(record->album, u"The Album / Live"_s);
  EXPECT_EQ(record->year + u' ' + record->genre, u"1994 Folk"_s);
  EXPECT_EQ(record->titles, QStringList({u"C:\\Music and more"_s, u""_s, u"café"_s}));
}

TEST(XmcdRecord, textsInEveryEncoding) {
  const struct {
    QByteArray value;
    QString text;
  } cases[] = {
      {"Bj\xc3\xb6rk", u"Björk"_s},
      {"Bj\xf6rk", u"Björk"_s},
      {"It\x92s", u"It’s"_s},    // Windows-1252
      {"cut \xc3", u"cut Ã"_s},  // half a character
      {"\xf0\x9f\x8e\xb5", u"🎵"_s},
      {"a\0b\x1b[1m"_ba, u"a b [1m"_s},  // nothing that moves a cursor
      {" \t both ends \\n", u"both ends"_s},
      {"end\\", u"end\\"_s},
      {"\\x \\\\n", u"\\x \\n"_s},
  };
  for (const auto& c : cases) {
    const auto record = readXmcd("DTITLE=A / B\nTTITLE0=" + c.value + "\n");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->titles.value(0), c.text);
  }
}

TEST(XmcdRecord, brokenPartsAreLeftOutAndTheRestHolds) {
  EXPECT_FALSE(readXmcd(""));
  EXPECT_FALSE(readXmcd("<html><a href=\"x?DTITLE=y\">DTITLE</a></html>"));
  EXPECT_FALSE(readXmcd("# xmcd\nDISCID=1e0a6503\nDTITLE= \nTTITLE0=x\n"));
  const QByteArray title = "DTITLE=One name";
  const auto alone = readXmcd(title);
  ASSERT_TRUE(alone);
  EXPECT_EQ(alone->artist, u"One name"_s);
  EXPECT_EQ(alone->album, u"One name"_s);

  const struct {
    QByteArray comments;
    QList<int> offsets;
    int seconds;
  } cases[] = {
      {"#150\n# 300\n#\n# Disc length: 100\n", {150, 300}, 100},
      {"# 300\n# 150\n# Disc length: 100\n", {}, 100},
      {"# 150\n# 150\n# 600\n# Disc length: x\n", {}, 0},
      {"# 150\n# 99999999999999999999\n# 300\n# Disc length: 99999999999\n", {}, 0},
      {"# 150\n# no place\n# 300\n# Disc length: -4\n", {150}, 0},
      {QByteArray("#1\n#2\n").repeated(50), {}, 0},
  };
  for (const auto& c : cases) {
    const auto record = readXmcd("# Track frame offsets:\n" + c.comments + title);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->offsets, c.offsets) << c.comments.toStdString();
    EXPECT_EQ(record->seconds, c.seconds) << c.comments.toStdString();
  }
  const auto odd = readXmcd(
      title + "\nDYEAR=94\nTTITLE99=x\nTTITLE-1=x\nTTITLE=x\nTTITLE99999999999=x\nDISCID=123\n");
  ASSERT_TRUE(odd);
  EXPECT_EQ(odd->year, u""_s);
  EXPECT_TRUE(odd->titles.isEmpty() && odd->discIds.isEmpty());
}

}  // namespace
}  // namespace korvane

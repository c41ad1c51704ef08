// From the answer of a drive to the names of its disc: the table of contents, the identifier, the
// databases in their order. Numbers were worked out by hand.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <thread>

#include "platform/disc/packet_drive_linux.h"
#include "ripper/names/c_spti.h"
#include "ripper/names/my_cddb.h"
#include "tests/fakes/disc_image.h"
#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/print.h"
#include "tests/ripper/names_world.h"

namespace korvane {
namespace {

TEST(DiscIdentifier, IsTheSumOfDigitsTheLengthAndTheTracks) {
  const QString many = u"224925 "_s.repeated(8);  // 2999 s each: digits of 29
  const struct {
    QString toc, id;
  } cases[] = {
      {u"150 15000"_s, u"0200c601"_s},                 // 2; 198 s
      {u" 150 300 600 900 "_s, u"0e000a03"_s},         // 2 4 8; 10 s
      {u"224 17999 18000 36074"_s, u"1601de03"_s},     // whole seconds: 2 239 240; 480
      {many + u"44925 300000"_s, u"0003e909"_s},       // 232 and 599 s: 255; 4000 - 2999 s
      {many + u"45000 300000"_s, u"ee03e909"_s},       // 232 and 600 s: 238
      {many + u"14925 2925 300000"_s, u"0803e90a"_s},  // 232, 199 and 39 s: 263
      {u"15000 150"_s, u"02ffffff3a01"_s},             // falls by 198 s
      {u"150"_s, u"00000000"_s},
      {u"abc 15000"_s, u"0000c801"_s},
      {u"  "_s, QString()},
  };
  for (const auto& c : cases) EXPECT_EQ(clscddb::figureid(c.toc), c.id) << c.toc.toStdString();
  // The 101st number and what follows are no tracks.
  EXPECT_EQ(clscddb::figureid(u"75 "_s.repeated(140)), u"63000063"_s);
}

QByteArray answer(const char* hex) {
  return QByteArray::fromHex(hex);
}

TEST(TableOfContents, IsReadByteForByteAndNeverBeyondItsEnd) {
  const struct {
    const char* what;
    QByteArray bytes;
    QString toc;
  } cases[] = {
      {"two tracks", answer("001a0102 00100100 00000200 00140200 00031e0a 0010aa00 0049 0302"),
       u"150 15760 328727"_s},
      {"first track 7, none but the lead-out says position",
       answer("00120707 00000700 00000200 0010aa00 00000a00"), u"150 750"_s},
      {"no position at all", answer("00120101 00040100 00000200 0002aa00 00000a00"), {}},
      {"no tracks", answer("000a0000 0010aa00 00000200"), {}},
      {"last before first", answer("000a0504 0010aa00 00000200"), u"150"_s},
      {"far before first", answer("000a0901 0010aa00 00000200"), {}},
      {"falling", answer("00120101 00100100 00010000 0010aa00 00000200"), u"4500 150"_s},
      {"a byte short", answer("00120101 00100100 00000200 0010aa00 00000a"), {}},
      {"a head alone", answer("00120101"), {}},
      {"less than a head", answer("001201"), {}},
      {"nothing", {}, {}},
      {"100 tracks", answer("032a0164") + QByteArray(8 * 101, '\x10'), {}},
  };
  for (const auto& c : cases) EXPECT_EQ(tocOfAnswer(c.bytes), c.toc) << c.what;
  const QByteArray full = answer("032a0163") + QByteArray(8 * 100, '\x10');
  EXPECT_EQ(tocOfAnswer(full).count(u' '), 99);
}

TEST(TableOfContents, IsAskedForByTheCommandOfTheDrive) {
  NamesWorld world;
  EXPECT_EQ(world.look().getIDFromCD(u"/dev/sr7"_s), QString());  // a drive that refuses
  cSPTI table(world.packets);
  world.packets.answer = answer("00120101 00100100 00000200 0010aa00 00001400");
  EXPECT_TRUE(table.InitMediaToc(u"/dev/sr7"_s));
  EXPECT_EQ(world.packets.asked.back().first, u"/dev/sr7"_s);
  EXPECT_EQ(world.packets.asked.back().second.toHex(), "43020000000000032400");
  EXPECT_EQ(world.packets.length, 804);
  EXPECT_EQ(world.packets.seconds, 5);
  EXPECT_EQ(world.look().getIDFromCD(u"/dev/sr7"_s), u"02001201"_s);
  world.packets.answer.reset();
  EXPECT_FALSE(table.InitMediaToc(u"/dev/sr7"_s));
  EXPECT_EQ(table.GetTOC(), u"150 1500"_s);
}

TEST(TableOfContents, OfAnImageIsMadeFromItsSheet) {
  NamesWorld world;
  PacketDriveLinux drive;
  const QString image = makeDiscImage(world.home.path(), u"disc"_s, {2, 4, 4});
  clscddb names({world.files, drive, world.log, world.home.path(), u"NO"_s});
  EXPECT_EQ(names.getIDFromCD(image), u"0e000a03"_s);  // 150 300 600 900
  EXPECT_EQ(names.getIDFromCD(makeDiscImage(world.home.path(), u"data"_s, {70}, "MODE1/2352")),
            u"02004601"_s);
  const PacketDrive::Command whole{0x43, 2, 0, 0, 0, 0, 0, 3, 0x24, 0};
  PacketDrive::Command head = whole;
  head[7] = 0, head[8] = 12;
  EXPECT_EQ(drive.read(image, head, 804, 5).value_or(QByteArray()).toHex(),
            "002201030010010000000200");
  EXPECT_EQ(drive.read(image, whole, 5, 5).value_or(QByteArray()).toHex(), "0022010300");
  EXPECT_EQ(drive.read(image, whole, 804, 5).value_or(QByteArray()).right(8).toHex(),
            "0010aa0000000c00");
  for (const size_t byte : {0, 1, 2, 6}) {  // another command, addresses, format, first track
    PacketDrive::Command other = whole;
    other[byte] = static_cast<quint8>(other[byte] + 3);
    EXPECT_FALSE(drive.read(image, other, 804, 5)) << byte;
  }
  for (const QString& none : {world.home / u"none.cue"_s, u"/dev/null"_s, u"/dev/nodrive"_s})
    EXPECT_FALSE(drive.read(none, whole, 804, 5)) << none.toStdString();
}

// Row by row what the five files hold, and whether the search comes as far as the third.
TEST(DiscNames, AreSoughtInFiveFilesUntilOneHasThemOrCannotBeRead) {
  const QByteArray other = "INSERT INTO cdData (DISCID, Album) VALUES ('0000aa01', 'other')";
  const QByteArray it = "INSERT INTO cdData (DISCID, Album) VALUES ('0000ab01', '%')";
  enum Second { Filled, Missing, Text, Empty, NoTable, Locked, HasIt };
  const struct {
    Second second;
    QString album;
    int complaints;
  } cases[] = {{Filled, u"third"_s, 0}, {Missing, u"none"_s, 1}, {Text, u"none"_s, 1},
               {Empty, u"none"_s, 1},   {NoTable, u"none"_s, 1}, {Locked, u"none"_s, 1},
               {HasIt, u"second"_s, 0}};
  for (const auto& c : cases) {
    NamesWorld world;
    EXPECT_FALSE(world.look().IsDataAvailable());
    world.database(u"cddata1.mdb"_s, other);
    EXPECT_TRUE(world.look().IsDataAvailable());
    const QString second = world.database(
        u"cddata2.mdb"_s, c.second == HasIt ? QByteArray(it).replace('%', "second") : other);
    world.database(u"cddata3.mdb"_s, QByteArray(it).replace('%', "third"));
    sql::Connection holder(second, sql::Connection::ReadWrite);
    if (c.second == Missing) world.files.DeleteFile(second);
    if (c.second == Text) world.home.put(u"cddata2.mdb"_s, QByteArray(3000, 'x'));
    if (c.second == Empty) world.home.put(u"cddata2.mdb"_s, "");
    if (c.second == NoTable) holder.script("DROP TABLE cdData");
    if (c.second == Locked) holder.script("BEGIN EXCLUSIVE");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(world.album(u"0000ab01"_s), c.album) << c.second;
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_EQ(world.complaints(), c.complaints) << c.second;
    EXPECT_EQ(world.home.get(u"log.txt"_s).count("cddata2.mdb"), c.complaints) << c.second;
  }
}

TEST(DiscNames, StandWhereTheSettingSaysWithOrWithoutASeparator) {
  NamesWorld world;
  world.home.folder(u"Names"_s);
  for (int i = 1; i <= 5; ++i)
    world.database(u"Names/cddata%1.mdb"_s.arg(i),
                   "INSERT INTO cdData (DISCID, Album) VALUES ('0000000" + QByteArray::number(i) +
                       "', 'in " + QByteArray::number(i) + "')");
  for (const QString& path : {world.home / u"Names"_s, world.home / u"Names/"_s,
                              u' ' + QString(world.home / u"names\\"_s)})
    for (int i = 1; i <= 5; ++i)
      EXPECT_EQ(world.album(u"0000000%1"_s.arg(i), false, path), u"in %1"_s.arg(i))
          << path.toStdString();
  EXPECT_FALSE(world.look(u" "_s).IsDataAvailable());
  EXPECT_EQ(world.complaints(), 0);
  world.database(u"cddata1.mdb"_s);
  for (const QString& path : {u"NO"_s, u""_s}) EXPECT_TRUE(world.look(path).IsDataAvailable());
}

TEST(DiscNames, AreTextsWhateverTheRowHolds) {
  NamesWorld world;
  world.database(u"cddata1.mdb"_s,
                 "INSERT INTO cdData (DISCID, Artist, t0, t1, t34) VALUES ('0E000A03', 'Lumen "
                 "Quay ', '  Tide ', 17, x'ff41')");
  const auto names = world.look().GetInfo(u"0e000a03"_s, false);
  ASSERT_TRUE(names);
  EXPECT_EQ(names->artist, u"Lumen Quay "_s);
  EXPECT_EQ(names->album, QString());
  EXPECT_EQ(names->titles[0], u"Tide"_s);
  EXPECT_EQ(names->titles[1], u"17"_s);
  EXPECT_EQ(names->titles[2], QString());
  EXPECT_EQ(names->titles[34],
            u"\xFFFD"
            "A"_s);
  EXPECT_EQ(world.album(u"' OR 1 = 1 --"_s), u"none"_s);
  EXPECT_EQ(world.album(QString()), u"none"_s);
}

TEST(MyDiscs, AreFoundByTheirOwnEntryAndOnlyWhenAskedFor) {
  NamesWorld world;
  QString error;
  EXPECT_EQ(world.album(u"0e000a03"_s, true), u"none"_s);
  EXPECT_EQ(world.complaints(), 0) << "there is none before the first rip";
  EXPECT_FALSE(insertMyDisc(world.home.path(), u"0e000a03"_s, {}, {}, {}, &error));
  EXPECT_TRUE(error.contains("mycddb.mdb"_L1)) << error.toStdString();
  ASSERT_TRUE(makeMyCddb(world.files, world.home.path(), &error)) << error.toStdString();
  QStringList titles{u"Harbour's \"Edge\""_s, u"x"_s.repeated(79) + u"𝄞"_s, u"שלום"_s};
  for (int i = 3; i < 40; ++i) titles << QString::number(i);
  ASSERT_TRUE(insertMyDisc(world.home.path(), u"0e000a03"_s, u"Odd '); DROP TABLE cdData; --"_s,
                           u"x"_s.repeated(300), titles, &error))
      << error.toStdString();
  EXPECT_FALSE(insertMyDisc(world.home.path(), {}, u"A"_s, u"B"_s, {}, &error));
  ASSERT_TRUE(makeMyCddb(world.files, world.home.path(), &error));  // leaves it as it is
  const auto names = world.look().GetInfo(u"0e000a03"_s, true);
  ASSERT_TRUE(names);
  EXPECT_EQ(names->artist, u"Odd '); DROP TABLE cdData; --"_s);
  EXPECT_EQ(names->album, u"x"_s.repeated(80));
  EXPECT_EQ(names->titles[0], titles[0]);
  EXPECT_EQ(names->titles[1], u"x"_s.repeated(79)) << "no half of a character";
  EXPECT_EQ(names->titles[2], titles[2]);
  EXPECT_EQ(names->titles[34], u"34"_s);
  EXPECT_EQ(world.album(u"0e000a03"_s), u"none"_s);
}

TEST(MyDiscs, AreWrittenByTwoConsolesInTurn) {
  NamesWorld world;
  QString error;
  ASSERT_TRUE(makeMyCddb(world.files, world.home.path(), &error));
  sql::Connection other(world.home / u"mycddb.mdb"_s, sql::Connection::ReadWrite);
  other.script("BEGIN EXCLUSIVE");
  std::thread ends([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    other.script("COMMIT");
  });
  EXPECT_TRUE(insertMyDisc(world.home.path(), u"0e000a03"_s, u"A"_s, u"B"_s, {}, &error))
      << error.toStdString();
  ends.join();
  EXPECT_EQ(world.album(u"0e000a03"_s, true), u"B"_s);
  other.script("BEGIN EXCLUSIVE");
  EXPECT_FALSE(insertMyDisc(world.home.path(), u"0e000a04"_s, u"A"_s, u"B"_s, {}, &error));
  EXPECT_TRUE(error.contains("in use"_L1)) << error.toStdString();
}

TEST(MyDiscs, AreNotHalfMade) {
  FakeFileSystem files;
  files.room = 1000;
  QString error;
  EXPECT_FALSE(makeMyCddb(files, u"/home"_s, &error));
  EXPECT_FALSE(error.isEmpty());
  EXPECT_FALSE(files.FileExists(u"/home/mycddb.mdb"_s));
}

}  // namespace
}  // namespace korvane

#include "library/data/database.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>

#include "library/data/statements.h"
#include "library/data/vb_text.h"
#include "tests/library/library_fixture.h"

namespace korvane {
namespace {

using DatabaseTest = LibraryTest;

TEST_F(DatabaseTest, CountsWithoutDigitsForNothing) {
  EXPECT_EQ(db.getLibraryCounts(), u" Artist \n Albums \n Songs "_s);
  {
    OpenedDatabase open(db);
    sql::Transaction whole(*open);
    for (int i = 0; i < 1200; ++i)
      given(i % 2 ? u"Abba"_s : u"ABBA"_s, u"Live"_s, QString::number(i));
    given(u"Björk"_s, u"live"_s, u"Jóga"_s);
    whole.commit();
  }
  const QString counts = u"2 Artist \n1 Albums \n1,201 Songs "_s;
  EXPECT_EQ(db.getLibraryCounts(), counts);
  db.getAllSongs();
  EXPECT_EQ(db.getLibraryCounts(), counts) << "by the list file";
}

TEST_F(DatabaseTest, ListsGroupAndOrderBlindToCase) {
  given(u"Zappa"_s, u"Hot Rats"_s, u"Peaches"_s);
  given(u"abba"_s, u"Arrival"_s, u"02-Money"_s);
  given(u"ABBA"_s, u"arrival"_s, u"01-Queen"_s);
  given(u"Ärzte"_s, u"13"_s, u"Zu spät"_s);
  for (const bool fromListFile : {false, true}) {
    if (fromListFile) db.getAllSongs();
    const auto artists = column(*db.getArtists(), 1);
    ASSERT_EQ(artists.size(), 3);
    EXPECT_EQ(artists[0].toLower(), u"abba"_s);
    EXPECT_EQ(artists[1], u"Ärzte"_s);
    EXPECT_EQ(column(*db.getAllAlbums(), 2).last(), u"Zappa"_s);
    EXPECT_EQ(db.getAllAlbums()->rowCount(), 3);
  }
  EXPECT_EQ(db.getArtistAlbums(u"Abba"_s).size(), 1);
  EXPECT_EQ(titles(db.getArtistOrAlbumSongs(u"ABBA"_s, u"ARRIVAL"_s)),
            (QStringList{u"01-Queen"_s, u"02-Money"_s}));
}

TEST_F(DatabaseTest, MarksFavorites) {
  given(u"A'b"_s, u"\"x"_s, u"one"_s, u"1999"_s);
  given(u"A'b"_s, u"\"x"_s, u"two"_s, u"1999"_s);
  EXPECT_EQ(db.setFavorite(u"a'B"_s, u"\"X"_s, u"TWO"_s, {}), 1);
  EXPECT_EQ(titles(db.getFavorites()), QStringList{u"two"_s});
  EXPECT_EQ(
      db.importFavorite(u"Z"_s + db.getFavorites()[0].SongPath.mid(1).replace(u"two"_s, u"ONE"_s)),
      1);
  EXPECT_EQ(titles(db.getFavorites()), (QStringList{u"one"_s, u"two"_s}));
  EXPECT_EQ(db.clearFavorite(u"A'b"_s, u"\"x"_s, u"one"_s), 1);
  const auto songs = db.getArtistOrAlbumSongs(u"A'b"_s, u"\"x"_s);
  EXPECT_EQ(songs[0].year, QString());
  EXPECT_TRUE(songs[1].isFavorite());
  // The wildcard of the form with a path is not one that the statement honours.
  EXPECT_EQ(db.setFavorite(u"A'b"_s, u"\"x"_s, u"one"_s, songs[0].SongPath), 0);
}

TEST_F(DatabaseTest, FindsASongByItsPathOnAnyDrive) {
  given(u"A"_s, u"B"_s, u"it's 100%"_s);
  const Song song = db.getFavorites().value(0, db.getArtistOrAlbumSongs(u"A"_s, u"B"_s)[0]);
  EXPECT_EQ(db.getSongAtPath(u"/MUSIC/a/b/IT'S 100%.mp3"_s), song);
  EXPECT_EQ(db.getSongAtPath(u"/music/a/b"_s), std::nullopt);
  EXPECT_EQ(db.getSongByPath(u"Dmusic/A/B/it's 100%.MP3"_s), song);
  EXPECT_EQ(db.getSongByPath(u"/elsewhere.mp3"_s), std::nullopt);
}

TEST_F(DatabaseTest, TextCannotChangeAStatement) {
  const QString evil = u"\"; DROP TABLE songs; --' or 1=1 "_s;
  given(evil, evil, evil);
  given(u"other"_s, u"other"_s, u"other"_s);
  EXPECT_EQ(db.setFavorite(evil, evil, evil, {}), 1);
  EXPECT_EQ(db.importFavorite(u"x' or '1'='1"_s), 0);
  EXPECT_EQ(titles(db.getFavorites()), QStringList{evil});
}

TEST_F(DatabaseTest, EraseLeavesAnEmptyLibraryWithNewLists) {
  given(u"A"_s, u"B"_s, u"C"_s);
  EXPECT_EQ(db.getAllSongs()->rowCount(), 1);
  db.erase();
  EXPECT_EQ(db.getAllSongs()->rowCount(), 0);
  EXPECT_EQ(db.getArtists()->rowCount(), 0);
  given(u"A"_s, u"B"_s, u"C"_s);
  EXPECT_EQ(db.getArtists()->rowCount(), 1);
}

TEST_F(DatabaseTest, NoticesAReplacedFile) {
  given(u"A"_s, u"B"_s, u"C"_s);
  db.getAllSongs();
  createEmptyDatabase(db.path());
  EXPECT_EQ(db.getArtists()->rowCount(), 0);
  EXPECT_EQ(db.getAllSongs()->rowCount(), 0);
}

// What opening says of a file that is no good.
class DatabaseFileTest : public LibraryTest {
 protected:
  DatabaseError::Kind kindOfOpening() {
    try {
      Database other(home.path());
      other.getArtists();
      other.getLibraryCounts();
    } catch (const DatabaseError& error) {
      EXPECT_TRUE(error.text().contains(db.path())) << error.what();
      return error.kind();
    }
    ADD_FAILURE() << "opened";
    return DatabaseError::Other;
  }
  void write(qint64 at, const QByteArray& bytes, bool cutThere = false) {
    QFile file(db.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    if (cutThere) file.resize(at);
    file.seek(at);
    file.write(bytes);
  }
};

TEST_F(DatabaseFileTest, EachFaultHasItsKind) {
  {
    OpenedDatabase open(db);
    sql::Transaction whole(*open);
    for (int i = 0; i < 500; ++i) given(u"Artist %1"_s.arg(i), u"Album"_s, u"Song"_s);
    whole.commit();
  }
  write(8192, QByteArray(40000, '\xAA'));
  EXPECT_EQ(kindOfOpening(), DatabaseError::Damaged);
  write(4096, {}, true);
  EXPECT_EQ(kindOfOpening(), DatabaseError::Damaged);
  write(0, "This is a text and no database at all, whatever its name may say of it.", true);
  EXPECT_EQ(kindOfOpening(), DatabaseError::NotADatabase);
  write(0, {}, true);
  EXPECT_EQ(kindOfOpening(), DatabaseError::NotADatabase);
  QFile::remove(db.path());
  EXPECT_EQ(kindOfOpening(), DatabaseError::Missing);
}

TEST_F(DatabaseFileTest, AFileLockedByAnotherIsToldAfterTwoSeconds) {
  sql::Connection other(db.path(), sql::Connection::ReadWrite);
  other.script("BEGIN EXCLUSIVE");
  EXPECT_EQ(kindOfOpening(), DatabaseError::Locked);
}

TEST_F(DatabaseFileTest, AFileThatMayNotBeWrittenCanBeReadAndSaysSoWhenWritten) {
  given(u"A"_s, u"B"_s, u"C"_s);
  ASSERT_EQ(::chmod(home.path().toUtf8().constData(), 0555), 0);
  ASSERT_EQ(::chmod(db.path().toUtf8().constData(), 0444), 0);
  const bool root = ::geteuid() == 0;
  if (root) {
    ASSERT_EQ(::seteuid(65534), 0);
  }
  {
    Database other(home.path());
    EXPECT_EQ(other.getAllSongs()->cell(1, 1), u"C"_s) << "the list file cannot be written either";
    try {
      other.setFavorite(u"A"_s, u"B"_s, u"C"_s, {});
      ADD_FAILURE() << "written";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.kind(), DatabaseError::ReadOnly) << error.what();
    }
  }
  if (root) {
    ASSERT_EQ(::seteuid(0), 0);
  }
  ASSERT_EQ(::chmod(home.path().toUtf8().constData(), 0755), 0);
}

TEST(VbText, Cleans) {
  EXPECT_EQ(fixSingleQuote(u" it's "_s), u"it''s"_s);
  EXPECT_EQ(fixDoubleQuote(u" \"x\" "_s), u"'x'"_s);
  EXPECT_EQ(cut(u"ab\U0001F3B5"_s, 3), u"ab"_s);
  struct {
    const char16_t *title, *shown;
  } const cases[] = {{u"01 - Song", u"Song"}, {u"01.- Song ", u"Song"}, {u"Bye-Bye", u"Bye"},
                     {u"abc-", u""},          {u"a-b", u"a-b"},         {u" x ", u"x"}};
  for (const auto& [title, shown] : cases)
    EXPECT_EQ(songTitleShown(QString::fromUtf16(title)), QString::fromUtf16(shown));
}

}  // namespace
}  // namespace korvane

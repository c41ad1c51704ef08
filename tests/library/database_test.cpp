#include "library/data/database.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>

#include "library/data/statements.h"
#include "library/data/vb_text.h"
#include "tests/library/library_fixture.h"

namespace korvane {
namespace {

using DatabaseTest = LibraryTest;

TEST_F(DatabaseTest, CountsWithoutDigitsForNothing) {
  EXPECT_EQ(db.getLibraryCounts(), u" Artist \n Albums \n Songs "_s);
  givenMany(1200,
            [&](int i) { given(i % 2 ? u"Abba"_s : u"ABBA"_s, u"Live"_s, QString::number(i)); });
  given(u"Björk"_s, u"live"_s, u"Jóga"_s);
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
  const auto artists = column(*db.getArtists(), 1);
  ASSERT_EQ(artists.size(), 3);
  EXPECT_EQ(artists[0].toLower(), u"abba"_s);
  EXPECT_EQ(artists[1], u"Ärzte"_s);
  const auto albums = column(*db.getAllAlbums(), 2);
  EXPECT_EQ(albums.size(), 3);
  EXPECT_EQ(albums.last(), u"Zappa"_s);
  EXPECT_EQ(db.getArtistAlbums(u"Abba"_s).size(), 1);
  EXPECT_EQ(titles(db.getArtistOrAlbumSongs(u"ABBA"_s, u"ARRIVAL"_s)),
            (QStringList{u"01-Queen"_s, u"02-Money"_s}));
}

TEST_F(DatabaseTest, MarksFavoritesAndTextCannotChangeAStatement) {
  const QString evil = u"\"; DROP TABLE songs; --' or 1=1 "_s;
  given(evil, evil, evil);
  EXPECT_EQ(db.importFavorite(u"x' or '1'='1"_s), 0);
  EXPECT_EQ(db.setFavorite(evil, evil, evil, {}) + db.clearFavorite(evil, evil, evil), 2);
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

TEST_F(DatabaseTest, NoticesThatItWasErasedOrReplaced) {
  const std::function<void()> ways[] = {[&] { db.erase(); },
                                        [&] { createEmptyDatabase(db.path()); }};
  for (const auto& emptied : ways) {
    given(u"A"_s, u"B"_s, u"C"_s);
    EXPECT_EQ(db.getAllSongs()->rowCount(), 1);
    emptied();
    EXPECT_EQ(db.getArtists()->rowCount(), 0);
    EXPECT_EQ(db.getAllSongs()->rowCount(), 0);
  }
}

// What opening says of a file that is no good.
class DatabaseFileTest : public LibraryTest {
 protected:
  DatabaseError::Kind kindOfOpening() {
    return kindOf([&] { Database(home.path()).getArtists(); });
  }
  DatabaseError::Kind kindOf(const std::function<void()>& use) {
    try {
      use();
    } catch (const DatabaseError& error) {
      EXPECT_TRUE(error.text().contains(db.path())) << error.what();
      return error.kind();
    }
    ADD_FAILURE() << "nothing was wrong";
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

TEST_F(DatabaseFileTest, EachFaultHasItsKindAndErasingMendsIt) {
  const std::pair<DatabaseError::Kind, std::function<void()>> faults[] = {
      {DatabaseError::Damaged, [&] { write(8192, QByteArray(40000, '\xAA')); }},
      {DatabaseError::Damaged, [&] { write(4096, {}, true); }},
      {DatabaseError::NotADatabase,
       [&] { write(0, "This is a text and no database, whatever its name may say of it.", true); }},
      {DatabaseError::NotADatabase, [&] { write(0, {}, true); }},
      {DatabaseError::Missing, [&] { QFile::remove(db.path()); }},
  };
  for (const auto& [kind, harm] : faults) {
    givenMany(500, [&](int i) { given(u"Artist %1"_s.arg(i), u"Album"_s, u"Song"_s); });
    harm();
    EXPECT_EQ(kindOfOpening(), kind);
    db.erase();
    EXPECT_EQ(db.getArtists()->rowCount(), 0);
  }
}

TEST_F(DatabaseFileTest, AFileLockedByAnotherIsSaidAfterTwoSecondsAndWrittenAfterwards) {
  given(u"A"_s, u"B"_s, u"C"_s);
  sql::Connection other(db.path(), sql::Connection::ReadWrite);
  other.script("BEGIN EXCLUSIVE");
  EXPECT_EQ(kindOfOpening(), DatabaseError::Locked);
  QElapsedTimer waited;
  waited.start();
  EXPECT_THROW(db.setFavorite(u"A"_s, u"B"_s, u"C"_s, {}), DatabaseError);
  EXPECT_THROW(db.erase(), DatabaseError);
  EXPECT_LT(waited.elapsed(), 10'000);
  other.script("ROLLBACK");
  EXPECT_TRUE(db.getFavorites().isEmpty());
  EXPECT_EQ(db.setFavorite(u"A"_s, u"B"_s, u"C"_s, {}), 1);
}

TEST_F(DatabaseFileTest, RowsThatCannotBeReadAreSaidOnceUntilTheyCanBe) {
  for (int i = 0; i < 100; ++i) given(u"A"_s, u"B"_s, QString::number(1000 + i));
  QStringList heard;
  db.onUnreadable = [&](const QString& why) { heard << why; };
  const auto songs = db.getAllSongs();
  EXPECT_EQ(songs->cell(1, 1), u"1000"_s);
  const QString aside = home.filePath(u"aside"_s);
  QFile::rename(db.path(), aside);
  for (int row = 1; row <= 100; ++row) songs->cell(1, row);
  EXPECT_EQ(songs->cell(1, 1) + songs->cell(1, 100), u"1000"_s) << "what was read stays";
  ASSERT_EQ(heard.size(), 1);
  EXPECT_TRUE(heard[0].contains(db.path()));
  QFile::rename(aside, db.path());
  EXPECT_EQ(songs->cell(1, 100), u"1099"_s);
  QFile::remove(db.path());
  songs->cell(1, 50);
  EXPECT_EQ(heard.size(), 2);
}

TEST(DatabaseErrors, SayWhatToDo) {
  const QString path = u"/home/%2/Morvanta.mdb"_s;
  const struct {
    int code;
    DatabaseError::Kind kind;
    const char* words;
  } cases[] = {
      {SQLITE_AUTH, DatabaseError::Password, "invalid database password "},
      {SQLITE_FULL, DatabaseError::DiskFull, "Free some space"},
      {SQLITE_IOERR_WRITE, DatabaseError::DiskFault, "Check the disk"},
      {SQLITE_READONLY_DBMOVED, DatabaseError::Missing, "Put the file back"},
      {SQLITE_READONLY_DIRECTORY, DatabaseError::ReadOnly, "the file and its directory"},
      {SQLITE_BUSY_SNAPSHOT, DatabaseError::Locked, "Close that program"},
      {SQLITE_INTERNAL, DatabaseError::Other, "(what the engine said)"},
  };
  for (const auto& [code, kind, words] : cases) {
    const DatabaseError error(code, path, u"what the engine said"_s);
    EXPECT_EQ(error.kind(), kind) << words;
    EXPECT_TRUE(error.text().contains(QLatin1StringView(words))) << error.what();
    EXPECT_TRUE(kind == DatabaseError::Password || error.text().contains(path)) << error.what();
  }
}

TEST_F(DatabaseFileTest, WhatMayNotBeWrittenCanBeReadAndSaysSoWhenWritten) {
  given(u"A"_s, u"B"_s, u"C"_s);
  const QByteArray directory = home.path().toUtf8(), file = db.path().toUtf8();
  const bool root = ::geteuid() == 0;
  QFile::remove(db.path() + u"-journal"_s);  // of the other user, who has written until now
  for (const mode_t mode : {mode_t{0444}, mode_t{0666}}) {  // the directory never may
    ASSERT_EQ(::chmod(directory.constData(), 0555), 0);
    ASSERT_EQ(::chmod(file.constData(), mode), 0);
    if (root) {
      ASSERT_EQ(::seteuid(65534), 0);
    }
    {
      Database other(home.path());
      EXPECT_EQ(other.getAllSongs()->cell(1, 1), u"C"_s)
          << "the list file cannot be written either";
      EXPECT_EQ(kindOf([&] { other.setFavorite(u"A"_s, u"B"_s, u"C"_s, {}); }),
                DatabaseError::ReadOnly);
      EXPECT_TRUE(other.getFavorites().isEmpty());
    }
    if (root) {
      ASSERT_EQ(::seteuid(0), 0);
    }
    ASSERT_EQ(::chmod(directory.constData(), 0755), 0);
  }
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

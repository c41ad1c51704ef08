#include "library/scan/scanner.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include "platform/path_text.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_pump.h"
#include "tests/library/library_fixture.h"

namespace korvane {
namespace {

class ScannerTest : public LibraryTest, protected ScanEvents {
 protected:
  void scanStatus(const ScanProgress& progress) override { statuses << progress.text; }
  void scanError(const QString& text) override { errors << text; }

  void givenFile(const QByteArray& path, const QByteArray& bytes = "no tag") {
    makeSongFile(fromPath(root) + '/' + path, bytes);
  }
  void givenFiles(int count) {
    for (int i = 0; i < count; ++i) givenFile("a/" + QByteArray::number(i) + ".mp3");
  }
  // "artist/album/title" of every row, in order.
  QStringList rows() {
    QStringList found;
    for (const QStringList& row :
         rowsOf("SELECT Artist, album, SongTitle FROM Songs ORDER BY 1, 2, 3", 3))
      found << row.join(u'/');
    return found;
  }

  FakeClock clock;
  FakePump pump{clock};
  Scanner scanner{db, pump, *this};
  QString root = home.filePath(u"music"_s);
  QStringList statuses, errors;
  const ScanRules rules;
};

TEST_F(ScannerTest, ByTagsLooksThreeLevelsDeep) {
  givenFile(" root .mp3");
  givenFile("a/one.MP3", songTag(" One ", " Artist", " Album "));
  givenFile("a/b/two.wma");
  givenFile("a/b/c/three.mp3");
  givenFile("a/b/picture.jpg");
  givenFile("a/b/\"q\".mp3", songTag("\"Q\"", "  ", ""));
  givenFile("a/b/copy.mp3", songTag("ONE", "artist", "album"));
  EXPECT_EQ(scanner.scanTagged(root, rules).files, 5);
  EXPECT_EQ(rows(), (QStringList{u"Artist/Album/One"_s, u"unknown/unknown/'Q'"_s,
                                 u"unknown/unknown/root"_s, u"unknown/unknown/two.wma"_s}));
  EXPECT_GE(pump.breaths, 5);
}

TEST_F(ScannerTest, ByFoldersTakesTheNamesOfFoldersAndFile) {
  givenFile("root.mp3");
  givenFile("Abba/loose.mp3");
  givenFile("Abba/ Arrival / 01-Money .mp3", songTag("Tag", "is", "not read"));
  givenFile("Abba/ Arrival /a.wav.mp3");
  givenFile("Abba/Deep/er/no.mp3");
  EXPECT_EQ(scanner.dofiles(root + u"/"_s, rules, u"D"_s).added, 2);
  EXPECT_EQ(rows(), (QStringList{u"Abba/Arrival/01-Money"_s, u"Abba/Arrival/a"_s}));
  const Song song = db.getArtistOrAlbumSongs(u"Abba"_s, u"Arrival"_s)[0];
  EXPECT_EQ(song.SongPath, u"D"_s + root.mid(1) + u"/Abba/ Arrival / 01-Money .mp3"_s);
  EXPECT_EQ(song.year, QString());
}

TEST_F(ScannerTest, CutsTextsAsTheirFieldsAreUnlessTagsAreReadInFull) {
  givenFile("A/B/" + QByteArray(60, 'm') + ".flac");
  QByteArray name(90, 'n');
  name[29] = ' ';
  givenFile("A/B/" + name + ".mp3");
  scanner.scanTagged(root, rules);
  scanner.dofiles(root, rules);
  const QStringList cut{u"A/B/"_s + QString::fromLatin1(name.first(70)),
                        u"unknown/unknown/"_s + QString(29, u'n')};
  EXPECT_EQ(rows(), cut);
  scanner.scanTagged(root, ScanRules{true, {}, {u"FLAC"_s}});
  EXPECT_TRUE(rows().contains(u"unknown/unknown/"_s + QString(60, u'm')));
}

TEST_F(ScannerTest, ASecondScanAddsNothingAndSeesWhatIsNew) {
  givenFiles(150);
  EXPECT_TRUE(scanner.AddOneSong(root + u"/a/7.mp3"_s, u"7.mp3"_s, rules));
  EXPECT_FALSE(scanner.AddOneSong(root + u"/a/7.mp3"_s, u"7.mp3"_s, rules));
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 149);
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 0);
  givenFile("a/7.mp3", "x" + songTag("Changed", "A", "B"));
  givenFile("a/new.mp3");
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 2);
  db.erase();
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 151) << "erasing voids what was remembered";
  {
    OpenedDatabase open(db);
    open->execute("DELETE FROM Songs WHERE SongTitle = 'new'");
  }
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 1) << "and so does deleting";
}

TEST_F(ScannerTest, AVanishedTreeEmptiesNothingAndIsReported) {
  givenFile("a/b/x.mp3");
  scanner.scanTagged(root, rules);
  QDir(root).removeRecursively();
  EXPECT_EQ(scanner.scanTagged(root, rules).failed, 1);
  ASSERT_EQ(errors.size(), 1);
  EXPECT_TRUE(errors[0].startsWith(u"Error in AddOneSong,database "_s + root))
      << errors[0].toStdString();
  EXPECT_EQ(rows().size(), 1);
}

TEST_F(ScannerTest, SurvivesStrangeTrees) {
  givenFile("a/ok.mp3");
  givenFile("a/line\nbreak's \"name\".mp3");
  givenFile("a/caf\xE9\xFF.mp3");
  const QByteArray top = fromPath(root);
  ASSERT_EQ(::symlink(top.constData(), (top + "/a/loop").constData()), 0);
  ASSERT_EQ(::symlink("nowhere", (top + "/a/dangling.mp3").constData()), 0);
  ASSERT_EQ(::mkfifo((top + "/a/pipe.mp3").constData(), 0600), 0);
  ASSERT_EQ(::mkdir((top + "/a/folder.mp3").constData(), 0700), 0);
  EXPECT_EQ(scanner.scanTagged(root, rules).failed, 0);
  EXPECT_TRUE(rows().contains(u"unknown/unknown/caféÿ"_s));
  const auto songs = db.getArtistOrAlbumSongs(u"unknown"_s, u"unknown"_s);
  for (const Song& song : songs)
    EXPECT_EQ(::access(fromPath(song.SongPath).constData(), R_OK), 0)
        << song.SongPath.toStdString();
  EXPECT_EQ(songs.size(), 3);
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 0);
}

TEST_F(ScannerTest, StopIsHeardAtTheNextFileAndKeepsWhatWasFound) {
  givenFiles(300);
  pump.duringYield = [this] {
    EXPECT_TRUE(scanner.running());
    EXPECT_TRUE(scanner.scanTagged(root, rules).stopped) << "one at a time";
    scanner.stop();
  };
  const ScanResult result = scanner.scanTagged(root, rules);
  EXPECT_TRUE(result.stopped);
  EXPECT_LE(result.files, 1);
  EXPECT_EQ(rows().size(), result.added);
  EXPECT_EQ(scanner.scanTagged(root, rules).added + result.added, 300);
}

TEST_F(ScannerTest, ListsOpenedDuringAScanDoNotDisturbIt) {
  givenFiles(300);
  int looked = 0;
  std::function<void()> look = [&] {
    db.getAllSongs();
    db.getArtists();
    db.setFavorite(u"unknown"_s, u"unknown"_s, u"7"_s, {});
    if (++looked < 50) pump.duringYield = look;
  };
  pump.duringYield = look;
  EXPECT_EQ(scanner.scanTagged(root, rules).added, 300);
  EXPECT_EQ(looked, 50);
  EXPECT_EQ(db.getAllSongs()->rowCount(), 300);
}

TEST_F(ScannerTest, AListingGivesArtists) {
  EXPECT_EQ(addArtistsFromListing(db, "x [Abba] y\nnone\n[]\r\n[open\n[Caf\xE9]\n"), 3);
  EXPECT_EQ(column(*db.getArtists(), 1), (QStringList{u""_s, u"Abba"_s, u"Café"_s}));
}

}  // namespace
}  // namespace korvane

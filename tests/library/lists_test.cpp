// The list file against the statements that it stands in for.
#include <QFile>
#include <random>

#include "library/data/statements.h"
#include "library/index/index_builder.h"
#include "tests/library/library_fixture.h"

namespace korvane {
namespace {

class ListsTest : public LibraryTest {
 protected:
  void givenRandomSongs(int count) {
    std::mt19937 random(7);
    const QStringList words{
        u"The long"_s, u"winding road to"_s, u"Ärger"_s, u"01"_s, u"é"_s, u"E"_s, u"-x"_s};
    givenMany(count, [&](int) {
      QString title;
      for (unsigned n = random() % 5; n > 0; --n) title += words[random() % 7] + u' ';
      given(words[random() % 7], words[random() % 7], title + QString::number(random() % 50));
    });
  }
  static QList<QStringList> all(const RowSource& rows, int columns) {
    QList<QStringList> found(rows.rowCount());
    for (int i = 1; i <= columns; ++i)
      for (int row = 1; row <= rows.rowCount(); ++row) found[row - 1] << rows.cell(i, row);
    return found;
  }
  QString listFile() const { return home.filePath(u"Morvanta.idx"_s); }
};

TEST_F(ListsTest, AreThoseOfTheStatements) {
  givenRandomSongs(3000);
  const auto songs = db.getAllSongs();
  EXPECT_EQ(all(*songs, 4), rowsOf(statement::kAllSongs, 4));
  EXPECT_EQ(all(*db.getArtists(), 1), rowsOf(statement::kAllArtists, 1));
  EXPECT_EQ(all(*db.getAllAlbums(), 2), rowsOf(statement::kAllAlbums, 2));
  EXPECT_EQ(songs->cell(1, 0) + songs->cell(1, 3001) + songs->cell(5, 1), QString());
}

TEST_F(ListsTest, FindIsTheFirstTitleNotBeforeTheText) {
  givenRandomSongs(2000);
  const auto songs = db.getAllSongs();
  const auto shown = column(*songs, 1);
  const auto slow = [&](const QString& text) {
    const QByteArray wanted = text.toUtf8();
    int row = 1;
    for (; row <= shown.size(); ++row)
      if (text_order::compare(shown[row - 1].toUtf8().toStdString(), wanted.toStdString()) >= 0)
        break;
    return row;
  };
  QStringList texts{u""_s,  u"e"_s, u"zz"_s, u"THE LONG WINDING ROAD TO THE LONG 2"_s,
                    u"%"_s, u"ä"_s};
  for (int i = 0; i < 2000; i += 37)
    texts << shown[i] << shown[i].left(4).toUpper() << shown[i] + u'!';
  for (const QString& text : texts) {
    EXPECT_EQ(songs->Find(text), slow(text)) << text.toStdString();
    EXPECT_EQ(songs->AbsolutePosition(), std::min(slow(text), 2000));
  }
}

TEST_F(ListsTest, ATextIsFoundInTheListsAsInTheRows) {
  givenRandomSongs(300);
  const QStringList texts{u""_s,  u"WIND"_s, u"rg"_s, u"\u00c4"_s, u"e"_s,
                          u"_"_s, u"l%ng"_s, u"zz"_s, u"\u212A"_s, u"k"_s};
  given(u"\u212Aelvin"_s, u"kelvin"_s, u"x"_s);
  const auto found = [&] {
    std::pair<QList<QStringList>, QList<QList<std::pair<QString, QString>>>> each;
    for (const QString& text : texts) {
      each.first << db.findArtists(text, 5);
      each.second << db.findAlbums(text, 5);
    }
    return each;
  };
  const auto byStatement = found();
  db.getAllSongs();
  EXPECT_EQ(found(), byStatement);
  EXPECT_EQ(byStatement.first[1].size(), 1);
  EXPECT_EQ(byStatement.second[0].size(), 5);
}

TEST_F(ListsTest, AMarkKeepsTheListFileAndANewSongVoidsIt) {
  givenRandomSongs(100);
  const auto songs = db.getAllSongs();
  const Song some = db.getArtistOrAlbumSongs(songs->cell(2, 5), songs->cell(4, 5))[0];
  db.setFavorite(some.Artist, some.album, some.SongTitle, {});
  EXPECT_EQ(db.getAllSongs(), songs);
  const auto byStatement = [&] {
    return std::dynamic_pointer_cast<const RowTable>(db.getArtists()) != nullptr;
  };
  EXPECT_FALSE(byStatement());
  EXPECT_EQ(Database(home.path()).getAllSongs()->rowCount(), 100);
  given(u"New"_s, u"New"_s, u"New"_s);
  EXPECT_TRUE(byStatement());
  EXPECT_EQ(db.getAllSongs()->rowCount(), 101);
  EXPECT_EQ(songs->rowCount(), 100) << "what is open stays as it was opened";
}

TEST_F(ListsTest, ADamagedListFileIsMadeAnewOrHarmless) {
  givenRandomSongs(700);
  const auto good = all(*db.getAllSongs(), 4);
  QFile file(listFile());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  std::mt19937 random(3);
  const auto use = [&](const QByteArray& damaged) {
    ASSERT_TRUE(writeIndex(listFile(), damaged));
    Database other(home.path());
    const auto songs = other.getAllSongs();
    for (const auto& rows :
         {std::shared_ptr<const RowSource>(songs), other.getArtists(), other.getAllAlbums()})
      for (int row = 1; row <= std::min(rows->rowCount(), 800); ++row) rows->cell(1, row);
    songs->Find(u"The long winding road"_s);
  };
  for (const qsizetype size : {0, 1, 100, int(sizeof(IndexHeader)), 5000, int(bytes.size()) - 1})
    use(bytes.first(size));
  for (int i = 0; i < 300; ++i) {
    QByteArray damaged = bytes;
    const auto range = i % 2 ? sizeof(IndexHeader) : static_cast<size_t>(bytes.size());
    damaged[static_cast<qsizetype>(random() % range)] = static_cast<char>(random());
    use(damaged);
  }
  QFile::remove(listFile());
  Database other(home.path());
  EXPECT_EQ(all(*other.getAllSongs(), 4), good);
}

}  // namespace
}  // namespace korvane

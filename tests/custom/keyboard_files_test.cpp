#include <gtest/gtest.h>

#include <QDir>

#include "custom/keyboard_files.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(KeyboardFile, PutsItsKeysIntoTheUsKeyboard) {
  QString error;
  const auto read =
      readKeyboard(u"X"_s, "\xEF\xBB\xBF# one\r\n16 q Q @\r\n\n39 ö Ö ô œ\n12 ß -\n", &error);
  ASSERT_TRUE(read) << error.toStdString();
  EXPECT_EQ(read->name, u"X"_s);
  EXPECT_EQ(read->key(39)->plain + read->key(39)->shifted, u"öÖ"_s);
  EXPECT_EQ(read->key(39)->variants, (QStringList{u"ô"_s, u"œ"_s}));
  EXPECT_EQ(read->key(12)->shifted, QString());
  EXPECT_EQ(read->key(17)->plain, u"w"_s) << "what is not told stays";
  EXPECT_EQ(read->key(39)->rect, usKeyboard().key(39)->rect);
}

TEST(KeyboardFile, IsRefusedWholeWithTheLineThatIsWrong) {
  const struct {
    QByteArray bytes;
    const char* what;
  } bad[] = {{"16 q Q\nq 16", "no code"},
             {"999 a A", "no such key"},
             {"28 a A", "a key that acts"},
             {"57 a A", "the space bar"},
             {"16", "nothing typed"},
             {"16 qq Q", "two characters"},
             {"16 q Q 1 2 3 4 5 6 7 8 9", "too many"},
             {"16 \xff Q", "not UTF-8"},
             {QByteArray(100'000, '#'), "too large"},
             {"16 \x01 Q", "a control character"}};
  for (const auto& [bytes, what] : bad) {
    QString error;
    EXPECT_FALSE(readKeyboard(u"X"_s, bytes, &error)) << what;
    EXPECT_FALSE(error.isEmpty()) << what;
  }
}

// What is shipped can be read, whole.
TEST(KeyboardFile, EveryShippedOneIsGood) {
  const QDir folder(QStringLiteral(KORVANE_STARTER) + u"/Keyboards"_s);
  const QStringList files = folder.entryList({u"*.keys"_s});
  EXPECT_GE(files.size(), 3);
  for (const QString& name : files) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QString error;
    EXPECT_TRUE(readKeyboard(name, file.readAll(), &error))
        << name.toStdString() << error.toStdString();
  }
}

}  // namespace
}  // namespace korvane

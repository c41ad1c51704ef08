#include <gtest/gtest.h>

#include <QDir>

#include "custom/keyboard/key_logic.h"
#include "custom/keyboard/keyboard_files.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(KeyboardFile, PutsItsKeysIntoTheUsKeyboard) {
  QString error;
  const auto read =
      readKeyboard(u"X"_s, "\xEF\xBB\xBF# one\r\n16 q Q @\r\n\n39 ö Ö ô œ\n12 ß -\n", &error);
  ASSERT_TRUE(read) << error.toStdString();
  EXPECT_EQ(read->key(39)->plain + read->key(39)->shifted, u"öÖ"_s);
  EXPECT_EQ(read->key(39)->variants, (QStringList{u"ô"_s, u"œ"_s}));
  EXPECT_EQ(read->key(12)->shifted, QString());
  EXPECT_EQ(read->key(17)->plain, u"w"_s) << "what the file does not name stays";
}

TEST(KeyboardFile, IsRefusedWholeWithTheLineThatIsWrong) {
  const std::pair<QByteArray, const char*> bad[] = {{"16 q Q\nq 16", "no code"},
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

QString charactersOf(const KeyboardLayout& layout, bool shifted) {
  QString all;
  for (const auto& [first, last] : {std::pair{2, 13}, {16, 27}, {30, 40}, {44, 53}})
    for (int code = first; code <= last; ++code) all += typed(*layout.key(code), shifted);
  return all;
}

// As the standard keyboards of the countries are; each types all of ASCII.
TEST(KeyboardFile, EveryShippedOneIsThatOfItsCountry) {
  const struct {
    QString name, plain, shifted;
  } countries[] = {
      {u"US"_s, u"1234567890-=qwertyuiop[]asdfghjkl;'zxcvbnm,./"_s,
       u"!@#$%^&*()-=QWERTYUIOP[]ASDFGHJKL:'ZXCVBNM<>?"_s},
      {u"GERMAN"_s, u"1234567890ß´qwertzuiopü+asdfghjklöäyxcvbnm,.-"_s,
       u"!\"§$%&/()=?`QWERTZUIOPÜ*ASDFGHJKLÖÄYXCVBNM;:_"_s},
      {u"FRENCH"_s, u"&é\"'(-è_çà)=azertyuiop^$qsdfghjklmùwxcvbn,;:!"_s,
       u"1234567890°+AZERTYUIOP¨£QSDFGHJKLM%WXCVBN?./§"_s},
      {u"SPANISH"_s, u"1234567890'¡qwertyuiop`+asdfghjklñ´zxcvbnm,.-"_s,
       u"!\"·$%&/()=?¿QWERTYUIOP^*ASDFGHJKLÑ¨ZXCVBNM;:_"_s},
  };
  const QDir folder(QStringLiteral(KORVANE_STARTER) + u"/Keyboards"_s);
  EXPECT_EQ(folder.entryList({u"*.keys"_s}).size() + 1, qsizetype(std::size(countries)));
  for (const auto& [name, plain, shifted] : countries) {
    SCOPED_TRACE(name.toStdString());
    KeyboardLayout layout = usKeyboard();
    if (name != "US"_L1) {
      QFile file(folder.filePath(name + u".keys"_s));
      ASSERT_TRUE(file.open(QIODevice::ReadOnly));
      QString error;
      const auto read = readKeyboard(name, file.readAll(), &error);
      ASSERT_TRUE(read) << error.toStdString();
      layout = *read;
    }
    EXPECT_EQ(charactersOf(layout, false), plain);
    EXPECT_EQ(charactersOf(layout, true), shifted);
    QString offered;
    for (const Key& key : layout.keys)
      offered += typed(key, false) + typed(key, true) + key.variants.join(QString());
    for (char16_t ascii = u' '; ascii < 0x7F; ++ascii)
      EXPECT_TRUE(offered.contains(ascii)) << char(ascii);
  }
}

}  // namespace
}  // namespace korvane

#include "platform/files/profile.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

struct Reading {
  const char* what;
  QByteArray file;
  QString section, key;
  std::optional<QString> value;
};

TEST(Profile, readsValues) {
  const Reading table[] = {
      {"case of names folds", "[StartUp]\r\nGRIDheight=25\r\n", u"STARTUP"_s, u"gridHeight"_s,
       u"25"_s},
      {"blanks around names", " [ A ] \n\t k \t=  v\n", u"A"_s, u"k"_s, u"v"_s},
      {"blanks after a value stay", "[A]\nmyname=Cabin  \r\n", u"A"_s, u"myname"_s, u"Cabin  "_s},
      {"quotes go", "[A]\nk=\"  v \"  \n", u"A"_s, u"k"_s, u"  v "_s},
      {"single quotes go", "[A]\nk='v'\n", u"A"_s, u"k"_s, u"v"_s},
      {"one quote stays", "[A]\nk=\"v\n", u"A"_s, u"k"_s, u"\"v"_s},
      {"a lone quote stays", "[A]\nk=\"\n", u"A"_s, u"k"_s, u"\""_s},
      {"empty is not absent", "[A]\nk=\n", u"A"_s, u"k"_s, u""_s},
      {"a value may hold = and ;", "[A]\nk=a=b ; c\n", u"A"_s, u"k"_s, u"a=b ; c"_s},
      {"first key wins", "[A]\nk=1\nK=2\n", u"A"_s, u"k"_s, u"1"_s},
      {"only the first section of a name counts", "[A]\nx=1\n[B]\n[a]\nk=2\n", u"A"_s, u"k"_s, {}},
      {"before any section", "k=1\n[A]\n", u"A"_s, u"k"_s, {}},
      {"comments", "[A]\n;k=1\n#k=2\n ; k=3\nk=4\n", u"A"_s, u"k"_s, u"4"_s},
      {"a key without =", "[A]\nk\n", u"A"_s, u"k"_s, {}},
      {"half a section line is no section", "[A\nk=1\n", u"A"_s, u"k"_s, {}},
      {"no last line break after \\r", "[A]\r\nk=v\r", u"A"_s, u"k"_s, u"v"_s},
      {"byte order mark", "\xEF\xBB\xBF[A]\nk=v\n", u"A"_s, u"k"_s, u"v"_s},
      {"UTF-8", "[A]\nk=Bj\xC3\xB6rk\n", u"A"_s, u"k"_s, u"Björk"_s},
      {"Windows-1252", "[A]\nk=Bj\xF6rk \x80\n", u"A"_s, u"k"_s, u"Björk €"_s},
      {"names that are not ASCII fold", "[\xC3\x84]\n\xC3\xA4=1\n", u"ä"_s, u"Ä"_s, u"1"_s},
      {"UTF-16", QByteArray("\xFF\xFE[\0A\0]\0\n\0k\0=\0\xE4\0\n\0", 18), u"A"_s, u"k"_s, u"ä"_s},
      {"half a UTF-16 unit", QByteArray("\xFF\xFE[\0A\0]\0\n\0k\0=\0v\0x", 17), u"A"_s, u"k"_s,
       u"vx"_s},
      {"zeros", QByteArray("[A]\n\0=\0\nk=a\0b\n", 14), u"A"_s, u"k"_s, u"a\0b"_s},
      {"empty file", "", u"A"_s, u"k"_s, {}},
      {"only a mark", "\xEF\xBB\xBF", u"A"_s, u"k"_s, {}},
  };
  for (const Reading& row : table)
    EXPECT_EQ(profileValue(row.file, row.section, row.key), row.value) << row.what;
}

struct Writing {
  const char* what;
  QByteArray file;
  QString section, key, value;
  QByteArray written;
};

TEST(Profile, writesTouchOneLine) {
  const Writing table[] = {
      {"a value", "[A]\nk=v\nx=1\n", u"a"_s, u"K"_s, u"new"_s, "[A]\nk=new\nx=1\n"},
      {"CRLF and blanks", "[A]\r\n k  =  v  \r\n;c\r\n", u"A"_s, u"k"_s, u"w"_s,
       "[A]\r\n k  =  w\r\n;c\r\n"},
      {"mixed line ends", "[A]\nk=v\r\nx=1\n", u"A"_s, u"k"_s, u"w"_s, "[A]\nk=w\r\nx=1\n"},
      {"the first of two", "[A]\nk=1\nk=2\n", u"A"_s, u"k"_s, u"3"_s, "[A]\nk=3\nk=2\n"},
      {"last line without a break", "[A]\nk=v", u"A"_s, u"k"_s, u"w"_s, "[A]\nk=w"},
      {"a new key before blank lines", "[A]\nx=1\n\n\n[B]\ny=2\n", u"A"_s, u"k"_s, u"v"_s,
       "[A]\nx=1\nk=v\n\n\n[B]\ny=2\n"},
      {"a new key in the first section of two", "[A]\n[B]\n[A]\nk=1\n", u"A"_s, u"k"_s, u"v"_s,
       "[A]\nk=v\n[B]\n[A]\nk=1\n"},
      {"a new key after an open line", "[A]\nx=1", u"A"_s, u"k"_s, u"v"_s, "[A]\nx=1\nk=v\n"},
      {"a new section", "[A]\r\nx=1\r\n", u"B"_s, u"k"_s, u"v"_s, "[A]\r\nx=1\r\n[B]\r\nk=v\r\n"},
      {"only a mark", "\xEF\xBB\xBF", u"B"_s, u"k"_s, u"v"_s, "\xEF\xBB\xBF[B]\nk=v\n"},
      {"line breaks cannot add lines", "[A]\nk=v\n", u"A"_s, u"k"_s, u"a\r\n[B]"_s,
       "[A]\nk=a  [B]\n"},
      {"leading blanks are quoted", "[A]\nk=v\n", u"A"_s, u"k"_s, u" v"_s, "[A]\nk=\" v\"\n"},
      {"quotes are quoted", "[A]\nk=v\n", u"A"_s, u"k"_s, u"'v'"_s, "[A]\nk=\"'v'\"\n"},
      {"UTF-8 into ASCII", "[A]\n", u"A"_s, u"k"_s, u"ö"_s, "[A]\nk=\xC3\xB6\n"},
      {"Windows-1252 stays", "[A]\nx=\xF6\n", u"A"_s, u"k"_s, u"ö"_s, "[A]\nx=\xF6\nk=\xF6\n"},
      {"nothing is lost in Windows-1252", "[A]\nx=\xF6\n", u"A"_s, u"k"_s, u"ж"_s,
       "[A]\nx=\xF6\nk=\xD0\xB6\n"},
      {"not mistaken for UTF-8", "[A]\nx=\xF6\n", u"A"_s, u"k"_s, u"Ã¶"_s,
       "[A]\nx=\xF6\nk=\xC3\x83\xC2\xB6\n"},
      {"junk stays", "[A\n\xFF=\n]\n", u"A"_s, u"k"_s, u"v"_s, "[A\n\xFF=\n]\n[A]\nk=v\n"},
      {"names that no file can hold", "[A]\n", u"A"_s, u"a=b"_s, u"v"_s, "[A]\n"},
      {"UTF-16", QByteArray("\xFF\xFE[\0A\0]\0\n\0", 10), u"A"_s, u"k"_s, u"ж"_s,
       QByteArray("\xFF\xFE[\0A\0]\0\n\0k\0=\0\x36\x04\n\0", 18)},
  };
  for (const Writing& row : table) {
    EXPECT_EQ(withProfileValue(row.file, row.section, row.key, row.value), row.written) << row.what;
  }
}

TEST(Profile, whatIsWrittenIsRead) {
  const QByteArray files[] = {"", "[S]\nk=1\n", "[S]\r\nx=\xF6\r\n", "\xEF\xBB\xBF[S]\nk=\"1\"",
                              QByteArray("\xFF\xFE[\0S\0]\0", 8)};
  const QString values[] = {
      u""_s,   u" "_s,          u"a "_s,           u"\""_s, u"\"\""_s, u"'\""_s, u"\"a\" "_s,
      u";c"_s, u"[S]"_s,        u"a=b"_s,          u"ö"_s,  u"Ã¶"_s,   u"ж€"_s,  u"\uFEFFm"_s,
      u"\t"_s, u"\U0001F3B5"_s, QString(150, u'x')};
  for (const QByteArray& file : files)
    for (const QString& value : values)
      EXPECT_EQ(profileValue(withProfileValue(file, u"s", u"K", value), u"S", u"k"), value)
          << file.toPercentEncoding().constData();
}

// Twice the bytes must not take four times as long, whatever they are.
TEST(Profile, isLinear) {
  for (const char* unit : {"[A]\n", "k=1\n", "\n", "[", "=", "\r", "\xFF", " "}) {
    const QByteArray file = "[Z]\n" + QByteArray(unit).repeated(4'000'000 / qstrlen(unit));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(profileValue(file, u"none", u"none"), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2)) << unit;
  }
}

}  // namespace
}  // namespace korvane

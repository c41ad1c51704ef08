#include "platform/path_text.h"

#include <gtest/gtest.h>

#include "platform/windows1252.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(PathText, everyNameComesBackByteForByte) {
  for (const QByteArray name :
       {"plain.mp3", "Bj\xC3\xB6rk", "Bj\xF6rk", "\xF0\x9F\x8E\xB5", "\xF0\x9F\x8E", "\xEE\xBC\x80",
        "\xEE\xBF\xBF", "\xED\xA0\x80", "\xC0\xAF", "\xEE\xBB\xBF", "\xE9\xEE\xBD\x9C\xE9",
        "\xEF\xBF\xBD\xFF", "\xEF\xBB\xBFmark", ""}) {
    const QString path = toPath(name);
    EXPECT_EQ(fromPath(path), name);
    EXPECT_EQ(fromPath(QString::fromUtf8(path.toUtf8())), name) << "after being stored as UTF-8";
  }
  for (int first = 1; first < 256; ++first)
    for (int second = 1; second < 256; ++second) {
      const QByteArray name{QByteArray(1, static_cast<char>(first)) + static_cast<char>(second)};
      ASSERT_EQ(fromPath(toPath(name)), name);
    }
}

TEST(PathText, separatorsOfRecordsAndPathsCannotHideInAName) {
  const QString path = toPath("a\\b\x01\x02\n");
  for (const QChar c : path) EXPECT_TRUE(c.unicode() >= 0x20 && c != u'\\');
}

TEST(PathText, foldsCaseAndEncodings) {
  const QString cafe = foldedName(u"CAFÉ"_s);
  EXPECT_EQ(foldedName(toPath("caf\xC3\xA9")), cafe);
  EXPECT_EQ(foldedName(toPath("cafe\xCC\x81")), cafe) << "decomposed";
  EXPECT_EQ(foldedName(toPath("caf\xE9")), cafe) << "Windows-1252";
  EXPECT_NE(foldedName(u"CAFE"_s), cafe);
}

TEST(Windows1252, isLossless) {
  QByteArray all;
  for (int byte = 0; byte < 256; ++byte) all.append(static_cast<char>(byte));
  EXPECT_EQ(toWindows1252(fromWindows1252(all)), all);
  EXPECT_EQ(fromWindows1252("\x80\x99\xE9"), u"€™é"_s);
  EXPECT_EQ(toWindows1252(u"\u0080ж\U0001F3B5z"_s), "???z");
  EXPECT_TRUE(isWindows1252(u"Ÿ€"_s));
  EXPECT_FALSE(isWindows1252(u"\u0080"_s));
}

}  // namespace
}  // namespace korvane

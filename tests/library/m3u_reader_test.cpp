// Playlists of other programs: what their lines mean.
#include "library/lists/m3u_reader.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

QStringList texts(const QByteArray& file) {
  M3uReader reader(file);
  QStringList found;
  while (reader.next()) found << reader.text();
  return found;
}

TEST(M3uReader, TakesTheLinesOfAnyProgram) {
  const struct {
    QByteArray file;
    QStringList lines;
  } table[] = {
      {"\r\n\n  \n", {}},
      {"/a.mp3\n/b.mp3", {u"/a.mp3"_s, u"/b.mp3"_s}},
      {"\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:1,A - B\r\n/a.mp3\r\n", {u"/a.mp3"_s}},
      {"/a.mp3\r/b.mp3\r", {u"/a.mp3"_s, u"/b.mp3"_s}},
      {"/caf\xC3\xA9.mp3\n/caf\xE9.mp3\n", {u"/caf\u00e9.mp3"_s, u"/caf\u00e9.mp3"_s}},
      {QByteArray("\xFF\xFE/\0a\0\n\0/\0b\0", 12), {u"/a"_s, u"/b"_s}},
      {QByteArray(1 << 20, 'x') + "\n/a.mp3\n", {u"/a.mp3"_s}},
      {QByteArray(1'000'000, '\n') + "/a.mp3", {u"/a.mp3"_s}},
  };
  for (const auto& [file, lines] : table)
    EXPECT_EQ(texts(file), lines) << file.first(std::min<qsizetype>(file.size(), 40)).toStdString();
}

TEST(M3uReader, ALineMeansThePathOfASong) {
  const struct {
    QByteArray line;
    QString path;
  } table[] = {
      {"/m/a.mp3", u"/m/a.mp3"_s},
      {"..\\m\\a b.mp3", u"/m/a b.mp3"_s},
      {"./x/../a.mp3", u"/lists/a.mp3"_s},
      {"\\m\\a.mp3", u"/m/a.mp3"_s},
      {"C:\\m\\a.mp3", u"C:/m/a.mp3"_s},
      {"file:///m/a%20b%C3%A9.mp3", u"/m/a b\u00e9.mp3"_s},
      {"FILE://box/m/100%25.mp3", u"/m/100%.mp3"_s},
      {"file:///C:/m/a.mp3", u"C:/m/a.mp3"_s},
      {"/m/100%25.mp3", u"/m/100%25.mp3"_s},
      {"/m/\xE9.mp3", u"/m/\u00e9.mp3"_s},
      {"/m/\xE9.mp3", u"/m/\uEFE9.mp3"_s},  // a name on disk that is no UTF-8
      {"  /m/a.mp3 ", u"/m/a.mp3"_s},
      {"http://radio/a%20b", u"http://radio/a%20b"_s},
  };
  for (const auto& [line, path] : table) {
    M3uReader reader(line);
    ASSERT_TRUE(reader.next()) << line.toStdString();
    const QStringList meanings = reader.meanings(u"/lists"_s);
    EXPECT_TRUE(meanings.contains(path))
        << line.toStdString() << ": " << meanings.join(u" | "_s).toStdString();
    EXPECT_TRUE(reader.ambiguous() || path == reader.text()) << line.toStdString();
  }
}

TEST(M3uReader, WhatIsWrittenIsReadBack) {
  for (const QString& path : {u"/m/a b\u00e9.mp3"_s, u"/m/\uEFE9.mp3"_s, u"/m/a\uEF0Ab.mp3"_s,
                              u"/m/\uEF5C.mp3"_s, u"/m/100%25 #.mp3"_s}) {
    M3uReader reader(playlistLine(path));
    ASSERT_TRUE(reader.next());
    EXPECT_TRUE(reader.meanings(u"/lists"_s).contains(path)) << path.toStdString();
  }
}

}  // namespace
}  // namespace korvane

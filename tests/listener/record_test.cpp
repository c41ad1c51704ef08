#include "listener/listener_record.h"

#include "listener/song_finder.h"
#include "tests/listener/music_world.h"

namespace korvane {
namespace {

TEST(Record, FieldsAreThereOrNot) {
  const QByteArray text = bytes("VOLUME|12,5||x|y|z");
  const ListenerRecord record(text, WireText::Windows1252);
  EXPECT_EQ(record.name().toByteArray(), "VOLUME");
  EXPECT_EQ(record.count(), ListenerRecord::kMostFields);
  EXPECT_EQ(record.number(1), 12.5);
  EXPECT_EQ(record.text(2), u""_s);
  EXPECT_EQ(record.number(2), std::nullopt);
  EXPECT_EQ(record.text(4), std::nullopt);
  EXPECT_EQ(ListenerRecord({}, WireText::Utf8).count(), 1);
}

TEST(Record, NumbersAreFiniteAndWhole) {
  for (const char* no : {"", " ", "abc", "1x", "nan", "inf", "-inf", "1e999", "1,2,3",
                         "11111111111111111111111111111111111111111111111111"})
    EXPECT_EQ(numberOf(no), std::nullopt) << no;
  EXPECT_EQ(numberOf(" 65535 "), 65535);
  EXPECT_EQ(numberOf("-1"), -1);
  EXPECT_EQ(numberText(212.349), u"212.349"_s);
  EXPECT_EQ(numberText(3), u"3"_s);
}

TEST(Record, CommandsAsBytes) {
  const struct {
    QString target, command, argument1, argument2;
    QByteArray expected;
  } cases[] = {
      {u"MUSIC"_s, u"VOLUME"_s, u"7"_s, {}, "MUSIC|VOLUME|7$"},
      {u"MUSIC"_s, {}, {}, {}, "MUSIC"},
      {u"MUSIC"_s, u"PLAY"_s, {}, u"T"_s, "MUSIC|PLAY$|T$"},
      {u"MUSIC"_s, u"PLAY"_s, u"a\u0001b"_s, QString(u'\0'), "MUSIC|PLAY|a b| $"},
      {u"MUSIC"_s, u"PLAY"_s, u"Bj\u00f6rk \u2013 \u20ac"_s, u"\u4e2d"_s,
       "MUSIC|PLAY|Bj\xf6rk \x96 \x80|?$"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(
        encode(commandRecord(c.target, c.command, c.argument1, c.argument2), WireText::Windows1252),
        bytes(c.expected));
  EXPECT_EQ(wireTextOf(u"NO"), WireText::Windows1252);
}

TEST(Record, MinutesAndSeconds) {
  const std::pair<double, QString> cases[] = {
      {0, u"0:00"_s},     {9.99, u"0:09"_s}, {60, u"1:00"_s},           {-1, u"0:00"_s},
      {3725, u"62:05"_s}, {-300, u"0:00"_s}, {1e300, u"16666666:40"_s},
  };
  for (const auto& [seconds, text] : cases) EXPECT_EQ(minutesAndSeconds(seconds), text);
}

TEST(SongFinder, TriesTheOtherVolumes) {
  FakeFileSystem files;
  files.mounted = {u"/"_s, u"/media/b"_s, u"/mnt/net"_s};
  files.put(u"/media/b/Music/One.mp3"_s, "x");
  files.put(u"/mnt/net/Music/Two.mp3"_s, "x");
  files.put(u"/song.mp3"_s, "x");
  const std::pair<QString, std::optional<QString>> cases[] = {
      {u"/media/b/Music/One.mp3"_s, u"/media/b/Music/One.mp3"_s},
      {u"/media/a/Music/One.mp3"_s, u"/media/b/Music/One.mp3"_s},
      {u"/run/media/me/a/Music/One.mp3"_s, u"/media/b/Music/One.mp3"_s},
      {u"D:\\Music\\Two.mp3"_s, u"/mnt/net/Music/Two.mp3"_s},
      {u"/media/a/Music/Three.mp3"_s, std::nullopt},
      {{}, std::nullopt},
      {u"relative.mp3"_s, std::nullopt},
  };
  for (const auto& [path, found] : cases)
    EXPECT_EQ(findSong(files, path), found) << path.toStdString();
}

}  // namespace
}  // namespace korvane

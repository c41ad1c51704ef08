#include "library/tags/audio_tags.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <stdexcept>

#include "library/tags/any_cover.h"
#include "library/tags/convert_base.h"
#include "library/tags/cover_art.h"
#include "library/tags/full_tags.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

QByteArray padded(QByteArray text, qsizetype size, char with = '\0') {
  return text.append(size - text.size(), with);
}

QByteArray id3v1(const QByteArray& title, const QByteArray& artist = {}, char with = '\0') {
  return "TAG" + padded(title, 30, with) + padded(artist, 30, with) + padded("Album", 30, with) +
         padded("1999", 4) + padded("said", 30, with) + '\x11';
}

TEST(ReadID3v1, TakesTheFieldsAsTheyStand) {
  struct {
    QByteArray title;
    char with;
    QString read;
  } const cases[] = {
      {"Song", ' ', u"Song"_s},
      {QByteArray("So\0ng", 5), '\0', u"Song"_s},
      {"   ", ' ', QString()},
      {"Caf\xE9 \x80", '\0', u"Café €"_s},
      {QByteArray(30, 'y'), '\0', QString(30, u'y')},
  };
  for (const auto& [title, with, read] : cases) {
    const auto tags = tagsOfID3v1(id3v1(title, "Art\"ist", with));
    ASSERT_TRUE(tags);
    EXPECT_EQ(tags->Title, read);
    EXPECT_EQ(tags->Artist, u"Art\"ist"_s);
    EXPECT_EQ(tags->Year, u"1999"_s);
    EXPECT_EQ(tags->Comment, u"said"_s);
  }
  EXPECT_EQ(tagsOfID3v1(id3v1("\xCF\xF0\xE8"), CodePage(u"windows-1251"_s))->Title, u"При"_s);
  EXPECT_EQ(tagsOfID3v1(id3v1("\xC3\xA9"), CodePage(u"UTF-8"_s))->Title, u"é"_s);
  EXPECT_EQ(tagsOfID3v1(id3v1("\xE9"), CodePage(u"no such page"_s))->Title, u"é"_s);
}

TEST(ReadID3v1, ReadsOnlyAWholeTagAtTheEndOfAFile) {
  const TemporaryHome home;
  const auto of = [&](const QByteArray& bytes) { return readID3v1(home.put(u"a.mp3"_s, bytes)); };
  EXPECT_TRUE(of(QByteArray(1000, 'x') + id3v1("t")));
  EXPECT_TRUE(of(id3v1("t")));
  EXPECT_FALSE(of(id3v1("t").first(127)));
  EXPECT_FALSE(of(id3v1("t") + "x"));
  EXPECT_FALSE(of({}));
  EXPECT_FALSE(readID3v1(QString()));
  EXPECT_THROW(readID3v1(home / u"none"_s), std::runtime_error);
}

TEST(ConvertBase, ConvertsAndRefuses) {
  struct {
    const char16_t* number;
    int from, to;
    const char16_t* result;
  } const cases[] = {
      {u"5", 10, 2, u"00000101"}, {u" 255 ", 10, 16, u"FF"}, {u"100000000", 2, 10, u"256"},
      {u"Z", 36, 10, u"35"},      {u"", 10, 2, u"Error"},    {u"f", 16, 10, u"Error"},
      {u"1", 1, 10, u"Error"},    {u"1", 10, 37, u"Error"},  {u"ZZZZZZZZZZZZZZ", 36, 10, u"Error"}};
  for (const auto& [number, from, to, result] : cases)
    EXPECT_EQ(convertBase(QString::fromUtf16(number), from, to), QString::fromUtf16(result));
}

TEST(Genres, KeepTheirNumbers) {
  EXPECT_STREQ(genreNames()[0], "Blues");
  EXPECT_STREQ(genreNames()[79], "Hard Rock");
  EXPECT_STREQ(genreNames()[147], "Synth Pop");
}

QByteArray size4(quint32 size) {
  QByteArray bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(size >> shift);
  return bytes;
}
QByteArray frame(const QByteArray& id, const QByteArray& data) {
  return id + size4(static_cast<quint32>(data.size())) + QByteArray(2, '\0') + data;
}
QByteArray tag(const QByteArray& frames) {
  return "ID3" + QByteArray(7, '\x03') + frames;
}
QByteArray apic(const QByteArray& mime, const QByteArray& description, const QByteArray& image) {
  return frame("APIC", '\0' + mime + '\0' + '\x03' + description + '\0' + image);
}

TEST(CoverArt, FindsTheImageOfTheFirstPicture) {
  const QByteArray jpeg = "\xFF\xD8\xFF\xE0 and so on", png = "\x89PNG\r\n\x1A\n and so on";
  const QByteArray title = frame("TIT2", QByteArray(300, 'x'));
  struct {
    const char* what;
    QByteArray file;
    std::optional<QByteArray> image;
  } const cases[] = {
      {"described, after another", tag(title + apic("image/jpeg", "cover", jpeg)), jpeg},
      {"of another kind", tag(apic("image/png", "", png) + apic("image/jpeg", "", jpeg)), png},
      {"a short mime: the start is lost", tag(apic("PNG", "", png)), png.sliced(3)},
      {"no tag", "xID3" + apic("image/jpeg", "", jpeg), {}},
      {"padding first", tag(title + QByteArray(64, '\0') + apic("image/jpeg", "", jpeg)), {}},
      {"no picture", tag(title), {}},
      {"cut short", tag(apic("image/jpeg", "", jpeg)).chopped(8), jpeg.chopped(8)},
      {"too large a size", tag("APIC\xFF\xFF\xFF\xFF__0123456789" + jpeg), jpeg},
      {"a frame beyond the end", tag("TIT2\x7F\xFF\xFF\xFF__" + apic("image/jpeg", "", jpeg)), {}},
      {"an empty frame", tag(frame("APIC", QByteArray(40, '\0'))), {}},
      {"only a header", "ID3", {}},
  };
  for (const auto& [what, bytes, image] : cases) {
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    auto found = attachedPicture(file);
    if (found) found = imageWithin(*found);
    EXPECT_EQ(found, image) << what;
  }
  EXPECT_EQ(imageWithin("no image here"), "no image here");
  EXPECT_EQ(imageWithin("BM is no bitmap RIFFxxxxWEBPyy"), "RIFFxxxxWEBPyy");
}

// An atom of an MP4 file (ISO/IEC 14496-12), a metadata block of a FLAC file (xiph.org).
QByteArray atom(const QByteArray& name, const QByteArray& data) {
  return size4(static_cast<quint32>(8 + data.size())) + name + data;
}
QByteArray block(char kind, const QByteArray& data) {
  return kind + size4(static_cast<quint32>(data.size())).sliced(1) + data;
}

TEST(AnyCover, IsFoundInEachKindOfFile) {
  const TemporaryHome home;
  const QByteArray image = "\xFF\xD8\xFF\xE0" + QByteArray(300, 'j');
  const QByteArray zero = size4(0), size = size4(304);
  const QByteArray picture = size4(3) + size4(9) + "image/jpg" + zero.repeated(5) + size + image;
  const QByteArray apicData = QByteArray("\0image/jpeg\0\3\0", 14) + image;
  // Sizes of ID3v2.4 have seven bits a byte.
  const QByteArray v24 = QByteArray("TIT2\0\0\2\x48\0\0", 10) + QByteArray(328, '\0') +
                         QByteArray("APIC\0\0\2\x3E\0\0", 10) + apicData;
  struct {
    const char* name;
    QByteArray bytes;
  } const cases[] = {
      {"v24.mp3", QByteArray("ID3\4\0\0\0\0\5\x1A", 10) + v24 + QByteArray(500, '\0')},
      {"a.flac", "fLaC" + block(0, QByteArray(34, '\0')) + block('\x86', picture)},
      {"a.m4a",
       atom("ftyp", "M4A \0\0\0\0") +
           atom("moov",
                atom("udta",
                     atom("meta", zero + atom("ilst", atom("covr", atom("data", size4(13) + zero +
                                                                                    image))))))},
  };
  for (const auto& [name, bytes] : cases) {
    const QString file = QString::fromLatin1(name);
    EXPECT_EQ(anyCoverArtBytes(home.put(file, bytes)), image) << name;
    const QString half = home.put(file, bytes.first(bytes.size() / 2));
    EXPECT_TRUE(anyCoverArtBytes(half).value_or("\xFF\xD8\xFF").startsWith("\xFF\xD8\xFF")) << name;
  }
  const auto ogg = anyCoverArtBytes(
      QStringLiteral(STARTER "/Music/The Paper Orchard/Windfall/03 Cider Morning.ogg"));
  EXPECT_TRUE(ogg && ogg->startsWith("\xFF\xD8\xFF") && ogg->endsWith("\xFF\xD9"));
  EXPECT_FALSE(anyCoverArtBytes(home / u"none.flac"_s));
}

TEST(FullTags, ReadsWhatID3v1DoesNotHold) {
  const TemporaryHome home;
  const QByteArray frames = frame("TIT2", QByteArray("\0\xCF\xF0\xE8", 4)) +
                            frame("TPE1", QByteArray("\1\xFF\xFE\x16\x04", 5)) +
                            frame("TRCK", QByteArray("\0", 1) + "7/12") +
                            frame("TYER", QByteArray("\0", 1) + "2001");
  const QString path = home.put(u"a.mp3"_s, "ID3\x03" + QByteArray(2, '\0') +
                                                size4(static_cast<quint32>(frames.size())) +
                                                frames + QByteArray(2000, '\0'));
  setFullTagsPage(CodePage(u"windows-1251"_s));
  const auto tags = readFullTags(path);
  setFullTagsPage(CodePage());
  ASSERT_TRUE(tags && !readFullTags(home / u"none.mp3"_s));
  EXPECT_EQ(tags->Title, u"При"_s);
  EXPECT_EQ(tags->Artist, u"Ж"_s);
  EXPECT_EQ(tags->track, 7);
  EXPECT_EQ(tags->Year, u"2001"_s);
}

}  // namespace
}  // namespace korvane

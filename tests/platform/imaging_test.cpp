// Picture files of every kind, whole and broken, looked at and loaded.
#include <gtest/gtest.h>
#include <libheif/heif.h>
#include <sys/stat.h>
#include <turbojpeg.h>
#include <unistd.h>

#include "platform/imaging/picture_codecs.h"
#include "platform/path_text.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"
#include "tests/platform/test_pictures.h"

namespace korvane {
namespace {

class Pictures : public testing::Test {
 protected:
  TemporaryHome home;
  PictureCodecs imaging;

  Imaging::Loaded load(const QByteArray& bytes, const Imaging::Reading& reading = {}) const {
    return imaging.load(home.put(u"picture"_s, bytes), reading);
  }
  Imaging::About about(const QByteArray& bytes, bool upright = true) const {
    return imaging.about(home.put(u"picture"_s, bytes), upright);
  }
};

TEST_F(Pictures, everyOrientationStandsUpright) {
  const QImage scene = corners(96, 64);
  for (int orientation = 1; orientation <= 8; ++orientation) {
    SCOPED_TRACE(orientation);
    const QImage stored = storedAs(scene, orientation);
    const MadeExif exif{
        .orientation = orientation, .big = orientation % 2 == 0, .date = "2024:02:29 23:59:58"};
    const QByteArray file = withExif(fileOf(stored, "jpg"), exif);
    const auto whole = load(file);
    EXPECT_EQ(cornersOf(whole.pixels.get()), "0123");
    EXPECT_EQ(std::pair(whole.width, whole.height), std::pair(96, 64));
    const auto small = load(file, {.width = 30, .height = 40});
    EXPECT_EQ(cornersOf(small.pixels.get()), "0123");
    EXPECT_EQ(std::pair(small.pixels->width, small.pixels->height), std::pair(30, 20));
    const auto raw = load(file, {.upright = false});
    EXPECT_EQ(std::pair(raw.width, raw.height), std::pair(stored.width(), stored.height()));
    const auto about = this->about(file);
    EXPECT_EQ(std::pair(about.width, about.height), std::pair(96, 64));
    EXPECT_EQ(about.orientation, orientation);
    EXPECT_EQ(about.taken, QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58)));
    EXPECT_EQ(this->about(file, false).width, stored.width());
  }
}

TEST_F(Pictures, exifThatLiesEndsAndSaysNothing) {
  const QByteArray jpeg = fileOf(corners(16, 16), "jpg");
  const MadeExif table[] = {
      {.orientation = 6, .exifTable = 8},                 // a table that is itself
      {.orientation = 6, .previewTable = 8},              // the next one is the first
      {.orientation = 6, .exifTable = 0xfffffff0},        // beyond the end
      {.orientation = 6, .entries = 0xffff},              // more than there is room for
      {.orientation = 0, .date = "0000:00:00 00:00:00"},  // none of the eight, no date
      {.orientation = 9, .date = "2026:13:41 25:61:61"},
  };
  for (const MadeExif& exif : table) {
    const auto about = this->about(withExif(jpeg, exif));
    EXPECT_EQ(about.error, QString());
    EXPECT_EQ(about.orientation, exif.orientation == 6 ? 6 : 1);
    EXPECT_FALSE(about.taken.isValid());
  }
  const QByteArray exif = MadeExif{.orientation = 6, .date = "2026:11:24 15:30:00"}.bytes();
  for (qsizetype length = 0; length < exif.size(); ++length) {
    const auto cut = withSegment(jpeg, 0xE1, QByteArray("Exif\0\0", 6) + exif.first(length));
    const auto about = this->about(cut);
    EXPECT_EQ(about.orientation, length < 22 ? 1 : 6) << length;
    EXPECT_EQ(about.taken.isValid(), length >= 56 + 19) << length;
  }
}

TEST_F(Pictures, aFileCutAnywhereIsShownInItsSizeOrRefusedInWords) {
  const QImage scene = corners(40, 30);
  for (const char* kind : {"jpg", "png", "bmp", "tiff", "webp", "ico"}) {
    const QByteArray file = fileOf(scene, kind);
    ASSERT_EQ(load(file).error, QString()) << kind;
    ASSERT_EQ(cornersOf(load(file).pixels.get()), "0123") << kind;
    const qsizetype step = std::max<qsizetype>(1, file.size() / 60);
    for (qsizetype length = 0; length < file.size(); length += step) {
      const QString path = home.put(u"cut"_s, file.first(length));
      const auto loaded = imaging.load(path, {.width = 20, .height = 20});
      ASSERT_EQ(loaded.pixels == nullptr, !loaded.error.isEmpty()) << kind << length;
      if (loaded.pixels) {
        ASSERT_EQ(std::pair(loaded.pixels->width, loaded.width), std::pair(20, 40))
            << kind << length;
      }
      const auto about = imaging.about(path, true);
      ASSERT_TRUE(about.width == 40 || !about.error.isEmpty()) << kind << length;
      ASSERT_TRUE(length > 0 || about.error == "It is empty."_L1);
    }
  }
}

// The head of a PNG file: nothing of it but the size.
QByteArray pngHead(quint32 width, quint32 height) {
  QByteArray png = fileOf(QImage(1, 1, QImage::Format_RGB32), "png");
  qToBigEndian(width, png.data() + 16);
  qToBigEndian(height, png.data() + 20);
  uint crc = 0xffffffff;
  for (qsizetype i = 12; i < 29; ++i) {
    crc ^= static_cast<uchar>(png[i]);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xedb88320 : 0);
  }
  qToBigEndian(~crc, png.data() + 29);
  return png;
}

TEST_F(Pictures, whatWouldTakeTooMuchMemoryIsRefusedBeforeItIsDecoded) {
  QByteArray jpeg = fileOf(corners(16, 16), "jpg");
  const qsizetype frame = jpeg.indexOf(QByteArray("\xFF\xC0", 2));
  qToBigEndian(quint16{30000}, jpeg.data() + frame + 5);
  qToBigEndian(quint16{30000}, jpeg.data() + frame + 7);
  const QByteArray gif = QByteArray("GIF89a\xff\xff\xff\xff\xf0\0\0\0\0\0\xff\xff\xff,", 20) +
                         QByteArray("\0\0\0\0\xff\xff\xff\xff\0\x02\x02\x4c\x01\0;", 15);
  for (const QByteArray& file : {jpeg, pngHead(30000, 30000), gif}) {
    for (const QString& error :
         {load(file, {.width = 60, .height = 60}).error, load(file).error, about(file).error}) {
      EXPECT_TRUE(error.contains("more than the 67 million"_L1)) << error.toStdString();
    }
    QString error;
    for (const bool keepKind : {true, false}) {
      EXPECT_EQ(imaging.turned(home / u"picture"_s, 90, keepKind, true, &error), QByteArray());
      EXPECT_TRUE(error.contains("more than the 67 million"_L1)) << error.toStdString();
    }
  }
  EXPECT_EQ(load(fileOf(corners(1, 1), "png"), {.width = 60, .height = 60}).pixels->width, 1);
  EXPECT_EQ(load(fileOf(corners(1, 1), "jpg")).pixels->height, 1);
}

TEST_F(Pictures, fitsCoversAndEnlarges) {
  const struct {
    int width, height, boxWidth, boxHeight, fittedWidth, fittedHeight;
  } fits[] = {{4000, 3000, 60, 60, 60, 45}, {3000, 4000, 60, 60, 45, 60}, {60, 60, 60, 60, 60, 60},
              {10, 5, 60, 60, 60, 30},      {60000, 1, 60, 60, 60, 1},    {1, 60000, 60, 60, 1, 60},
              {0, 0, 60, 60, 1, 1},         {3, 2, 100, 100, 100, 67}};
  for (const auto& row : fits) {
    const FittedSize size = fittedSize(row.width, row.height, row.boxWidth, row.boxHeight);
    EXPECT_EQ(std::pair(size.width, size.height), std::pair(row.fittedWidth, row.fittedHeight));
  }
  const struct {
    Imaging::Reading reading;
    int width, height;
  } table[] = {{{.width = 20, .height = 20}, 20, 10},
               {{.width = 20, .height = 20, .cover = true}, 40, 20},
               {{.width = 200, .height = 200}, 80, 40},
               {{.width = 200, .height = 200, .cover = true}, 80, 40},
               {{.width = 200, .height = 200, .enlarge = true}, 200, 100},
               {{.width = 200, .height = 200, .cover = true, .enlarge = true}, 400, 200}};
  for (const char* kind : {"jpg", "png"})
    for (const auto& row : table) {
      const auto loaded = load(fileOf(corners(80, 40), kind), row.reading);
      EXPECT_EQ(std::pair(loaded.pixels->width, loaded.pixels->height),
                std::pair(row.width, row.height));
      EXPECT_EQ(cornersOf(loaded.pixels.get()), "0123");
      EXPECT_EQ(std::pair(loaded.width, loaded.height), std::pair(80, 40));
    }
}

// A JPEG of four inks, each stored as its absence, of one colour.
QByteArray inkJpeg(uchar cyan, uchar magenta, uchar yellow, uchar black) {
  std::vector<uchar> inks;
  for (int i = 0; i < 32 * 32; ++i)
    for (const uchar ink : {cyan, magenta, yellow, black}) inks.push_back(ink);
  const tjhandle turbo = tjInitCompress();
  uchar* data = nullptr;
  unsigned long size = 0;
  tjCompress2(turbo, inks.data(), 32, 0, 32, TJPF_CMYK, &data, &size, TJSAMP_444, 95, 0);
  const QByteArray file(reinterpret_cast<char*>(data), static_cast<qsizetype>(size));
  tjFree(data);
  tjDestroy(turbo);
  return file;
}

TEST_F(Pictures, unusualPixelsAreShown) {
  const auto inks = load(inkJpeg(255, 0, 128, 255));
  EXPECT_NEAR(qRed(pixelAt(*inks.pixels, 9, 9)), 255, 4);
  EXPECT_NEAR(qGreen(pixelAt(*inks.pixels, 9, 9)), 0, 4);
  EXPECT_NEAR(qBlue(pixelAt(*inks.pixels, 9, 9)), 128, 4);
  const QImage scene = corners(40, 30);
  for (const auto format : {QImage::Format_RGBA64, QImage::Format_Indexed8, QImage::Format_ARGB32})
    EXPECT_EQ(cornersOf(load(fileOf(scene.convertToFormat(format), "png")).pixels.get()), "0123");
  EXPECT_EQ(cornersOf(load(fileOf(scene, "jpg")).pixels.get()), "0123");
  const auto grey = load(fileOf(scene.convertToFormat(QImage::Format_Grayscale8), "jpg"));
  EXPECT_EQ(qRed(pixelAt(*grey.pixels, 1, 1)), qBlue(pixelAt(*grey.pixels, 1, 1)));
  QImage half(8, 8, QImage::Format_ARGB32);
  half.fill(qRgba(200, 100, 0, 128));
  const auto clear = load(fileOf(half, "png"));
  EXPECT_FALSE(clear.pixels->opaque);
  EXPECT_EQ(pixelAt(*clear.pixels, 3, 3), qPremultiply(qRgba(200, 100, 0, 128)));
  const QImage onWhite = QImage::fromData(imaging.jpeg(*clear.pixels, 95));
  EXPECT_NEAR(qBlue(onWhite.pixel(3, 3)), 127, 4);
  EXPECT_NEAR(qRed(onWhite.pixel(3, 3)), 227, 4);
}

TEST_F(Pictures, theBytesSayTheKindAndTheNameWhetherItIsTried) {
  const QByteArray icon = fileOf(corners(32, 32), "ico");
  QByteArray cursor("RIFF\0\0\0\0ACONanih\x04\0\0\0\0\0\0\0LIST\0\0\0\0framicon", 40);
  const auto length = qToLittleEndian(static_cast<quint32>(icon.size()));
  cursor += QByteArray(reinterpret_cast<const char*>(&length), 4) + icon;
  EXPECT_EQ(cornersOf(load(cursor).pixels.get()), "0123");
  EXPECT_EQ(about(cursor).width, 32);
  for (const QByteArray& other :
       {QByteArray("no picture"),
        QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' "
                   "height='9'/>"),
        cursor.first(40), QByteArray("\xFF\xD8\xFF"), QByteArray("RIFF\0\0\0\0ACON", 12)}) {
    EXPECT_FALSE(load(other).error.isEmpty()) << other.toStdString();
    EXPECT_FALSE(about(other).error.isEmpty()) << other.toStdString();
  }
  const char* read[] = {"a.jpg", "a.JPEG", "b.png", "c.webp", "d.Gif", "e.tif", "f.ani", "g.cur"};
  for (const char* name : read) EXPECT_TRUE(imaging.mayRead(QString::fromLatin1(name))) << name;
  for (const char* name : {"a.txt", "jpg", "a.jpg.part", "", "a.svg", "Thumbs.db"})
    EXPECT_FALSE(imaging.mayRead(QString::fromLatin1(name))) << name;
}

TEST_F(Pictures, namesAreAnyBytesAndWhatIsNoFileIsRefused) {
  const QString odd = home.path() + toPath("/\xff\xfe\\ \n.jpg");
  const QString plain = home.put(u"plain"_s, fileOf(corners(40, 30), "jpg"));
  ASSERT_EQ(std::rename(fromPath(plain).constData(), fromPath(odd).constData()), 0);
  EXPECT_EQ(cornersOf(imaging.load(odd, {}).pixels.get()), "0123");
  EXPECT_EQ(imaging.about(odd, true).width, 40);
  ::unlink(fromPath(odd).constData());
  const QString pipe = home / u"pipe"_s;
  ASSERT_EQ(::mkfifo(fromPath(pipe).constData(), 0600), 0);
  for (const QString& path : {home.path(), home / u"missing.jpg"_s, pipe, QString()}) {
    QString error;
    EXPECT_FALSE(imaging.load(path, {}).error.isEmpty()) << path.toStdString();
    EXPECT_FALSE(imaging.about(path, true).error.isEmpty()) << path.toStdString();
    EXPECT_TRUE(imaging.turned(path, 90, true, true, &error).isEmpty() && !error.isEmpty());
  }
}

// A file of libheif's own writer. Empty when there is no such encoder here.
QByteArray heifFile(const QImage& image, heif_compression_format kind) {
  heif_context* context = heif_context_alloc();
  heif_encoder* encoder = nullptr;
  heif_image* pixels = nullptr;
  QByteArray file;
  if (heif_context_get_encoder_for_format(context, kind, &encoder).code == heif_error_Ok) {
    heif_encoder_set_lossy_quality(encoder, 90);
    heif_image_create(image.width(), image.height(), heif_colorspace_RGB,
                      heif_chroma_interleaved_RGB, &pixels);
    heif_image_add_plane(pixels, heif_channel_interleaved, image.width(), image.height(), 8);
    int stride = 0;
    uint8_t* plane = heif_image_get_plane(pixels, heif_channel_interleaved, &stride);
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    for (int y = 0; y < image.height(); ++y)
      std::copy_n(rgb.constScanLine(y), image.width() * 3, plane + y * stride);
    heif_context_encode_image(context, pixels, encoder, nullptr, nullptr);
    heif_writer writer{1, [](heif_context*, const void* data, size_t size, void* to) {
                         static_cast<QByteArray*>(to)->append(static_cast<const char*>(data),
                                                              static_cast<qsizetype>(size));
                         return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    heif_context_write(context, &writer, &file);
    heif_image_release(pixels);
    heif_encoder_release(encoder);
  }
  heif_context_free(context);
  return file;
}

TEST_F(Pictures, heicAndAvifAreReadWhereTheirDecoderIs) {
  for (const auto kind : {heif_compression_HEVC, heif_compression_AV1}) {
    const QByteArray file = heifFile(corners(128, 96), kind);
    const QString name = kind == heif_compression_AV1 ? u"a.avif"_s : u"a.HEIC"_s;
    if (file.isEmpty() || !imaging.mayRead(name)) continue;
    const auto loaded = load(file, {.width = 64, .height = 64});
    EXPECT_EQ(cornersOf(loaded.pixels.get()), "0123") << loaded.error.toStdString();
    EXPECT_EQ(loaded.pixels->height, 48);
    EXPECT_EQ(about(file).width, 128);
    for (qsizetype size = 0; size < file.size(); size += file.size() / 40 + 1) {
      const auto cut = load(file.first(size));
      ASSERT_EQ(cut.pixels == nullptr, !cut.error.isEmpty()) << size;
    }
  }
}

}  // namespace
}  // namespace korvane

// Pictures turned, in files and in memory.
#include <gtest/gtest.h>

#include "platform/imaging/gif_writer.h"
#include "platform/imaging/picture_codecs.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"
#include "tests/platform/test_pictures.h"

namespace korvane {
namespace {

class Turning : public testing::Test {
 protected:
  TemporaryHome home;
  PictureCodecs imaging;
  QString error;

  QByteArray turned(const QByteArray& bytes, int degrees, bool keepKind = true,
                    bool upright = true) {
    return imaging.turned(home.put(u"picture"_s, bytes), degrees, keepKind, upright, &error);
  }
  Imaging::Loaded load(const QByteArray& bytes) const {
    return imaging.load(home.put(u"picture"_s, bytes), {});
  }
  int orientation(const QByteArray& bytes) const {
    return imaging.about(home.put(u"picture"_s, bytes), true).orientation;
  }
};

// What stands in the corners of "0123" turned clockwise.
std::string cornersTurned(int degrees) {
  return degrees == 90 ? "2031" : degrees == 180 ? "3210" : degrees == 270 ? "1302" : "0123";
}

TEST_F(Turning, aJpegIsTurnedAsItIsSeenAndKeepsWhatItSays) {
  const QByteArray profile = QByteArray("ICC_PROFILE\0\x01\x01", 14) + "a profile";
  // The second size is no whole number of blocks; the third one is in both ways but one.
  for (const QSize size : {QSize(96, 64), QSize(91, 61), QSize(96, 61)}) {
    for (const int degrees : {90, 180, 270})
      for (const bool keepKind : {true, false})
        for (const bool upright : {true, false}) {
          SCOPED_TRACE(testing::Message() << size.width() << ' ' << degrees << ' ' << upright);
          const MadeExif exif{.orientation = 6, .date = "2024:02:29 23:59:58"};
          QByteArray file =
              withSegment(fileOf(corners(size.width(), size.height()), "jpg"), 0xE2, profile);
          file = withExif(withSegment(file, 0xFE, "a remark"), exif);
          const QByteArray made = turned(file, degrees, keepKind, upright);
          ASSERT_EQ(error, QString());
          // Orientation 6 is a quarter to the right.
          const int total = (degrees + (upright ? 90 : 0)) % 360;
          const QImage raw = QImage::fromData(made);
          EXPECT_EQ(raw.size(), total % 180 ? size.transposed() : size);
          const Pixels pixels{raw.width(),     raw.height(), raw.bytesPerLine(),
                              raw.constBits(), true,         {}};
          EXPECT_EQ(cornersOf(&pixels), cornersTurned(total));
          EXPECT_EQ(orientation(made), upright ? 1 : 6);
          EXPECT_EQ(imaging.about(home / u"picture"_s, true).taken.date(), QDate(2024, 2, 29));
          EXPECT_TRUE(made.contains(profile) && made.contains("a remark"));
          EXPECT_EQ(made.count("Exif"), 1);
          EXPECT_EQ(made.mid(made.indexOf("Exif") + 6 + 34, 4), QByteArray(4, '\0')) << "a preview";
        }
  }
}

TEST_F(Turning, fourTurnsOfAJpegGiveItsPixelsBack) {
  QImage noise(128, 96, QImage::Format_RGB32);
  uint state = 1;
  for (int y = 0; y < noise.height(); ++y)
    for (int x = 0; x < noise.width(); ++x)
      noise.setPixel(x, y, (state = state * 1664525 + 1013904223) >> 8);
  for (const QImage& image : {noise, noise.convertToFormat(QImage::Format_Grayscale8)}) {
    const QByteArray first = fileOf(image, "jpg");
    QByteArray file = first;
    for (int i = 0; i < 4; ++i) file = turned(file, 90);
    EXPECT_EQ(QImage::fromData(file), QImage::fromData(first));
    EXPECT_EQ(turned(turned(first, 270), 90), file);
  }
}

TEST_F(Turning, aDamagedJpegIsLeftAsItIs) {
  for (const QSize size : {QSize(96, 64), QSize(91, 61)}) {
    const QByteArray file = fileOf(corners(size.width(), size.height()), "jpg");
    for (qsizetype length = 0; length < file.size() - 2; length += 7) {
      EXPECT_EQ(turned(file.first(length), 90), QByteArray()) << length;
      EXPECT_FALSE(error.isEmpty());
    }
  }
}

TEST_F(Turning, aPictureStaysOfItsKindOrBecomesJpeg) {
  QImage scene = corners(40, 30);
  const struct {
    QLatin1StringView kind;
    QByteArray file;
  } table[] = {{"bmp"_L1, fileOf(scene, "bmp")},
               {"png"_L1, fileOf(scene.convertToFormat(QImage::Format_RGBA64), "png")},
               {"tiff"_L1, fileOf(scene, "tiff")},
               {"webp"_L1, fileOf(scene, "webp")},
               {"gif"_L1, gifOf(scene)},
               {"ppm"_L1, fileOf(scene, "ppm")}};
  for (const auto& [kind, file] : table)
    for (const int degrees : {90, 180, 270}) {
      SCOPED_TRACE(testing::Message() << kind.data() << degrees);
      const QByteArray kept = turned(file, degrees);
      ASSERT_EQ(error, QString());
      EXPECT_EQ(cornersOf(load(kept).pixels.get()), cornersTurned(degrees));
      QBuffer device;
      device.setData(kept);
      device.open(QIODevice::ReadOnly);
      QImageReader reader(&device);
      EXPECT_EQ(reader.format(), kind.data());
      EXPECT_EQ(reader.read().depth() == 64, kind == "png"_L1);
      const QByteArray jpeg = turned(file, degrees, false);
      EXPECT_TRUE(jpeg.startsWith("\xFF\xD8\xFF"));
      EXPECT_EQ(cornersOf(load(jpeg).pixels.get()), cornersTurned(degrees));
    }
}

TEST_F(Turning, aGifKeepsItsColoursAndItsClearPixels) {
  // Long runs, no runs, one pixel, all 256 colours and more of them than there may be.
  for (const QSize size : {QSize(1, 1), QSize(16, 16), QSize(300, 200)}) {
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
      for (int x = 0; x < size.width(); ++x) {
        const int value = (x * 7 + y * y * 31 + x * y) & 0xff;
        image.setPixel(x, y, value < 8 ? 0 : qRgb(value, 255 - value, value / 2));
      }
    EXPECT_EQ(QImage::fromData(gifOf(image), "gif").convertToFormat(QImage::Format_ARGB32), image);
  }
  QImage many(256, 256, QImage::Format_RGB32);
  for (int y = 0; y < 256; ++y)
    for (int x = 0; x < 256; ++x) many.setPixel(x, y, qRgb(x, y, 128));
  EXPECT_EQ(QImage::fromData(gifOf(many)).size(), many.size());
}

TEST_F(Turning, anAnimationShowsItsFirstPictureAndIsNotTurned) {
  const QByteArray first = gifOf(corners(40, 30));
  constexpr qsizetype kHead = 13 + 256 * 3;  // with the table of colours
  const QByteArray both = first.chopped(1) + first.mid(kHead);
  EXPECT_EQ(cornersOf(load(both).pixels.get()), "0123");
  EXPECT_EQ(turned(both, 90), QByteArray());
  EXPECT_TRUE(error.contains("several pictures"_L1)) << error.toStdString();
  EXPECT_EQ(cornersOf(load(turned(both, 90, false)).pixels.get()), cornersTurned(90));
}

TEST_F(Turning, pixelsInMemoryAreTurnedAndBrightened) {
  const auto pixels = load(fileOf(corners(40, 30), "png")).pixels;
  for (const int degrees : {90, 180, 270}) {
    const auto made = imaging.turned(*pixels, degrees);
    EXPECT_EQ(made->width, degrees == 180 ? 40 : 30);
    EXPECT_EQ(cornersOf(made.get()), cornersTurned(degrees));
  }
  for (const QSize size : {QSize(7, 93), QSize(39, 29), QSize(61, 31), QSize(5, 5)}) {
    const auto made = imaging.scaled(*pixels, size.width(), size.height());
    EXPECT_EQ(cornersOf(made.get()), "0123");
    EXPECT_EQ(qAlpha(pixelAt(*made, 2, 2)), 255);
  }
  QImage grey(2, 1, QImage::Format_ARGB32_Premultiplied);
  grey.setPixel(0, 0, qRgb(64, 128, 255));
  grey.setPixel(1, 0, qRgba(64, 64, 64, 128));
  const auto plain = load(fileOf(grey, "png")).pixels;
  EXPECT_EQ(pixelAt(*imaging.brightened(*plain, 1, 1), 0, 0), qRgb(64, 128, 255));
  // 255 * sqrt(64 / 255) = 127.7, then twice as far from 127.5.
  const auto bright = imaging.brightened(*plain, 2, 2);
  EXPECT_EQ(qRed(pixelAt(*bright, 0, 0)), 128);
  EXPECT_EQ(qGreen(pixelAt(*bright, 0, 0)), 234);
  EXPECT_EQ(qBlue(pixelAt(*bright, 0, 0)), 255);
  EXPECT_EQ(qAlpha(pixelAt(*bright, 1, 0)), 128);
  EXPECT_LE(qRed(pixelAt(*bright, 1, 0)), 128);
}

}  // namespace
}  // namespace korvane

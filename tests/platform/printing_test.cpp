// Pages that are really made: PDF files, measured as a printer would draw them.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>

#include "photos/print/print_layout.h"
#include "platform/printing/page_painter.h"
#include "platform/printing/printing_qt.h"
#include "tests/fakes/full_disk.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

constexpr int kPixelsPerMm = 10;  // of 254 dots an inch

// Three upright stripes of the same width: red, green and blue.
std::shared_ptr<const Pixels> stripes(int width, int height) {
  auto words = std::make_shared<std::vector<quint32>>();
  for (int i = 0; i < width * height; ++i)
    words->push_back(0xff000000 | 0xff0000u >> (8 * (i % width * 3 / width)));
  return std::make_shared<const Pixels>(
      Pixels{width, height, width * 4, reinterpret_cast<const uchar*>(words->data()), true, words});
}

QByteArray outputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished()) << qUtf8Printable(program);
  return process.readAllStandardOutput();
}

// A page as it is drawn, in millimetres.
struct Measured {
  double pageWidth = 0, pageHeight = 0;
  double left = 0, top = 0, width = 0, height = 0;  // of what is not white
  double stripe = 0;                                // width of the green one
};

Measured measured(const QString& pdf) {
  const QByteArray drawn = outputOf(u"pdftoppm"_s, {u"-r"_s, u"254"_s, pdf});
  int width = 0, height = 0, begin = 0;
  if (std::sscanf(drawn.constData(), "P6 %d %d 255%n", &width, &height, &begin) != 2) return {};
  const char* pixels = drawn.constData() + begin + 1;
  int left = width, right = 0, top = height, bottom = 0;
  std::vector<int> greens(static_cast<size_t>(height));
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x, pixels += 3) {
      const auto red = static_cast<uchar>(pixels[0]), green = static_cast<uchar>(pixels[1]),
                 blue = static_cast<uchar>(pixels[2]);
      if (std::min({red, green, blue}) > 127) continue;
      left = std::min(left, x), right = std::max(right, x + 1);
      top = std::min(top, y), bottom = std::max(bottom, y + 1);
      greens[static_cast<size_t>(y)] += green > red && green > blue;
    }
  const auto mm = [](int length) { return static_cast<double>(length) / kPixelsPerMm; };
  return {mm(width),
          mm(height),
          mm(left),
          mm(top),
          mm(right - left),
          mm(bottom - top),
          mm(greens[static_cast<size_t>((top + bottom) / 2)])};
}

struct Printed : ::testing::Test {
  QTemporaryDir directory;
  PrintingQt printing{directory.path()};

  Printing::Paper paper(const QString& id) {
    const std::vector<Printing::Printer> printers = printing.printers();
    for (const Printing::Paper& each : printers.back().papers)
      if (each.id == id) return each;
    ADD_FAILURE() << "no paper " << qUtf8Printable(id);
    return {};
  }
  QString print(Printing& by, const PrintPage& page, std::shared_ptr<const Pixels> picture,
                const QString& title = u"Page"_s) {
    QString error;
    const Printing::Job job{PdfFiles::kName, u"A4"_s, 1, page.sideways, title};
    const bool done = by.print(job, placedOn(page, std::move(picture)), &error);
    EXPECT_EQ(done, error.isEmpty());
    return error;
  }
  QStringList files() const { return QDir(directory.path()).entryList(QDir::Files, QDir::Name); }
};

// Twips are 1440 an inch: 104.95 x 155.75 and 130.35 x 181.15 mm, from the corner that the margins
// of 5 mm leave.
TEST_F(Printed, AreTrueInMillimetresForBothSizesAndThreeFits) {
  constexpr auto kSix = PrintSize::FourBySix, kSeven = PrintSize::FiveBySeven;
  const struct {
    PrintSize size;
    PrintFit fit;
    int width, height;  // pixels
    Measured expected;
  } cases[] = {
      {kSix, PrintFit::Crop, 400, 400, {210, 297, 5, 5, 104.95, 155.75, 51.92}},
      {kSix, PrintFit::Size, 400, 400, {210, 297, 5, 5, 104.95, 155.75, 34.98}},
      {kSix, PrintFit::KeepAspect, 400, 400, {210, 297, 5, 30.4, 104.95, 104.95, 34.98}},
      {kSeven, PrintFit::Crop, 300, 100, {297, 210, 5, 5, 181.15, 130.35, 130.35}},
      {kSeven, PrintFit::Size, 300, 200, {297, 210, 5, 5, 181.15, 130.35, 60.38}},
      {kSeven, PrintFit::KeepAspect, 600, 400, {297, 210, 5, 9.79, 181.15, 120.77, 60.38}},
  };
  for (const auto& [size, fit, width, height, expected] : cases) {
    SCOPED_TRACE(testing::Message() << "size " << int(size) << ", fit " << int(fit));
    const PrintPage page = layOut(width, height, size, fit, PrintTurn::AsPicture, paper(u"A4"_s));
    const QString title = QString::number(int(size)) + QString::number(int(fit));
    ASSERT_EQ(print(printing, page, stripes(width, height), title), QString());
    const Measured found = measured(directory.filePath(title + u".pdf"_s));
    constexpr double kNear = 0.3;
    EXPECT_NEAR(found.pageWidth, expected.pageWidth, kNear);
    EXPECT_NEAR(found.pageHeight, expected.pageHeight, kNear);
    EXPECT_NEAR(found.left, expected.left, kNear);
    EXPECT_NEAR(found.top, expected.top, kNear);
    EXPECT_NEAR(found.width, expected.width, kNear);
    EXPECT_NEAR(found.height, expected.height, kNear);
    EXPECT_NEAR(found.stripe, expected.stripe, kNear);
  }
}

TEST_F(Printed, FilesTakeNoOtherOnesPlaceAndNoneIsLeftByAFailure) {
  const PrintPage page =
      layOut(40, 30, PrintSize::FourBySix, PrintFit::Size, PrintTurn::Upright, paper(u"A4"_s));
  for (const char* title : {"Beach", "Beach", "../up", ".hidden"})
    EXPECT_EQ(print(printing, page, stripes(40, 30), QString::fromLatin1(title)), QString());
  EXPECT_EQ(files(),
            (QStringList{u"Beach (2).pdf"_s, u"Beach.pdf"_s, u"_._up.pdf"_s, u"_hidden.pdf"_s}));
  FullDisk disk;
  disk.full = true;
  PrintingQt full(directory.path(), disk);
  EXPECT_TRUE(print(full, page, stripes(40, 30), u"Full"_s).contains("The disk is full"_L1));
  PrintingQt nowhere(u"/proc/none"_s);
  EXPECT_TRUE(print(nowhere, page, stripes(40, 30)).contains("/proc/none cannot be made"_L1));
  EXPECT_EQ(files().size(), 4);

  QString error;
  EXPECT_FALSE(
      printing.print({u"Gone"_s, {}, 1, false, {}}, placedOn(page, stripes(40, 30)), &error));
  EXPECT_TRUE(error.contains("printer Gone is not there any more"_L1)) << qUtf8Printable(error);
}

// A tenth of the picture is seen, and of that no more than 100 dots an inch go onto the page.
TEST_F(Printed, APageHoldsNoPixelsThatAreNotSeen) {
  const QString path = directory.filePath(u"coarse.pdf"_s);
  {
    QPdfWriter writer(path);
    writer.setResolution(100);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}));
    EXPECT_TRUE(paintPage(writer, {stripes(3000, 300), 0, 0, 508, 50.8, 0, 0, 50.8, 50.8}));
  }
  const QList<QByteArray> rows = outputOf(u"pdfimages"_s, {u"-list"_s, path}).split('\n');
  ASSERT_GE(rows.size(), 3);
  const QByteArrayList image = rows[2].simplified().split(' ');
  EXPECT_EQ(image.mid(3, 2), (QByteArrayList{"200", "200"})) << rows[2].constData();
}

}  // namespace
}  // namespace korvane

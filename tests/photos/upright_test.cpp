// The eight orientations of EXIF in each place where a picture is seen, by the real decoders.
#include "photos/print/picture_printer.h"
#include "photos/show_area.h"
#include "platform/files/disk_file_system.h"
#include "platform/imaging/picture_codecs.h"
#include "tests/fakes/temporary_home.h"
#include "tests/photos/sheet_world.h"
#include "tests/platform/test_pictures.h"

namespace korvane {
namespace {

// What stands in the corners of each picture, by its orientation.
using Corners = std::map<int, std::string>;
constexpr int kOrientations = 8;

struct Disk {
  TemporaryHome home;
  DiskFileSystem disk;
  PictureCodecs codecs;
};

struct Upright : Disk, SheetWorld {
  Upright() : SheetWorld(&disk, home.path(), &codecs) {
    for (int orientation = 1; orientation <= kOrientations; ++orientation)
      home.put(u"Alps/%1.jpg"_s.arg(orientation),
               withExif(fileOf(stored(orientation), "jpg"), {.orientation = orientation}));
    pic.print = [this](auto paths, int size, int fit, Progress& bar, const auto& stopped) {
      printer.mnuPrint_Click(std::move(paths), size, fit, bar, stopped);
    };
  }
  static QImage stored(int orientation) { return storedAs(corners(96, 64), orientation); }
  static Pixels pixelsOf(const QImage& image) {
    return {image.width(), image.height(), image.bytesPerLine(), image.constBits(), true, {}};
  }
  static int numberOf(const QString& path) { return path.section(u'/', -1).left(1).toInt(); }

  Corners inShow() {
    Form form(u"frm"_s, std::array<InventoryRow, 2>{
                            {{"picTransition", -1, Kind::PictureArea, {0, 0, 80, 80}, Left, ""},
                             {"pictimer", -1, Kind::Timer, {}, Left, ""}}});
    ShowArea show({controlOf<PictureArea>(form, u"picTransition"),
                   controlOf<Timer>(form, u"pictimer"), pictures, settings, system, log});
    pictures.SetupFiles(home / u"Alps"_s);
    Corners found;
    for (show.begin(true); found.size() < kOrientations; show.step(1)) {
      fakes.pump.settle();
      const int number = numberOf(pictures.rsFiles.row(show.seen().first)->Path);
      if (!found.emplace(number, cornersOf(show.seen().picture.get())).second) break;
    }
    return found;
  }
  Corners onSheet() {
    Corners found;
    const CellSource& cells = sheet().cells();
    for (int cell = 0; cell < cells.count(); ++cell) {
      (void)cells.picture(cell);
      fakes.pump.settle();
      found[numberOf(cells.caption(cell))] = cornersOf(cells.picture(cell)->pixels.get());
    }
    return found;
  }
  Corners inViewer() {
    Corners found;
    host.onModal(u"frmViewBig"_s, [&](Form& form) {
      for (int i = 0; i < kOrientations; ++i) {
        fakes.pump.settle();
        found[numberOf(textOf(form, u"lblName"_s))] =
            cornersOf(controlOf<PictureArea>(form, u"picBig").picture().pixels.get());
        if (i + 1 < kOrientations) press(form, u"butNext"_s);
      }
    });
    pic.form().fire(sheet(), {Event::DblClick, 0, 0});
    return found;
  }
  // What of a page's likeness has the colours of the picture.
  static std::string cornersOnPage(const Pixels* page) {
    if (!page) return "none";
    int left = page->width, right = 0, top = page->height, bottom = 0;
    for (int y = 0; y < page->height; ++y)
      for (int x = 0; x < page->width; ++x) {
        const QRgb colour = pixelAt(*page, x, y);
        const auto [least, most] = std::minmax({qRed(colour), qGreen(colour), qBlue(colour)});
        if (most - least < 128) continue;  // paper and its edge are grey
        left = std::min(left, x), right = std::max(right, x + 1);
        top = std::min(top, y), bottom = std::max(bottom, y + 1);
      }
    if (left >= right) return "blank";
    Pixels picture = *page;
    picture.width = right - left;
    picture.height = bottom - top;
    picture.bits += top * page->bytesPerLine + left * 4;
    return cornersOf(&picture);
  }
  std::pair<Corners, Corners> onPaper() {  // printed, and in the likeness before
    Corners printed, likeness;
    for (int cell = 0; cell < sheet().cells().count(); ++cell) {
      const int number = numberOf(sheet().cells().caption(cell));
      host.onModal(u"frmPrint"_s, [&](Form& form) {
        fakes.pump.settle();
        likeness[number] =
            cornersOnPage(controlOf<PictureArea>(form, u"picPreview").picture().pixels.get());
        press(form, u"cmdok"_s);
      });
      touch(cell);
      menu(u"mnuPrint"_s);
      touch(cell);
      printed[number] = cornersOf(fakes.printing.printed.back().second.pixels.get());
    }
    return {printed, likeness};
  }

  clsPicture pictures{{settings, system.files, system.imaging, system.pump, log}};
  PicturePrinter printer{
      {dialog, system.printing, system.imaging, pictures, settings, screen, system.pump, log}};
};

TEST_F(Upright, StandsEachPictureWhereverItIsSeenAsItsKeySays) {
  on(key::StartAtTouched);
  for (const bool turned : {false, true}) {
    settings.write(key::PhotoTurn, turned ? u"YES"_s : u"NO"_s);
    Corners expected;
    for (int orientation = 1; orientation <= kOrientations; ++orientation) {
      const QImage image = stored(orientation);
      const Pixels asStored = pixelsOf(image);
      expected[orientation] = turned ? "0123" : cornersOf(&asStored);
    }
    EXPECT_EQ(inShow(), expected) << "the show";
    open(
        [&](Form& form) {
          press(form, u"optThumbs"_s, Thumbnails::Force);
          fakes.pump.settle();
          EXPECT_EQ(onSheet(), expected) << "the sheet";
          EXPECT_EQ(inViewer(), expected) << "the viewer";
          const auto [printed, likeness] = onPaper();
          EXPECT_EQ(printed, expected) << "a print";
          EXPECT_EQ(likeness, expected) << "and its likeness";
        },
        home / u"Alps"_s);
  }
}

}  // namespace
}  // namespace korvane

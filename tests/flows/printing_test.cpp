// The run that prints pictures, over printers and pictures that are made up.
#include "photos/print/picture_printer.h"
#include "tests/fakes/fake_imaging.h"
#include "tests/fakes/fake_printing.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

constexpr InventoryRow kSheetForm[] = {
    {"picProgress", -1, Kind::Progress, {0, 0, 400, 72}, Left | Top, "", "", false}};

struct Prints : FormWorld {
  Prints() {
    printing.all.push_back({u"Photo"_s,
                            u"By the door"_s,
                            {{u"A4"_s, u"A4"_s, 210, 297, 4, 4, 4, 4},
                             {u"6x4"_s, u"6 x 4"_s, 101.6, 152.4, 3, 3, 3, 12}}});
    imaging.files[u"/p/wide.jpg"_s] = {.width = 400, .height = 300};
    imaging.files[u"/p/high.jpg"_s] = {.width = 300, .height = 400};
    imaging.files[u"/p/bad.jpg"_s] = {.error = u"The file is cut."_s};
    host.show(sheet);
  }

  // Prints until `mostPages` are done.
  void print(const std::vector<QString>& paths, int optSize = 0, int optPrint = 0,
             int mostPages = 100) {
    printer.mnuPrint_Click(paths, optSize, optPrint, bar, [&] {
      progress << u"%1 %2"_s.arg(bar.value(), 0, 'f', 0).arg(bar.caption());
      return --mostPages < 1;
    });
    EXPECT_EQ(screen.MousePointer(), Screen::Default);
    EXPECT_FALSE(bar.visible());
  }
  void dialogIs(FakeFormHost::Script script) { host.onModal(u"frmPrint"_s, std::move(script)); }
  void answered(const QString& button = u"cmdok"_s) {
    dialogIs([this, button](Form& form) {
      pump.settle();
      press(form, button);
    });
  }
  QStringList titles() const {
    QStringList all;
    for (const auto& [job, picture] : printing.printed)
      all << job.title + (job.sideways ? u" sideways"_s : QString());
    return all;
  }

  FakeImaging imaging;
  FakePrinting printing;
  Screen screen;
  Form sheet{u"frmViewPic"_s, kSheetForm};
  Progress& bar = controlOf<Progress>(sheet, u"picProgress");
  clsPicture pictures{{settings, files, imaging, pump, settingsLog}};
  PicturePrinter printer{
      {dialog, printing, imaging, pictures, settings, screen, pump, settingsLog}};
  QStringList progress;
};

TEST_F(Prints, EachPictureAsADocumentAndSaysWhichOnesFailed) {
  dialogIs([this](Form& form) {
    EXPECT_FALSE(canPress(form, u"cmdok"_s)) << "before the printers are known";
    pump.settle();
    tap(form, u"gridPrinters"_s, u"Photo"_s);
    tap(form, u"gridPapers"_s, u"6 x 4"_s);
    press(form, u"cmdMore"_s);
    press(form, u"cmdMore"_s);
    press(form, u"cmdFewer"_s);
    press(form, u"cmdok"_s);
  });
  print({u"/p/wide.jpg"_s, u"/p/bad.jpg"_s, u"/p/high.jpg"_s});
  EXPECT_EQ(titles(), (QStringList{u"wide sideways"_s, u"high"_s}));
  const auto& [job, placed] = printing.printed[0];
  EXPECT_EQ(job.printer, u"Photo"_s);
  EXPECT_EQ(job.paper, u"6x4"_s);
  EXPECT_EQ(job.copies, 2);
  EXPECT_EQ(progress, (QStringList{u"0 Printing.... wide.jpg"_s, u"33 Printing.... bad.jpg"_s,
                                   u"67 Printing.... high.jpg"_s}));
  EXPECT_EQ(messages.texts, QStringList{u"Not printed: bad.jpg. The file is cut."_s});
  EXPECT_TRUE(home.get(u"log.txt"_s).contains("Error printing '/p/bad.jpg'"));
  // This paper holds less than the box of 104.95 x 155.75 mm, and has two wide margins when it
  // lies.
  EXPECT_NEAR(placed.boxWidth, 152.4 - 2 * 12, 0.01);
  EXPECT_NEAR(placed.boxWidth / placed.boxHeight, 8830.0 / 5950, 0.001);
  EXPECT_EQ(imaging.readings.back().width, 1094);  // 92.6 mm at 300 an inch
  EXPECT_EQ(imaging.readings.back().height, 1623);
  EXPECT_TRUE(imaging.readings.back().cover);

  dialogIs([this](Form& form) {  // the choice is there again, the copies are not
    pump.settle();
    EXPECT_EQ(controlOf<Grid>(form, u"gridPrinters").row(), 2);
    EXPECT_EQ(controlOf<Grid>(form, u"gridPapers").row(), 2);
    EXPECT_EQ(textOf(form, u"lblCopies"_s), u"1"_s);
    press(form, u"cmdok"_s);
  });
  print({u"/p/high.jpg"_s});
  EXPECT_EQ(titles().size(), 3);
}

// What is grey in the preview is what goes onto the paper.
TEST_F(Prints, TheLikenessOfThePageIsTrue) {
  for (const auto& [path, optPrint] : std::initializer_list<std::pair<QString, int>>{
           {u"/p/wide.jpg"_s, 0}, {u"/p/wide.jpg"_s, 2}, {u"/p/high.jpg"_s, 1}}) {
    SCOPED_TRACE(testing::Message() << qUtf8Printable(path) << ' ' << optPrint);
    std::shared_ptr<const Pixels> page;
    dialogIs([&](Form& form) {
      pump.settle();
      page = controlOf<PictureArea>(form, u"picPreview").picture().pixels;
      press(form, u"cmdok"_s);
    });
    print({path}, 1, optPrint);
    ASSERT_TRUE(page);
    const auto& [job, placed] = printing.printed.back();
    const double scale = page->width / (job.sideways ? 297.0 : 210.0);
    EXPECT_NEAR(page->height / scale, job.sideways ? 210 : 297, 0.5);
    int left = page->width, right = 0, top = page->height, bottom = 0;
    for (int y = 0; y < page->height; ++y)
      for (int x = 0; x < page->width; ++x) {
        const auto* row = reinterpret_cast<const quint32*>(page->bits + y * page->bytesPerLine);
        if (row[x] != 0xff808080) continue;
        left = std::min(left, x), right = std::max(right, x + 1);
        top = std::min(top, y), bottom = std::max(bottom, y + 1);
      }
    EXPECT_NEAR(left / scale, std::max(placed.left, placed.boxLeft), 0.5);
    EXPECT_NEAR(top / scale, std::max(placed.top, placed.boxTop), 0.5);
    EXPECT_NEAR((right - left) / scale, std::min(placed.width, placed.boxWidth), 0.5);
    EXPECT_NEAR((bottom - top) / scale, std::min(placed.height, placed.boxHeight), 0.5);
  }
}

TEST_F(Prints, EndBehindThePageAtHandOrBeforeTheFirst) {
  const std::vector<QString> three{u"/p/high.jpg"_s, u"/p/wide.jpg"_s, u"/p/high.jpg"_s};
  answered();
  print(three, 0, 0, 2);
  EXPECT_EQ(titles(), (QStringList{u"high"_s, u"wide sideways"_s})) << "stopped on the second page";

  answered();
  pump.at(0, [this] { host.hide(sheet); });  // the console ends
  print(three);
  EXPECT_EQ(titles().size(), 3) << "the form has gone";
  host.show(sheet);

  const QByteArray before = home.get(u"user.ini"_s);
  dialogIs([this](Form& form) {
    pump.settle();
    tap(form, u"gridPrinters"_s, u"Photo"_s);
    press(form, u"cmdTurn"_s);
    press(form, u"cmdCancel"_s);
  });
  print(three);
  EXPECT_EQ(home.get(u"user.ini"_s), before) << "cancelled";
  print({});
  EXPECT_EQ(titles().size(), 3) << "nothing selected";
  EXPECT_EQ(messages.texts, QStringList{u"Choose the pictures that are to be printed first."_s});
}

TEST_F(Prints, APrinterThatVanishesIsSaidOnce) {
  printing.failure = u"The printer Laser is not there any more."_s;
  answered();
  print(std::vector<QString>(7, u"/p/high.jpg"_s));
  EXPECT_EQ(progress.size(), 7);
  ASSERT_EQ(messages.texts.size(), 1);
  EXPECT_TRUE(messages.texts[0].endsWith("and 2 more. "_L1 + printing.failure))
      << qUtf8Printable(messages.texts[0]);
  printing.all.clear();
  dialogIs([this](Form& form) {
    pump.settle();
    EXPECT_FALSE(canPress(form, u"cmdok"_s));
    pressKey(form, 27);
  });
  print({u"/p/high.jpg"_s});
  EXPECT_EQ(printing.printed.size(), 0u);
}

}  // namespace
}  // namespace korvane

#include "tests/photos/sheet_world.h"

namespace korvane {
namespace {

using ViewBig = SheetWorld;

TEST_F(ViewBig, ShowsAPictureOfTheSheetAndItsNeighbours) {
  givenPictures(words("a.jpg b.jpg c.jpg"));
  fakes.imaging.files[u"/P/Alps/b.jpg"_s] = {.width = 960, .height = 480};
  host.onModal(u"frmViewBig"_s, [&](Form& form) {
    auto& area = controlOf<PictureArea>(form, u"picBig");
    EXPECT_TRUE(area.picture().empty()) << "it is read off the form's thread";
    fakes.pump.settle();
    EXPECT_EQ(textOf(form, u"lblName"_s), u"b.jpg"_s);
    EXPECT_EQ(textOf(form, u"lblSize"_s), u"10.00 x 5.00 inch"_s);
    EXPECT_EQ(area.zoom(), 0);

    press(form, u"butRotate"_s);
    press(form, u"butRotate"_s);  // the hourglass
    fakes.pump.settle();
    EXPECT_EQ(textOf(form, u"lblSize"_s), u"5.00 x 10.00 inch"_s);
    EXPECT_EQ(area.picture().pixels->height, 960);
    press(form, u"cmdBright"_s);
    fakes.pump.settle();
    EXPECT_EQ(area.picture().pixels->bits[0], 0xc0);
    EXPECT_EQ(picture(u"b.jpg"_s), "b.jpg") << "the file is not written";

    fakes.imaging.files[u"/P/Alps/c.jpg"_s].error = u"It is torn."_s;
    form.fire(area, {Event::Swipe, 1});
    fakes.pump.settle();
    EXPECT_TRUE(textOf(form, u"lblMessage"_s).endsWith("It is torn."_L1));
    EXPECT_TRUE(area.picture().empty());
    EXPECT_FALSE(canPress(form, u"butNext"_s));
    for (int i = 0; i < 2; ++i) {
      press(form, u"butPrevious"_s);
      fakes.pump.settle();
    }
    EXPECT_EQ(textOf(form, u"lblName"_s), u"a.jpg"_s);
    EXPECT_FALSE(canPress(form, u"butPrevious"_s));
  });
  open([&](Form& form) { form.fire(sheet(), {Event::DblClick, 0, 1}); });
}

TEST_F(ViewBig, ZoomsInStepsAndByItsTools) {
  host.onModal(u"frmViewBig"_s, [&](Form& form) {
    fakes.pump.settle();
    auto& area = controlOf<PictureArea>(form, u"picBig");
    auto& slider = controlOf<Slider>(form, u"scrollZoom");
    const struct {
      const char *button, *shown;
      double slider;
    } table[] = {{"butZoom100", "100.00%", 100},
                 {"butZoomPlus", "125.00%", 125},
                 {"butZoomPlus", "156.25%", 156},
                 {"butZoomMinus", "125.00%", 125}};
    for (const auto& row : table) {
      press(form, QString::fromLatin1(row.button));
      EXPECT_EQ(textOf(form, u"tbZoomFactor"_s), QString::fromLatin1(row.shown));
      EXPECT_EQ(slider.value(), row.slider);
    }
    slider.moveTo(800);
    EXPECT_EQ(area.zoom(), 800);
    press(form, u"butZoomPlus"_s);
    EXPECT_EQ(area.zoom(), 800) << "no further than the slider goes";
    press(form, u"butZoomFit"_s);
    EXPECT_EQ(area.zoom(), 0);

    press(form, u"butStartMove"_s);
    EXPECT_EQ(area.hand(), PictureArea::Hand::Move);
    press(form, u"butStartMagnificationWindow"_s);
    EXPECT_FALSE(controlOf<Button>(form, u"butStartMove").marked());
    press(form, u"butStartMagnificationWindow"_s);
    EXPECT_EQ(area.hand(), PictureArea::Hand::Press);
  });
  big.open({u"/P/a.jpg"_s}, 0);
}

TEST_F(ViewBig, APictureTooLargeForMemoryIsReadSmaller) {
  fakes.imaging.files[u"/P/a.jpg"_s] = {.width = 30'000, .height = 30'000};
  host.onModal(u"frmViewBig"_s, [&](Form& form) {
    fakes.pump.settle();
    EXPECT_EQ(controlOf<PictureArea>(form, u"picBig").picture().pixels->width, 6000);
    EXPECT_EQ(textOf(form, u"lblSize"_s), u"312.50 x 312.50 inch"_s);
  });
  big.open({u"/P/a.jpg"_s}, 0);
}

}  // namespace
}  // namespace korvane

// A picture area: where the picture lies, what fingers do to it, how a change fades.
#include <QtTest/qtesttouch.h>

#include "tests/window/small_console.h"
#include "view/controls/picture_area_widget.h"

namespace korvane {
namespace {

const QColor kBlack(0, 0, 0), kRed(255, 0, 0), kGreen(0, 255, 0), kBlue(0, 0, 255);

TEST(ZoomedPlace, KeepsItsEdgesOutOfTheAreaAndAPointUnderTheFinger) {
  const QSizeF picture(1000, 500), area(400, 300);
  const struct {
    double percent;
    QPointF middle;
    QRectF rect;
  } cases[] = {
      {0, {0.9, 0.1}, {0, 50, 400, 200}},     {100, {0, 0}, {0, 0, 1000, 500}},
      {100, {1, 1}, {-600, -200, 1000, 500}}, {100, {0.5, 0.5}, {-300, -100, 1000, 500}},
      {50, {0.45, 0.9}, {-25, 25, 500, 250}}, {20, {0, 0}, {100, 100, 200, 100}},
  };
  for (const auto& [percent, middle, rect] : cases) {
    const ZoomedPlace place(picture, area, percent, middle);
    EXPECT_EQ(place.rect(), rect) << percent << ' ' << middle.x();
    EXPECT_DOUBLE_EQ(place.fitted(), 40);
    EXPECT_EQ(place.larger(), percent >= 50);
  }
  const ZoomedPlace whole(picture, area, 100, {0.5, 0.5});
  EXPECT_EQ(whole.moved(200, {100, 100}, {100, 100}).rect(), QRectF(-700, -300, 2000, 1000));
  EXPECT_EQ(whole.moved(100, {100, 100}, {150, 90}).rect(), QRectF(-250, -110, 1000, 500));
  EXPECT_EQ(whole.filled({100, 75, 200, 150}).rect(), QRectF(-800, -350, 2000, 1000));
}

// An area of 400 x 300 pixels on black.
class Area : public SmallConsole {
 protected:
  Area() {
    Colours black;
    black.back = 0;
    area.colours = black;
    area.rounded = false;
    area.visible = true;
    const std::pair<Event::Type, const char*> types[] = {{Event::Click, "click"},
                                                         {Event::DblClick, "dblclick"},
                                                         {Event::Change, "change"},
                                                         {Event::Swipe, "swipe"}};
    for (const auto& [type, word] : types)
      form.on(u"picTransition", type, [this, said = QLatin1StringView(word)](auto&, auto& event) {
        events << said;
        if (event.column) events.last() += u' ' + QString::number(event.column);
        if (event.x || event.y) events.last() += u" %1,%2"_s.arg(event.x).arg(event.y);
      });
    settle();
  }

  static Picture filled(int width, int height, const QColor& colour) {
    const auto bits = std::make_shared<std::vector<quint32>>(width * height, colour.rgb());
    const auto pixels = std::make_shared<Pixels>();
    *pixels = {width, height, 4 * width, reinterpret_cast<const uchar*>(bits->data()), true, bits};
    return Picture{{}, {}, nullptr, pixels};
  }
  QColor at(int x, int y) { return shown.grab().toImage().pixelColor(x, y); }
  void drag(QPoint from, QPoint by) {
    finger.press(shown, from);
    finger.move(by / 2);
    finger.move(by - by / 2);
    finger.release();
  }
  QStringList takeEvents() { return std::exchange(events, {}); }
  QTest::QTouchEventWidgetSequence touch() { return QTest::touchEvent(&shown, screen.get()); }

  PictureArea& area = control<PictureArea>("picTransition");
  ControlWidget& shown = widget("picTransition");
  std::unique_ptr<QPointingDevice> screen{QTest::createTouchDevice()};
  QStringList events;
};

TEST_F(Area, ShowsPicturesWholeSideBySideAndShifted) {
  area.picture = filled(400, 150, kRed);
  EXPECT_EQ(at(200, 150), kRed);
  EXPECT_EQ(at(200, 74), kBlack);
  EXPECT_EQ(at(0, 75), kRed);
  area.shiftX = 3;
  area.shiftY = -2;
  EXPECT_EQ(at(2, 150), kBlack);
  EXPECT_EQ(at(3, 73), kRed);
  area.shiftX = area.shiftY = 0;
  area.beside = filled(200, 300, kBlue);
  EXPECT_TRUE(comes([&] { return at(300, 150) == kBlue; }));
  EXPECT_EQ(at(100, 150), kRed) << "made smaller for its half";
  EXPECT_EQ(at(100, 100), kBlack);
  EXPECT_EQ(at(200, 0), kBlue);
  area.picture = Picture();
  area.beside = Picture();
  EXPECT_EQ(at(100, 150), kBlack);
}

TEST_F(Area, PixelsOfTheRightSizeAreNeitherCopiedNorKept) {
  PictureCache pictures(graphics);
  Picture picture = filled(400, 299, kRed);
  const std::weak_ptr<const Pixels> alive = picture.pixels;
  const auto drawn = pictures.drawnPixmap(picture, QSize(400, 300));
  ASSERT_TRUE(drawn);
  EXPECT_EQ(drawn->size(), QSize(400, 299)) << "a rounding apart is the same size";
  EXPECT_EQ(drawn->toImage().constBits(), picture.pixels->bits);
  EXPECT_FALSE(pictures.drawnPixmap(picture, QSize(100, 100))) << "drawn elsewhere";
  bool came = false;
  pictures.whenDrawn(&host.stage(), [&] { came = true; });
  EXPECT_TRUE(comes([&] { return came; }));
  EXPECT_EQ(pictures.drawnPixmap(picture, QSize(100, 100))->width(), 100);
  picture = {};
  EXPECT_FALSE(alive.expired()) << "what is painted stays";
  const_cast<std::optional<QPixmap>&>(drawn).reset();
  EXPECT_TRUE(alive.expired());
}

TEST_F(Area, AChangeFadesFromWhatIsSeenAndEndsExactly) {
  area.picture = filled(400, 300, kRed);
  EXPECT_EQ(at(200, 150), kRed);
  for (const bool onGround : {true, false}) {
    if (!onGround) area.colours = Colours();
    area.fade = 0;
    area.picture = filled(400, 300, kRed);
    EXPECT_EQ(at(200, 150), kRed) << "at once";
    area.fade = 1000;
    area.picture = filled(400, 300, kBlue);
    EXPECT_GT(at(200, 150).red(), 150);
    QColor midway;
    EXPECT_TRUE(comes([&] {
      midway = at(200, 150);
      return midway.blue() > 80;
    }));
    EXPECT_NEAR(midway.red() + midway.blue(), 255, 3);
    area.picture = filled(400, 300, kGreen);
    const QColor next = at(200, 150);
    EXPECT_LT(next.green(), 60) << "from what is seen";
    EXPECT_GT(next.blue(), 40);
    EXPECT_TRUE(comes([&] { return at(200, 150) == kGreen; }));
  }
}

TEST_F(Area, EachHandDoesItsOwn) {
  using Hand = PictureArea::Hand;
  const struct {
    Hand hand;
    double zoom;
    QPoint from, by;
    double zoomAfter, middleX, middleY;
    QStringList fired;
  } cases[] = {
      {Hand::Press, 0, {30, 40}, {}, 0, 0.5, 0.5, {u"click 30,40"_s}},
      {Hand::ZoomIn, 0, {200, 150}, {}, 62.5, 0.5, 0.5, {u"change"_s}},
      {Hand::ZoomIn, 100, {0, 0}, {}, 125, 0.45, 0.45, {u"change"_s}},
      {Hand::ZoomOut, 100, {200, 150}, {}, 80, 0.5, 0.5, {u"change"_s}},
      {Hand::Move, 100, {200, 150}, {40, 30}, 100, 0.45, 0.45, {u"change"_s}},
      {Hand::Move, 100, {200, 150}, {190, 140}, 100, 0.2625, 0.26667, {u"change"_s}},
      {Hand::Move, 0, {200, 150}, {40, 30}, 0, 0.5, 0.5, {}},
      {Hand::ZoomWindow, 0, {100, 75}, {200, 150}, 100, 0.5, 0.5, {u"change"_s}},
      {Hand::ZoomWindow, 0, {100, 75}, {20, 10}, 0, 0.5, 0.5, {}},
      {Hand::Magnify, 0, {100, 75}, {200, 0}, 0, 0.5, 0.5, {}},
  };
  area.picture = filled(800, 600, kRed);
  EXPECT_DOUBLE_EQ(area.fitted, 50);
  for (const auto& [hand, zoom, from, by, zoomAfter, middleX, middleY, fired] : cases) {
    SCOPED_TRACE(static_cast<int>(hand));
    area.hand = hand;
    area.zoom = zoom;
    area.middleX = area.middleY = 0.5;
    by.isNull() ? finger.tap(shown, from) : drag(from, by);
    EXPECT_NEAR(area.zoom(), zoomAfter, 0.01);
    EXPECT_NEAR(area.middleX(), middleX, 0.001);
    EXPECT_NEAR(area.middleY(), middleY, 0.001);
    EXPECT_EQ(takeEvents(), fired);
  }
}

TEST_F(Area, TheLoupeShowsThePictureTwiceAsLargeWhileTheFingerIsDown) {
  QImage halves(800, 600, QImage::Format_RGB32);
  halves.fill(kRed);
  for (int y = 0; y < 600; ++y)
    for (int x = 420; x < 800; ++x) halves.setPixelColor(x, y, kBlue);
  const auto pixels = std::make_shared<Pixels>();
  *pixels = {800, 600, halves.bytesPerLine(), halves.constBits(), true, nullptr};
  area.picture = Picture{{}, {}, nullptr, pixels};
  area.zoom = 50;
  area.hand = PictureArea::Hand::Magnify;
  EXPECT_EQ(at(215, 150), kBlue);
  finger.press(shown, QPoint(200, 150));
  EXPECT_EQ(at(215, 150), kRed) << "10 pixels beside the finger have become 20";
  EXPECT_EQ(at(225, 150), kBlue);
  finger.release();
  EXPECT_EQ(at(215, 150), kBlue);
}

TEST_F(Area, TwoFingersZoomAndOneDragsSwipesOrTaps) {
  area.picture = filled(800, 600, kRed);
  area.gestures = true;
  touch().press(0, QPoint(150, 150)).press(1, QPoint(250, 150));
  touch().move(0, QPoint(100, 150)).move(1, QPoint(300, 150));
  EXPECT_NEAR(area.zoom(), 100, 0.01);
  EXPECT_EQ(events, QStringList());
  touch().release(0, QPoint(100, 150)).stationary(1);
  touch().move(1, QPoint(330, 150));
  touch().release(1, QPoint(330, 150));
  EXPECT_EQ(takeEvents(), QStringList{u"change"_s}) << "and nothing by the finger that is left";
  EXPECT_NEAR(area.middleX(), 0.5, 0.001);

  const auto slide = [this](QPoint from, QPoint by) {
    touch().press(0, from);
    touch().move(0, from + by / 2);
    touch().move(0, from + by);
    touch().release(0, from + by);
    return takeEvents();
  };
  EXPECT_EQ(slide({200, 150}, {-80, 0}), QStringList{u"change"_s});
  EXPECT_NEAR(area.middleX(), 0.6, 0.001);
  EXPECT_EQ(slide({200, 150}, {}), QStringList{u"click 200,150"_s}) << "once, not by the mouse too";

  touch().press(0, QPoint(100, 150)).press(1, QPoint(300, 150));
  touch().move(0, QPoint(180, 150)).move(1, QPoint(220, 150));
  touch().release(0, QPoint(180, 150)).release(1, QPoint(220, 150));
  EXPECT_EQ(area.zoom(), 0) << "no smaller than it fits";
  takeEvents();
  const struct {
    QPoint by;
    QStringList fired;
  } swipes[] = {{{-80, 10}, {u"swipe 1"_s}},
                {{80, -10}, {u"swipe -1"_s}},
                {{-50, 0}, {}},
                {{-80, 70}, {}},
                {{0, 120}, {}}};
  for (const auto& [by, fired] : swipes) {
    EXPECT_EQ(slide({200, 150}, by), fired) << by.x();
    drag({200, 150}, by);
    EXPECT_EQ(takeEvents(), fired) << "by mouse, " << by.x();
  }
  area.gestures = false;
  drag({200, 150}, {-80, 10});
  EXPECT_EQ(takeEvents(), QStringList{u"click 120,160"_s});
}

}  // namespace
}  // namespace korvane

// The DVD player over the real libVLC, with the disc that comes with this system, in a bare window
// of the real display. Times are never asserted: what has to come is waited for.
#include "platform/dvd_player.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <set>

#include "platform/video/dvd_player_vlc.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

constexpr int kLongest = 20'000;            // milliseconds
constexpr int kWidth = 360, kHeight = 270;  // of the window; the menu's picture is 4:3 too
constexpr int kMenuWidth = 720, kMenuHeight = 576;
const QString kDisc = QStringLiteral(DVD_DISC);

class Heard : public DvdPlayer::Events {
 public:
  void DVDNotify(DvdPlayer::Notice notice) override { notices.insert(notice); }
  void endOfDisc() override { ended = true; }
  void failed(const QString& description) override { failure = description; }

  std::set<DvdPlayer::Notice> notices;
  bool ended = false;
  QString failure;
};

class FakeDrive : public DvdDrive {
 public:
  DvdDriveLook look(bool) override {
    ++looks;
    return {disc ? DvdDriveLook::Disc : DvdDriveLook::NoDisc, u"/dev/null"_s};
  }
  std::atomic<bool> disc{false};
  std::atomic<int> looks{0};
};

class Dvd : public testing::Test {
 protected:
  Dvd() {
    player.setDVDDirectory(kDisc);
    player.setEvents(&heard);
  }
  ~Dvd() override {
    player.setEvents(nullptr);
    xcb_disconnect(display_);
  }

  xcb_window_t openWindow() {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display_)).data;
    const xcb_window_t window = xcb_generate_id(display_);
    const uint32_t black = 0;
    const int place = getpid() % 6;  // another case may run at the same time
    xcb_create_window(display_, XCB_COPY_FROM_PARENT, window, screen->root,
                      static_cast<int16_t>(place % 3 * 400), static_cast<int16_t>(place / 3 * 400),
                      kWidth, kHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL, &black);
    xcb_map_window(display_, window);
    colours(window);
    return window;
  }
  void closeWindow(xcb_window_t window) {
    xcb_destroy_window(display_, window);
    xcb_flush(display_);
  }

  void resize(xcb_window_t window, int width, int height) {
    width_ = width;
    height_ = height;
    const uint32_t sizes[] = {static_cast<uint32_t>(width), static_cast<uint32_t>(height)};
    xcb_configure_window(display_, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         sizes);
    xcb_flush(display_);
  }

  // Of a row in the middle of what the screen shows there, over its quarter on the right.
  std::set<uint32_t> colours(xcb_window_t window) {
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(display_, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    const int count = width_ / 4;
    auto* row = xcb_get_image_reply(
        display_,
        xcb_get_image(display_, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                      static_cast<int16_t>(width_ - count), static_cast<int16_t>(height_ / 2),
                      static_cast<uint16_t>(count), 1, ~0U),
        nullptr);
    std::set<uint32_t> found;
    if (!row) return found;
    const uint8_t* bytes = xcb_get_image_data(row);
    for (int i = 0; i < count; ++i) {
      uint32_t pixel = 0;
      std::memcpy(&pixel, bytes + 4 * i, sizeof pixel);
      found.insert(pixel & 0xffffff);
    }
    ::free(row);
    return found;
  }

  // A finger at that place of the menu's picture.
  void press(xcb_window_t window, int x, int y) {
    xcb_motion_notify_event_t event{};
    event.event = window;
    event.event_x = static_cast<int16_t>(x * width_ / kMenuWidth);
    event.event_y = static_cast<int16_t>(y * height_ / kMenuHeight);
    event.same_screen = 1;
    for (const auto& [kind, mask] : {std::pair(XCB_MOTION_NOTIFY, XCB_EVENT_MASK_POINTER_MOTION),
                                     {XCB_BUTTON_PRESS, XCB_EVENT_MASK_BUTTON_PRESS},
                                     {XCB_BUTTON_RELEASE, XCB_EVENT_MASK_BUTTON_RELEASE}}) {
      event.response_type = static_cast<uint8_t>(kind);
      event.detail = kind == XCB_MOTION_NOTIFY ? 0 : 1;
      xcb_send_event(display_, 1, window, mask, reinterpret_cast<const char*>(&event));
    }
    xcb_flush(display_);
  }

  testing::AssertionResult comes(const std::function<bool()>& what) {
    if (pump.wait(kLongest, what)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "domain " << player.CurrentDomain() << ", title " << player.CurrentTitle()
           << ", chapter " << player.CurrentChapter() << ", " << player.CurrentTime()
           << " s; failure " << qPrintable(heard.failure);
  }
  bool inMenu() const { return player.CurrentDomain() == DvdPlayer::Menu; }
  bool inTitle(int title, int chapter = 1) const {
    return player.CurrentTitle() == title && player.CurrentChapter() == chapter;
  }
  bool pictureIn(xcb_window_t window) { return colours(window).size() > 20; }

  LoopPump pump;
  Heard heard;
  std::shared_ptr<FakeDrive> drive = std::make_shared<FakeDrive>();
  DvdPlayerVlc player{pump, {u"--aout=adummy"_s}, drive};

 private:
  int width_ = kWidth, height_ = kHeight;  // of the window at hand
  xcb_connection_t* display_ = xcb_connect(nullptr, nullptr);
};

TEST_F(Dvd, MenuTitlesAndChaptersAreGoneThrough) {
  const xcb_window_t window = openWindow();
  player.Play();
  EXPECT_FALSE(pump.wait(300, [&] { return player.CurrentDomain() != DvdPlayer::Nothing; }))
      << "without a window";
  player.setWindow(window);
  ASSERT_TRUE(comes([&] { return inMenu() && pictureIn(window); }));
  EXPECT_EQ(player.CurrentTitle(), 0);
  EXPECT_TRUE(heard.notices.contains(DvdPlayer::DomainChange));
  EXPECT_FALSE(heard.notices.contains(DvdPlayer::TitleChange));

  player.SelectButton(DvdPlayer::Right);
  player.ActivateButton();
  ASSERT_TRUE(comes([&] { return inTitle(2) && player.TotalTitleTime() == 8; }));
  EXPECT_TRUE(heard.notices.contains(DvdPlayer::TitleChange));
  ASSERT_TRUE(comes([&] { return player.track(TrackKind::Sound) != MediaTrack::kNone; }));
  ASSERT_EQ(player.tracks(TrackKind::Sound).size(), 1);
  const MediaTrack sound = player.tracks(TrackKind::Sound).first();
  EXPECT_TRUE(sound.name.contains(u"English"_s)) << qPrintable(sound.name);
  EXPECT_EQ(player.track(TrackKind::Sound), sound.id);
  EXPECT_TRUE(player.tracks(TrackKind::Subtitles).isEmpty());

  player.ShowMenu(DvdPlayer::RootMenu);
  ASSERT_TRUE(comes([&] { return inMenu(); }));
  player.ActivateButton();
  ASSERT_TRUE(comes([&] { return inTitle(1); }));
  EXPECT_EQ(player.chapters(), 3);
  heard.notices.clear();
  player.PlayNextChapter();
  ASSERT_TRUE(comes([&] { return inTitle(1, 2); }));
  EXPECT_TRUE(heard.notices.contains(DvdPlayer::ChapterStart));
  EXPECT_FALSE(heard.notices.contains(DvdPlayer::TitleChange));
  player.PlayPrevChapter();
  ASSERT_TRUE(comes([&] { return inTitle(1, 1); }));
  heard.notices.clear();
  player.setCurrentTime(7);
  ASSERT_TRUE(comes([&] { return inTitle(1, 3); }));
  ASSERT_TRUE(comes([&] { return heard.notices.contains(DvdPlayer::CurrentTimeChange); }));
  ASSERT_TRUE(comes([&] { return inMenu(); })) << "by the disc's own program";
  EXPECT_EQ(heard.failure, QString());
}

TEST_F(Dvd, PressInTheWindowStartsTheTitleOfTheButton) {
  const xcb_window_t window = openWindow();
  player.setWindow(window);
  player.Play();
  ASSERT_TRUE(comes([&] { return inMenu() && pictureIn(window); }));
  resize(window, kWidth * 4 / 3, kHeight * 4 / 3);
  ASSERT_TRUE(comes([&] { return pictureIn(window); })) << "the picture follows the window";
  press(window, 522, 320);
  ASSERT_TRUE(comes([&] { return inTitle(2); }));
  player.Stop();
  EXPECT_EQ(player.state(), DvdPlayer::Stopped);
  EXPECT_EQ(player.CurrentTitle(), 0);
  EXPECT_TRUE(comes([&] { return colours(window) == std::set<uint32_t>{0}; }));
  player.Play();
  EXPECT_TRUE(comes([&] { return inMenu() && pictureIn(window); })) << "from the beginning";
}

TEST_F(Dvd, WindowGoesAndAnotherShowsTheSamePlace) {
  const xcb_window_t first = openWindow();
  player.setWindow(first);
  player.Play();
  ASSERT_TRUE(comes([&] { return inMenu(); }));
  player.ActivateButton();
  ASSERT_TRUE(comes([&] { return inTitle(1); }));
  player.PlayNextChapter();
  ASSERT_TRUE(comes([&] { return inTitle(1, 2); }));
  player.Pause();
  player.setWindow(0);
  closeWindow(first);
  EXPECT_EQ(player.state(), DvdPlayer::Paused);
  EXPECT_TRUE(inTitle(1, 2));

  const xcb_window_t second = openWindow();
  player.setWindow(second);
  // The second chapter begins at 3 s.
  ASSERT_TRUE(comes([&] { return pictureIn(second) && player.CurrentTime() >= 3; }));
  const int place = player.CurrentTime();
  EXPECT_FALSE(pump.wait(2500, [&] { return player.CurrentTime() > place + 1; })) << "a pause";
  EXPECT_TRUE(inTitle(1, 2));

  const xcb_window_t third = openWindow();
  player.setWindow(third);
  player.Play();
  ASSERT_TRUE(comes([&] { return pictureIn(third) && inTitle(1, 3); }));
  player.setWindow(0);
  closeWindow(third);
  player.Stop();
  EXPECT_EQ(player.CurrentDomain(), DvdPlayer::Nothing);
}

TEST_F(Dvd, DiscThatEndsAndDiscThatIsCutStopThePlayer) {
  const QByteArray toMenu = QByteArray::fromHex("3008000001420000"),
                   exit = QByteArray::fromHex("3001000000000000");
  const QTemporaryDir root;
  const QString copy = root.filePath(u"100% #1 %20 Häfen?"_s);
  const auto patch = [&](const char* name, const std::function<void(QByteArray&)>& change) {
    QFile from(kDisc + u"/VIDEO_TS/"_s + QLatin1StringView(name));
    QFile to(copy + u'/' + QLatin1StringView(name));
    ASSERT_TRUE(from.open(QIODevice::ReadOnly) && to.open(QIODevice::WriteOnly));
    QByteArray bytes = from.readAll();
    change(bytes);
    to.write(bytes);
  };
  std::filesystem::copy((kDisc + u"/VIDEO_TS"_s).toStdString(), copy.toStdString());
  player.setWindow(openWindow());
  player.setDVDDirectory(copy);
  patch("VTS_01_0.IFO", [&](QByteArray& bytes) { bytes.replace(toMenu, exit); });
  player.Play();
  ASSERT_TRUE(comes([&] { return inMenu(); }));
  player.SelectButton(DvdPlayer::Right);
  player.ActivateButton();
  ASSERT_TRUE(comes([&] { return inTitle(2); }));
  player.setCurrentTime(7);
  ASSERT_TRUE(comes([&] { return heard.ended; }));
  EXPECT_EQ(player.state(), DvdPlayer::Stopped);
  EXPECT_EQ(player.CurrentDomain(), DvdPlayer::Nothing);

  patch("VTS_01_1.VOB", [](QByteArray& bytes) { bytes.truncate(bytes.size() / 4); });
  player.Play();
  ASSERT_TRUE(comes([&] { return inMenu(); }));
  player.SelectButton(DvdPlayer::Right);
  player.ActivateButton();
  ASSERT_TRUE(comes([&] { return !heard.failure.isEmpty(); }));
  EXPECT_EQ(heard.failure, u"The DVD "_s + copy +
                               u" cannot be read any further: one of its files is damaged or "
                               "missing."_s);
  EXPECT_EQ(player.state(), DvdPlayer::Stopped);
}

TEST_F(Dvd, DriveTellsOfItsDiscOnlyWhileItIsMeant) {
  EXPECT_FALSE(pump.wait(300, [&] { return drive->looks > 0; })) << "a folder is meant";
  player.setDVDDirectory({});
  ASSERT_TRUE(comes([&] { return drive->looks > 0; }));
  player.setWindow(openWindow());
  player.Play();
  ASSERT_TRUE(comes([&] { return !heard.failure.isEmpty(); }));
  EXPECT_EQ(heard.failure, u"There is no disc in the DVD drive."_s);
  EXPECT_EQ(player.state(), DvdPlayer::Stopped);
  EXPECT_TRUE(heard.notices.empty());
  drive->disc = true;
  EXPECT_TRUE(comes([&] { return heard.notices.contains(DvdPlayer::DiscInserted); }));
  drive->disc = false;
  EXPECT_TRUE(comes([&] { return heard.notices.contains(DvdPlayer::DiscEjected); }));
}

}  // namespace
}  // namespace korvane

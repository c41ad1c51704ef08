// korvane-bench dvd DISC: from the press on a button of a disc's menu to the first frame of its
// title in the window, by our player and by libVLC alone, by turns. Both draw into a window of the
// display, and what shows there is looked at in the same way.
#include <xcb/xcb.h>

#include <thread>

#include "bench/bench.h"
#include "bench/bench_movies.h"
#include "platform/path_text.h"
#include "platform/video/dvd_player_vlc.h"
#include "platform/vlc/vlc_library.h"
#include "tests/fakes/loop_pump.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kLongest{20'000};
constexpr int kTurns = 9, kStillMs = 700, kWidth = 720, kHeight = 576;
constexpr int kRow = kHeight / 8;  // above the menu's buttons
// What the console gives its own player.
const char* const kArguments[] = {
    "--aout=adummy",         "--no-lua", "--quiet",          "--no-xlib",
    "--no-video-title-show", "--no-osd", "--avcodec-hw=none"};

class Window {
 public:
  Window() {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display_)).data;
    const uint32_t black = 0;
    xcb_create_window(display_, XCB_COPY_FROM_PARENT, id, screen->root, 0, 0, kWidth, kHeight, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &black);
    xcb_map_window(display_, id);
    xcb_flush(display_);
  }
  ~Window() { xcb_disconnect(display_); }
  Window(const Window&) = delete;

  QByteArray row() {
    auto* image = xcb_get_image_reply(
        display_, xcb_get_image(display_, XCB_IMAGE_FORMAT_Z_PIXMAP, id, 0, kRow, kWidth, 1, ~0U),
        nullptr);
    if (!image) return {};
    const QByteArray bytes(reinterpret_cast<const char*>(xcb_get_image_data(image)),
                           xcb_get_image_data_length(image));
    std::free(image);
    return bytes;
  }
  bool painted() {
    const QByteArray bytes = row();
    return bytes.count(bytes.isEmpty() ? '\0' : bytes[0]) != bytes.size() && !bytes.isEmpty();
  }

 private:
  xcb_connection_t* display_ = xcb_connect(nullptr, nullptr);

 public:
  const xcb_window_t id = xcb_generate_id(display_);
};

// From `press`, once the menu stands still, to the first other row of pixels, in ms; 0 when none
// comes.
double pressed(Window& window, LoopPump& pump, const std::function<void()>& press) {
  QByteArray menu;
  const auto moved = [&] { return window.row() != menu; };
  Clock::time_point begin = Clock::now();
  do {
    menu = window.row();
  } while (pump.wait(kStillMs, moved) && Clock::now() - begin < kLongest);
  begin = Clock::now();
  press();
  if (!pump.wait(kLongest.count(), moved)) return 0;
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double ours(const QString& disc) {
  LoopPump pump;
  Window window;
  DvdPlayerVlc player(pump, {u"--aout=adummy"_s});
  player.setDVDDirectory(disc);
  player.setWindow(window.id);
  player.Play();
  double took = 0;
  if (pump.wait(kLongest.count(),
                [&] { return player.CurrentDomain() == DvdPlayer::Menu && window.painted(); }))
    took = pressed(window, pump, [&] { player.ActivateButton(); });
  player.setWindow(0);
  return took;
}

double bare(const VlcLibrary& vlc, libvlc_instance_t* instance, const QString& disc) {
  LoopPump pump;
  Window window;
  libvlc_media_player_t* player = vlc.libvlc_media_player_new(instance);
  const QByteArray place = "dvd://" + fromPath(disc).toPercentEncoding("/");
  libvlc_media_t* media = vlc.libvlc_media_new_location(instance, place.constData());
  vlc.libvlc_media_player_set_media(player, media);
  vlc.libvlc_media_player_set_xwindow(player, window.id);
  vlc.libvlc_media_player_play(player);
  double took = 0;
  if (pump.wait(kLongest.count(), [&] { return window.painted(); }))
    took = pressed(window, pump,
                   [&] { vlc.libvlc_media_player_navigate(player, libvlc_navigate_activate); });
  vlc.libvlc_media_player_stop(player);
  vlc.libvlc_media_release(media);
  vlc.libvlc_media_player_release(player);
  return took;
}

}  // namespace

int benchDvd(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  QString error;
  const VlcLibrary* vlc = VlcLibrary::open(&error);
  libvlc_instance_t* instance =
      vlc ? vlc->libvlc_new(static_cast<int>(std::size(kArguments)), kArguments) : nullptr;
  if (!instance) return 1;
  std::vector<double> us, them;
  for (int turn = 0; turn < kTurns; ++turn) {
    us.push_back(ours(arguments[0]));
    them.push_back(bare(*vlc, instance, arguments[0]));
  }
  const auto median = [](std::vector<double> all) {
    std::ranges::sort(all);
    return all[all.size() / 2];
  };
  Json json("dvd");
  json.add("press_to_title_ms", median(us)).add("bare_press_to_title_ms", median(them));
  json.add("press_to_title_ratio", median(us) / median(them));
  json.add("missed", static_cast<int>(std::ranges::count(us, 0.0)));
  json.print();
  return std::ranges::count(us, 0.0) == 0 && std::ranges::count(them, 0.0) == 0 ? 0 : 1;
}

}  // namespace korvane

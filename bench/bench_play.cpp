// korvane-bench play FILE FILE2: from the press on a song to libVLC's call of play, and from the
// end of a song to the next one's, through the music connection and the real player without a
// device.
#include <algorithm>
#include <cstdio>
#include <thread>

#include "bench/bench_music.h"
#include "platform/files/disk_file_system.h"
#include "platform/sound/media_player_vlc.h"
#include "platform/vlc/vlc_library.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/temporary_home.h"
#include "tests/listener/music_parts.h"

namespace korvane {
namespace {

using Clock = MediaPlayerVlc::Clock;
constexpr int kLongestSongMs = 60'000, kPresses = 20;

double ms(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

double median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

struct Player : TransportNews {
  Player(const QString& first, const QString& second) : files{first, second} {
    parts.state.gLocalListener = true;
    connection.setNews(this);
  }
  void press(int file) {
    connection.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s, files[file], u"song"_s);
  }
  void playerPaused() override {}
  void playerStopped() override {}
  void endOfStream() override {
    ended = player.marks().endReached;
    if (std::exchange(next, false)) press(1);
    ++ends;
  }
  void songFailed(int) override { failed = true; }

  // From the press to the call, in ms.
  double pressed(int file) {
    const Clock::time_point begin = Clock::now();
    press(file);
    pump.wait(5000, [&] { return player.marks().playCalled > begin; });
    return ms(player.marks().playCalled - begin);
  }

  QStringList files;
  LoopPump pump;
  TemporaryHome home;
  DiskFileSystem disk;
  MusicParts parts;
  Settings settings{disk, pump, parts.state, home.path()};
  MediaPlayerVlc player{pump, {u"--aout=adummy"_s}};
  PlayerLevel level{player, parts.system.mixer};
  MusicConnection connection{{parts.form,
                              parts.state,
                              settings,
                              parts.messages,
                              parts.logger,
                              pump,
                              disk,
                              player,
                              level,
                              parts.socket,
                              {}}};
  Clock::time_point ended;
  int ends = 0;
  bool next = false, failed = false;
};

// The calls of libVLC alone, in ms.
double bareCalls(const QString& file) {
  QString error;
  const VlcLibrary* vlc = VlcLibrary::open(&error);
  if (!vlc) return 0;
  const char* arguments[] = {"--no-video", "--quiet", "--aout=adummy"};
  libvlc_instance_t* instance = vlc->libvlc_new(3, arguments);
  libvlc_media_player_t* player = vlc->libvlc_media_player_new(instance);
  std::vector<double> times;
  for (int i = 0; i < kPresses; ++i) {
    const Clock::time_point begin = Clock::now();
    libvlc_media_t* media = vlc->libvlc_media_new_path(instance, file.toLocal8Bit().constData());
    vlc->libvlc_media_player_set_media(player, media);
    times.push_back(ms(Clock::now() - begin));
    vlc->libvlc_media_player_play(player);
    vlc->libvlc_media_release(media);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  vlc->libvlc_media_player_stop(player);
  vlc->libvlc_media_player_release(player);
  return median(times);
}

}  // namespace

int benchPlay(const QStringList& arguments) {
  if (arguments.size() != 2) {
    std::fprintf(stderr, "korvane-bench play FILE FILE2\n");
    return 2;
  }
  Player player(arguments[0], arguments[1]);
  const double first = player.pressed(0);
  std::vector<double> presses;
  for (int i = 0; i < kPresses; ++i) {
    player.pump.wait(60, [] { return false; });
    presses.push_back(player.pressed(i % 2));
  }
  player.next = true;
  const int before = player.ends;
  player.pump.wait(kLongestSongMs, [&] { return player.ends > before; });
  player.pump.wait(1000, [&] { return player.player.marks().playCalled > player.ended; });
  const double toNext = ms(player.player.marks().playCalled - player.ended);
  const bool right = !player.failed && player.ends == before + 1 && toNext > 0;
  std::printf(
      "{\"mode\":\"play\",\"first_press_ms\":%.2f,\"press_ms\":%.2f,\"press_max_ms\":%.2f,"
      "\"bare_press_ms\":%.2f,\"end_to_next_ms\":%.2f,\"right\":%s}\n",
      first, median(presses), *std::max_element(presses.begin(), presses.end()),
      bareCalls(arguments[0]), toNext, right ? "true" : "false");
  return right ? 0 : 1;
}

}  // namespace korvane

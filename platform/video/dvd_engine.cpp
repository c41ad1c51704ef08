#include "platform/video/dvd_engine.h"

#include "platform/files/disk_file_system.h"
#include "platform/path_text.h"
#include "platform/video/dvd_check.h"
#include "platform/video/dvd_drive.h"

namespace korvane {
namespace {

constexpr auto kPlayPause = std::chrono::milliseconds(500);
constexpr auto kDrivePause = std::chrono::seconds(2);
constexpr int kMenuPolls = 3;

}  // namespace

DvdPlayerVlc::Engine::Engine(DvdPlayerVlc& owner, Pump& pump, QStringList arguments,
                             QByteArray device)
    : VlcEngine(pump, std::move(arguments)), owner_(owner), givenDevice_(std::move(device)) {}

void DvdPlayerVlc::Engine::prepare() {
  vlc_->libvlc_video_set_mouse_input(player_, 1);
  vlc_->libvlc_video_set_key_input(player_, 0);
}

void DvdPlayerVlc::Engine::setPace() {
  pollEvery(started_ ? kPlayPause : watching_ ? kDrivePause : std::chrono::milliseconds(0));
}

// The window may be gone when this runs. What libVLC still draws then is refused by the X server
// and harms nothing, for the connection is libVLC's own.
void DvdPlayerVlc::Engine::setWindow(quintptr window) {
  if (window == window_) return;
  if (started_) {
    const DvdPlace stood = place();
    halt();
    if (stood.domain == Title) resume_ = stood;
  }
  window_ = window;
  if (wanted_ && !paused_) begin();
}

void DvdPlayerVlc::Engine::setDirectory(const QString& path) {
  end();
  folder_ = path.isEmpty() ? path : DiskFileSystem().resolve(path).value_or(path);
  menuSeen_ = false;
}

void DvdPlayerVlc::Engine::play(int run) {
  run_ = run;
  wanted_ = true;
  if (std::exchange(paused_, false) && started_)
    setPause(false);
  else if (!started_)
    begin();
}

void DvdPlayerVlc::Engine::pause() {
  paused_ = true;
  if (started_) setPause(true);
}

void DvdPlayerVlc::Engine::end() {
  wanted_ = paused_ = false;
  resume_ = last_ = {};
  halt();
}

void DvdPlayerVlc::Engine::halt() {
  if (started_) stop();
  started_ = false;
  menuPolls_ = 0;
  setPace();
}

QByteArray DvdPlayerVlc::Engine::location() const {
  QByteArray device = givenDevice_.isEmpty() ? firstDvdDrive() : givenDevice_;
  QByteArray location =
      "dvd://" + (folder_.isEmpty() ? device : fromPath(folder_)).toPercentEncoding("/");
  if (resume_.title > 0)
    location += '#' + QByteArray::number(resume_.title) + ':' + QByteArray::number(resume_.chapter);
  return location;
}

void DvdPlayerVlc::Engine::begin() {
  if (window_ == 0) return;
  const QByteArray device = givenDevice_.isEmpty() ? firstDvdDrive() : givenDevice_;
  QString fault = folder_.isEmpty() ? dvdDriveFault(device) : dvdFolderFault(folder_);
  if (fault.isEmpty() && !make()) fault = trouble();
  if (!fault.isEmpty()) {
    end();
    tell([this, run = run_.load(), fault] { owner_.heardEnd(run, fault); });
    return;
  }
  setMedia(vlc_->libvlc_media_new_location(instance_, location().constData()));
  vlc_->libvlc_media_player_set_xwindow(player_, static_cast<uint32_t>(window_));
  VlcEngine::play();
  started_ = true;
  setPace();
}

DvdPlace DvdPlayerVlc::Engine::place() const {
  DvdPlace found;
  const int title = vlc_->libvlc_media_player_get_title(player_);
  if (title < 0) return found;
  found.domain = title == 0 ? Menu : Title;  // libVLC lists the disc's menus as a title 0
  if (title == 0) return found;
  found.title = title;
  found.chapter = vlc_->libvlc_media_player_get_chapter(player_) + 1;
  found.chapters = std::max(0, vlc_->libvlc_media_player_get_chapter_count(player_));
  const auto seconds = [](qint64 ms) { return static_cast<int>(std::max<qint64>(0, ms) / 1000); };
  found.time = seconds(vlc_->libvlc_media_player_get_time(player_));
  found.total = seconds(vlc_->libvlc_media_player_get_length(player_));
  const Tracks sounds = tracks(TrackKind::Sound), subtitles = tracks(TrackKind::Subtitles);
  found.sounds = sounds.all;
  found.sound = sounds.chosen;
  found.subtitles = subtitles.all;
  found.subtitle = subtitles.chosen;
  return found;
}

void DvdPlayerVlc::Engine::look() {
  if (!started_) return;
  const DvdPlace now = place();
  if (now.domain == Menu) menuSeen_ = true;
  if (resume_.title > 0 && now.title == resume_.title && now.total > 0)
    seek(std::exchange(resume_, {}).time);
  if (now.domain == Menu) menuPolls_ = 0;
  // A disc whose titles know no menu has one at its beginning, if anywhere.
  if (menuPolls_ > 0 && --menuPolls_ == 0 && menuSeen_) {
    halt();
    resume_ = {};
    begin();
    return;
  }
  const bool moves = now.domain == Title && !paused_;
  if (now == last_ && !moves) return;
  last_ = now;
  tell([this, run = run_.load(), now] { owner_.heardPlace(run, now); });
}

void DvdPlayerVlc::Engine::poll() {
  look();
  if (watching_ && std::chrono::steady_clock::now() - driveLookedAt_ >= kDrivePause) lookAtDrive();
}

void DvdPlayerVlc::Engine::watchDrive(bool on) {
  watching_ = on;
  discIn_.reset();
  if (on) lookAtDrive();
  setPace();
}

// A disc that lay in the drive at the first look is no news.
void DvdPlayerVlc::Engine::lookAtDrive() {
  driveLookedAt_ = std::chrono::steady_clock::now();
  const QByteArray device = givenDevice_.isEmpty() ? firstDvdDrive() : givenDevice_;
  const bool in = !device.isEmpty() && dvdInDrive(device);
  if (discIn_ && *discIn_ != in)
    tell([this, in] { owner_.notify(in ? DiscInserted : DiscEjected); });
  discIn_ = in;
}

void DvdPlayerVlc::Engine::navigate(libvlc_navigate_mode_t way) {
  if (started_) vlc_->libvlc_media_player_navigate(player_, way);
}

void DvdPlayerVlc::Engine::showMenu() {
  if (!started_ || vlc_->libvlc_media_player_get_title(player_) <= 0) return;
  vlc_->libvlc_media_player_set_title(player_, 0);
  menuPolls_ = kMenuPolls;
}

void DvdPlayerVlc::Engine::chapter(int step) {
  if (!started_ || vlc_->libvlc_media_player_get_title(player_) <= 0) return;
  const int now = vlc_->libvlc_media_player_get_chapter(player_);
  if (step < 0)
    vlc_->libvlc_media_player_previous_chapter(player_);
  else if (now + 1 < vlc_->libvlc_media_player_get_chapter_count(player_))
    vlc_->libvlc_media_player_next_chapter(player_);
}

void DvdPlayerVlc::Engine::conclude(int run, bool broken) {
  if (run != run_ || !started_) return;
  const bool some = last_.domain != Nothing || place().domain != Nothing;
  end();
  QString failure;
  if (broken || !some)
    failure = some ? u"The DVD cannot be played any further: it cannot be read."_s
                   : u"Cannot play the DVD: it cannot be read, or has nothing to play."_s;
  tell([this, run, failure] { owner_.heardEnd(run, failure); });
}

void DvdPlayerVlc::Engine::event(const libvlc_event_t& event) {
  switch (event.type) {
    case libvlc_MediaPlayerTitleChanged:
    case libvlc_MediaPlayerChapterChanged:
    case libvlc_MediaPlayerLengthChanged:
    case libvlc_MediaPlayerESSelected:
      post([this] { look(); });
      break;
    case libvlc_MediaPlayerEndReached:
    case libvlc_MediaPlayerEncounteredError:
      post([this, run = run_.load(), broken = event.type == libvlc_MediaPlayerEncounteredError] {
        conclude(run, broken);
      });
      break;
    default:
      break;
  }
}

}  // namespace korvane

#include "platform/video/video_engine.h"

#include <sys/stat.h>
#include <unistd.h>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr int kCountAttempts = 150;
constexpr auto kCountPause = std::chrono::milliseconds(2);
constexpr int kPriority = 3;  // of subtitle files; libVLC chooses one of 4 at once

// Names the tracks of the files beside a movie, so that they are known among its own.
constexpr char kBeside[] = "korvane-beside";

}  // namespace

VideoPlayerVlc::Engine::Engine(VideoPlayerVlc& owner, Pump& pump, QStringList arguments)
    : VlcEngine(pump, std::move(arguments)),
      frames([this](std::function<void()> work) { tell(std::move(work)); },
             [this](std::function<void()> work) { post(std::move(work)); }),
      owner_(owner) {
  frames.shape = [this] { return shape(); };
}

void VideoPlayerVlc::Engine::close() {
  file_ = 0;
  if (!player_) return;
  stop();
  const std::lock_guard lock(shapeMutex_);
  setMedia(nullptr);
}

QString VideoPlayerVlc::Engine::checked() const {
  struct stat status {};
  const QByteArray name = fromPath(path_);
  if (stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode))
    return u"there is no such file."_s;
  if (access(name.constData(), R_OK) != 0) return u"the file may not be read."_s;
  return status.st_size == 0 ? u"the file is empty."_s : QString();
}

void VideoPlayerVlc::Engine::open(int file, const QString& path) {
  close();
  path_ = path;
  file_ = file;
  sounds_ = subtitles_ = {};
  trackFound_ = false;
  positionMs = 0;
  if (const QString reason = checked(); !reason.isEmpty()) return fail(file, reason);
  if (!make()) return tell([this, file, why = trouble()] { owner_.heardFailure(file, why); });
  libvlc_media_t* media = vlc_->libvlc_media_new_path(instance_, fromPath(path).constData());
  addSubtitles(media);
  {
    const std::lock_guard lock(shapeMutex_);
    setMedia(media);
  }
  frames.setSource(file);
}

void VideoPlayerVlc::Engine::addSubtitles(libvlc_media_t* media) {
  vlc_->libvlc_media_add_option(media, ":no-sub-autodetect-file");
  beside_ = subtitleFiles(path_);
  if (beside_.empty()) return;
  vlc_->libvlc_media_add_option(media, (":sub-description="_ba + kBeside).constData());
  for (const SubtitleFile& file : beside_)
    vlc_->libvlc_media_slaves_add(media, libvlc_media_slave_type_subtitle, kPriority,
                                  ("file://" + file.path.toPercentEncoding("/")).constData());
}

void VideoPlayerVlc::Engine::play(int run) {
  run_ = run;
  VlcEngine::play();
}

void VideoPlayerVlc::Engine::fail(int file, const QString& reason) {
  tell([this, file, text = u"Cannot play %1: %2"_s.arg(path_, reason)] {
    owner_.heardFailure(file, text);
  });
}

VideoShape VideoPlayerVlc::Engine::shape() {
  const std::lock_guard lock(shapeMutex_);
  VideoShape shape;
  if (!media_) return shape;
  libvlc_media_track_t** tracks = nullptr;
  const unsigned count = vlc_->libvlc_media_tracks_get(media_, &tracks);
  for (unsigned i = 0; i < count; ++i) {
    if (tracks[i]->i_type != libvlc_track_video) continue;
    const libvlc_video_track_t& video = *tracks[i]->video;
    shape.width = static_cast<int>(video.i_width);
    shape.height = static_cast<int>(video.i_height);
    if (video.i_sar_num > 0 && video.i_sar_den > 0)
      shape.pixel = static_cast<double>(video.i_sar_num) / video.i_sar_den;
    if (video.i_orientation >= libvlc_video_orient_left_top) {  // turned by a quarter
      std::swap(shape.width, shape.height);
      shape.pixel = 1 / shape.pixel;
    }
    break;
  }
  vlc_->libvlc_media_tracks_release(tracks, count);
  return shape;
}

// Tells the tracks when they are others than before.
void VideoPlayerVlc::Engine::look(int file) {
  if (file != file_ || !media_) return;
  Tracks sounds = tracks(TrackKind::Sound), subtitles = tracks(TrackKind::Subtitles);
  size_t next = 0;
  for (MediaTrack& track : subtitles.all)
    if (track.name.contains(QLatin1StringView(kBeside)) && next < beside_.size())
      track.name = beside_[next++].name;
  if (sounds == sounds_ && subtitles == subtitles_) return;
  sounds_ = sounds;
  subtitles_ = subtitles;
  tell([this, file, sounds, subtitles] {
    owner_.heardTracks(file, {sounds.all, sounds.chosen}, {subtitles.all, subtitles.chosen});
  });
}

// Whether anything of the file at hand was decoded. libVLC counts it four times a second and once
// more soon after the end, so a very short file is asked again.
bool VideoPlayerVlc::Engine::decoded() const {
  for (int attempt = 0; attempt < kCountAttempts && trackFound_; ++attempt) {
    libvlc_media_stats_t stats{};
    if (!vlc_->libvlc_media_get_stats(media_, &stats) || stats.i_decoded_audio > 0 ||
        stats.i_decoded_video > 0)
      return true;
    std::this_thread::sleep_for(kCountPause);
  }
  return false;
}

// The end of a file of which nothing was decoded is a failure: libVLC plays a text by ending it.
void VideoPlayerVlc::Engine::conclude(int run, bool broken) {
  if (run != run_ || !media_) return;
  const bool some = decoded();
  stop();  // so that it can be played again
  if (some && !broken)
    tell([this, run] { owner_.heardEnd(run); });
  else
    fail(file_, some ? u"it cannot be played any further."_s
                     : u"the file is damaged or is no movie that can be played."_s);
}

void VideoPlayerVlc::Engine::event(const libvlc_event_t& event) {
  const int file = file_;
  switch (event.type) {
    case libvlc_MediaPlayerESAdded:
      if (event.u.media_player_es_changed.i_type != libvlc_track_text) trackFound_ = true;
      [[fallthrough]];
    case libvlc_MediaPlayerESDeleted:
    case libvlc_MediaPlayerESSelected:
    case libvlc_MediaPlayerPlaying:
      post([this, file] { look(file); });
      break;
    case libvlc_MediaPlayerLengthChanged:
      if (const double seconds = newLength(event.u.media_player_length_changed.new_length))
        tell([this, file, seconds] { owner_.heardLength(file, seconds); });
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

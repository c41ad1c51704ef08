#include "platform/vlc/vlc_engine.h"

#include <QProcess>

namespace korvane {
namespace {

constexpr auto kLongestGoodbye = std::chrono::seconds(1);
constexpr auto kPagePainted = std::chrono::milliseconds(40);
constexpr qint64 kLengthStepMs = 500;  // a guessed length that moves by less is not worth telling

constexpr libvlc_event_e kHeard[] = {libvlc_MediaPlayerPlaying,
                                     libvlc_MediaPlayerEndReached,
                                     libvlc_MediaPlayerEncounteredError,
                                     libvlc_MediaPlayerTimeChanged,
                                     libvlc_MediaPlayerLengthChanged,
                                     libvlc_MediaPlayerESAdded,
                                     libvlc_MediaPlayerESDeleted,
                                     libvlc_MediaPlayerESSelected,
                                     libvlc_MediaPlayerTitleChanged,
                                     libvlc_MediaPlayerChapterChanged,
                                     libvlc_MediaPlayerVout};

}  // namespace

VlcEngine::VlcEngine(Pump& pump, QStringList arguments)
    : pump_(&pump),
      arguments_(arguments + QProcess::splitCommand(qEnvironmentVariable("KORVANE_VLC_ARGS"))) {}

void VlcEngine::post(std::function<void()> command) {
  const std::lock_guard lock(mutex_);
  if (quitting_) return;
  commands_.push_back(std::move(command));
  if (!thread_.joinable()) thread_ = std::thread([self = shared_from_this()] { self->run(); });
  wake_.notify_all();
}

void VlcEngine::run() {
  std::unique_lock lock(mutex_);
  while (!quitting_) {
    std::function<void()> command = [this] { poll(); };
    if (!commands_.empty()) {
      command = std::move(commands_.front());
      commands_.pop_front();
    } else if (pollPause_.count() == 0) {
      wake_.wait(lock);
      continue;
    } else if (wake_.wait_for(lock, pollPause_) == std::cv_status::no_timeout) {
      continue;
    }
    lock.unlock();
    command();
    lock.lock();
  }
  lock.unlock();
  if (player_) {
    vlc_->libvlc_media_player_stop(player_);
    vlc_->libvlc_media_player_release(player_);
  }
  if (media_) vlc_->libvlc_media_release(media_);
  lock.lock();
  over_ = true;
  wake_.notify_all();
}

void VlcEngine::quit() {
  std::unique_lock lock(mutex_);
  pump_ = nullptr;
  quitting_ = true;
  commands_.clear();
  wake_.notify_all();
  if (!thread_.joinable()) return;
  const bool ended = wake_.wait_for(lock, kLongestGoodbye, [this] { return over_; });
  lock.unlock();
  ended ? thread_.join() : thread_.detach();
}

bool VlcEngine::make() {
  if (player_) return true;
  if (!trouble_.isEmpty() || !(vlc_ = VlcLibrary::open(&trouble_))) return false;
  instance_ = vlc_->instance(arguments_);
  if (instance_) player_ = vlc_->libvlc_media_player_new(instance_);
  if (!player_) {
    trouble_ =
        u"libVLC cannot be started. Check its package vlc-plugin-base and $KORVANE_VLC_ARGS."_s;
    return false;
  }
  libvlc_event_manager_t* events = vlc_->libvlc_media_player_event_manager(player_);
  for (const auto type : kHeard) vlc_->libvlc_event_attach(events, type, &VlcEngine::hear, this);
  prepare();
  return true;
}

void VlcEngine::makeSoon() {
  std::unique_lock lock(mutex_);
  wake_.wait_for(lock, kPagePainted, [this] { return quitting_ || !commands_.empty(); });
  if (quitting_) return;
  lock.unlock();
  make();
}

void VlcEngine::setMedia(libvlc_media_t* media) {
  vlc_->libvlc_media_player_set_media(player_, media);
  if (media_) vlc_->libvlc_media_release(media_);
  media_ = media;
  positionMs = 0;
  lengthMs_ = 0;
}

void VlcEngine::play() {
  if (player_ && media_) vlc_->libvlc_media_player_play(player_);
}

void VlcEngine::setPause(bool on) {
  if (player_) vlc_->libvlc_media_player_set_pause(player_, on);
}

void VlcEngine::stop() {
  if (player_) vlc_->libvlc_media_player_stop(player_);
}

void VlcEngine::seek(double seconds) {
  if (player_) vlc_->libvlc_media_player_set_time(player_, static_cast<qint64>(seconds * 1000));
}

void VlcEngine::applyLevels() {
  if (!player_) return;
  vlc_->libvlc_audio_set_volume(player_, volume);
  vlc_->libvlc_audio_set_mute(player_, mute || silent_);
}

void VlcEngine::setTrack(TrackKind kind, int id) {
  if (!player_) return;
  kind == TrackKind::Sound ? vlc_->libvlc_audio_set_track(player_, id)
                           : vlc_->libvlc_video_set_spu(player_, id);
}

VlcEngine::Tracks VlcEngine::tracks(TrackKind kind) const {
  const bool sound = kind == TrackKind::Sound;
  Tracks found;
  found.chosen =
      sound ? vlc_->libvlc_audio_get_track(player_) : vlc_->libvlc_video_get_spu(player_);
  libvlc_track_description_t* first = sound ? vlc_->libvlc_audio_get_track_description(player_)
                                            : vlc_->libvlc_video_get_spu_description(player_);
  for (const libvlc_track_description_t* row = first; row; row = row->p_next)
    if (row->i_id != MediaTrack::kNone)
      found.all << MediaTrack{row->i_id, QString::fromUtf8(row->psz_name)};
  if (first) vlc_->libvlc_track_description_list_release(first);
  return found;
}

void VlcEngine::tell(std::function<void()> news) {
  const std::lock_guard lock(mutex_);
  if (!pump_) return;
  pump_->later([weak = weak_from_this(), news = std::move(news)] {
    const std::shared_ptr<VlcEngine> engine = weak.lock();
    if (engine && engine->pump_) news();
  });
}

double VlcEngine::newLength(qint64 milliseconds) {
  if (milliseconds <= 0) return 0;
  if (lengthMs_ > 0 && std::abs(milliseconds - lengthMs_) < kLengthStepMs) return 0;
  lengthMs_ = milliseconds;
  return static_cast<double>(milliseconds) / 1000;
}

void VlcEngine::hear(const libvlc_event_t* event, void* self) {
  // The player, and with it its events, goes before the thread lets go of the engine.
  VlcEngine& engine = *static_cast<VlcEngine*>(self);
  if (event->type == libvlc_MediaPlayerPlaying) engine.post([&engine] { engine.applyLevels(); });
  if (event->type == libvlc_MediaPlayerTimeChanged)
    engine.positionMs = event->u.media_player_time_changed.new_time;
  engine.event(*event);
}

}  // namespace korvane

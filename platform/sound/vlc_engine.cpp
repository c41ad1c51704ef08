#include "platform/sound/vlc_engine.h"

#include <QDir>

#include <atomic>

namespace korvane {
namespace {

constexpr auto kLongestGoodbye = std::chrono::seconds(1);
constexpr auto kPagePainted = std::chrono::milliseconds(40);
constexpr int kCountAttempts = 150;
constexpr auto kCountPause = std::chrono::milliseconds(2);
constexpr qint64 kLengthStepMs = 500;  // a guessed length that moves by less is not worth telling

// Music only: no pictures, no subtitles, no scripts, nothing printed, no connection to a display.
constexpr const char* kArguments[] = {"--no-video", "--no-spu", "--no-lua", "--quiet", "--no-xlib"};

// libVLC's doors to a stream; `stream` is one.
int openStream(void* stream, void** data, uint64_t* size) {
  *data = stream;
  *size = static_cast<uint64_t>(static_cast<SoundStream*>(stream)->size());
  return 0;
}

ssize_t readStream(void* stream, unsigned char* to, size_t length) {
  return static_cast<SoundStream*>(stream)->read({reinterpret_cast<char*>(to), length});
}

// No stream can be sought. libVLC only asks when a position is set, which streams have no use for.
int seekStream(void*, uint64_t) {
  return -1;
}

// The first instance of the process is never released. With the last one libVLC unloads its
// plug-ins, and the one for tags leaves objects of its own behind in the TagLib that this program
// uses too.
std::atomic_flag keptInstance;

}  // namespace

MediaPlayerVlc::Engine::Engine(MediaPlayerVlc& owner, Pump& pump, QStringList arguments)
    : owner_(&owner), pump_(&pump), arguments_(std::move(arguments)) {}

void MediaPlayerVlc::Engine::post(std::function<void()> command) {
  const std::lock_guard lock(mutex_);
  if (quitting_) return;
  commands_.push_back(std::move(command));
  if (!thread_.joinable()) thread_ = std::thread([self = shared_from_this()] { self->run(); });
  wake_.notify_all();
}

void MediaPlayerVlc::Engine::run() {
  std::unique_lock lock(mutex_);
  while (!quitting_) {
    if (commands_.empty()) {
      wake_.wait(lock);
      continue;
    }
    const std::function<void()> command = std::move(commands_.front());
    commands_.pop_front();
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
  if (instance_ && keptInstance.test_and_set()) vlc_->libvlc_release(instance_);
  lock.lock();
  over_ = true;
  wake_.notify_all();
}

void MediaPlayerVlc::Engine::quit() {
  std::unique_lock lock(mutex_);
  owner_ = nullptr;
  pump_ = nullptr;
  quitting_ = true;
  commands_.clear();
  wake_.notify_all();
  if (!thread_.joinable()) return;
  const bool ended = wake_.wait_for(lock, kLongestGoodbye, [this] { return over_; });
  lock.unlock();
  ended ? thread_.join() : thread_.detach();
}

bool MediaPlayerVlc::Engine::make() {
  if (player_) return true;
  if (!trouble_.isEmpty() || !(vlc_ = VlcLibrary::open(&trouble_))) return false;

  std::vector<QByteArray> words(std::begin(kArguments), std::end(kArguments));
  for (const QString& argument : arguments_) words.push_back(argument.toLocal8Bit().constData());
  std::vector<const char*> pointers;
  pointers.reserve(words.size());
  for (const QByteArray& word : words) pointers.push_back(word.constData());
  instance_ = vlc_->libvlc_new(static_cast<int>(pointers.size()), pointers.data());
  if (instance_) player_ = vlc_->libvlc_media_player_new(instance_);
  if (!player_) {
    trouble_ =
        u"libVLC cannot be started. Check its package vlc-plugin-base and $KORVANE_VLC_ARGS."_s;
    return false;
  }
  libvlc_event_manager_t* events = vlc_->libvlc_media_player_event_manager(player_);
  for (const auto type :
       {libvlc_MediaPlayerPlaying, libvlc_MediaPlayerEndReached, libvlc_MediaPlayerEncounteredError,
        libvlc_MediaPlayerTimeChanged, libvlc_MediaPlayerLengthChanged, libvlc_MediaPlayerESAdded})
    vlc_->libvlc_event_attach(events, type, &Engine::event, this);
  return true;
}

void MediaPlayerVlc::Engine::makeSoon() {
  std::unique_lock lock(mutex_);
  wake_.wait_for(lock, kPagePainted, [this] { return quitting_ || !commands_.empty(); });
  if (quitting_) return;
  lock.unlock();
  make();
}

void MediaPlayerVlc::Engine::open(int generation, const QString& path,
                                  std::shared_ptr<SoundStream> stream) {
  if (!make()) {
    report({Report::Failure, generation, 0, trouble_});
    return;
  }
  libvlc_media_t* media =
      stream ? mediaOf(*stream)
             : vlc_->libvlc_media_new_path(
                   instance_, QDir::toNativeSeparators(path).toLocal8Bit().constData());
  vlc_->libvlc_media_player_set_media(player_, media);  // ends the file before it
  if (media_) vlc_->libvlc_media_release(media_);
  media_ = media;
  stream_ = std::move(stream);
  path_ = path;
  positionMs = 0;
  lengthMs_ = 0;
  soundFound_ = false;
  generation_ = generation;
}

// libVLC takes a stream without a call for seeking for a live one: it then reads as fast as it is
// given, a whole disc into memory, keeps what comes during a pause in temporary files, and is at
// the end at once where no sound device takes what was read. Without the options it would fill 16
// MB, a minute and a half, before it sounds the first of it.
libvlc_media_t* MediaPlayerVlc::Engine::mediaOf(SoundStream& stream) {
  libvlc_media_t* media = vlc_->libvlc_media_new_callbacks(instance_, openStream, readStream,
                                                           seekStream, nullptr, &stream);
  for (const char* option : {":prefetch-read-size=17640", ":prefetch-buffer-size=512"})
    vlc_->libvlc_media_add_option(media, option);
  return media;
}

void MediaPlayerVlc::Engine::play() {
  if (!player_ || !media_) return;
  playCalled = Clock::now();
  vlc_->libvlc_media_player_play(player_);
}

void MediaPlayerVlc::Engine::setPause(bool on) {
  if (player_) vlc_->libvlc_media_player_set_pause(player_, on);
}

void MediaPlayerVlc::Engine::stop() {
  if (player_) vlc_->libvlc_media_player_stop(player_);
}

void MediaPlayerVlc::Engine::seek(double seconds) {
  if (player_) vlc_->libvlc_media_player_set_time(player_, static_cast<qint64>(seconds * 1000));
}

void MediaPlayerVlc::Engine::applyLevels() {
  if (!player_) return;
  vlc_->libvlc_audio_set_volume(player_, volume);
  vlc_->libvlc_audio_set_mute(player_, mute);
}

// Whether any sound of the file at hand was decoded. libVLC counts it four times a second and once
// more soon after the end, so a very short file is asked again.
bool MediaPlayerVlc::Engine::sounded() const {
  for (int attempt = 0; attempt < kCountAttempts && soundFound_; ++attempt) {
    libvlc_media_stats_t stats{};
    if (!vlc_->libvlc_media_get_stats(media_, &stats) || stats.i_decoded_audio > 0) return true;
    std::this_thread::sleep_for(kCountPause);
  }
  return false;
}

// The end of a file that never sounded is a failure: libVLC plays a text by ending it.
void MediaPlayerVlc::Engine::conclude(int generation) {
  if (generation != generation_ || !media_) return;
  if (sounded())
    report({Report::End, generation, 0, {}});
  else
    report({Report::Failure, generation, 0,
            u"Cannot play %1: the file is damaged or holds no sound that can be played."_s.arg(
                path_)});
}

void MediaPlayerVlc::Engine::report(Report news) {
  const std::lock_guard lock(mutex_);
  if (!pump_) return;
  pump_->later([weak = weak_from_this(), news = std::move(news)] {
    const std::shared_ptr<Engine> engine = weak.lock();
    if (engine && engine->owner_) engine->owner_->heard(news);
  });
}

void MediaPlayerVlc::Engine::takeLength(qint64 milliseconds) {
  if (milliseconds <= 0) return;
  if (lengthMs_ > 0 && std::abs(milliseconds - lengthMs_) < kLengthStepMs) return;
  lengthMs_ = milliseconds;
  report({Report::Length, generation_, static_cast<double>(milliseconds) / 1000, {}});
}

void MediaPlayerVlc::Engine::event(const libvlc_event_t* event, void* self) {
  const std::shared_ptr<Engine> engine = static_cast<Engine*>(self)->shared_from_this();
  switch (event->type) {
    case libvlc_MediaPlayerPlaying:
      engine->post([engine] { engine->applyLevels(); });
      break;
    case libvlc_MediaPlayerESAdded:
      if (event->u.media_player_es_changed.i_type == libvlc_track_audio) engine->soundFound_ = true;
      break;
    case libvlc_MediaPlayerTimeChanged:
      engine->positionMs = event->u.media_player_time_changed.new_time;
      break;
    case libvlc_MediaPlayerLengthChanged:
      engine->takeLength(event->u.media_player_length_changed.new_length);
      break;
    case libvlc_MediaPlayerEndReached:
    case libvlc_MediaPlayerEncounteredError:
      engine->endReached = Clock::now();
      engine->post(
          [engine, generation = engine->generation_.load()] { engine->conclude(generation); });
      break;
    default:
      break;
  }
}

}  // namespace korvane

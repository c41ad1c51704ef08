#include "platform/sound/music_engine.h"

#include <QDir>

#include <thread>

namespace korvane {
namespace {

constexpr int kCountAttempts = 150;
constexpr auto kCountPause = std::chrono::milliseconds(2);

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

}  // namespace

MediaPlayerVlc::Engine::Engine(MediaPlayerVlc& owner, Pump& pump, QStringList arguments)
    : VlcEngine(pump, std::move(arguments)), owner_(owner) {}

void MediaPlayerVlc::Engine::open(int generation, const QString& path,
                                  std::shared_ptr<SoundStream> stream) {
  if (!make()) {
    report({Report::Failure, generation, 0, trouble()});
    return;
  }
  libvlc_media_t* media =
      stream ? mediaOf(*stream)
             : vlc_->libvlc_media_new_path(
                   instance_, QDir::toNativeSeparators(path).toLocal8Bit().constData());
  for (const char* option : {":no-video", ":no-spu"}) vlc_->libvlc_media_add_option(media, option);
  setMedia(media);
  stream_ = std::move(stream);
  path_ = path;
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
  playCalled = Clock::now();
  VlcEngine::play();
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
  tell([this, news = std::move(news)] { owner_.heard(news); });
}

void MediaPlayerVlc::Engine::event(const libvlc_event_t& event) {
  switch (event.type) {
    case libvlc_MediaPlayerESAdded:
      if (event.u.media_player_es_changed.i_type == libvlc_track_audio) soundFound_ = true;
      break;
    case libvlc_MediaPlayerLengthChanged:
      if (const double seconds = newLength(event.u.media_player_length_changed.new_length))
        report({Report::Length, generation_, seconds, {}});
      break;
    case libvlc_MediaPlayerEndReached:
    case libvlc_MediaPlayerEncounteredError:
      endReached = Clock::now();
      post([this, generation = generation_.load()] { conclude(generation); });
      break;
    default:
      break;
  }
}

}  // namespace korvane

// The thread of the music player: what it adds to VlcEngine is streams, the reports of ends, and
// what counts as sound.
#pragma once

#include "platform/sound/media_player_vlc.h"
#include "platform/vlc/vlc_engine.h"

namespace korvane {

struct MediaPlayerVlc::Report {
  enum Kind { End, Failure, Length } kind = End;
  int generation = 0;
  double seconds = 0;   // of Length
  QString description;  // of Failure
};

class MediaPlayerVlc::Engine final : public VlcEngine {
 public:
  Engine(MediaPlayerVlc& owner, Pump& pump, QStringList arguments);

  // On the thread only. The file of that path; with a stream that, and `path` is what it is called.
  // Reports carry `generation` from now on.
  void open(int generation, const QString& path, std::shared_ptr<SoundStream> stream = nullptr);
  void play();

  // Shared with the owner's thread.
  std::atomic<Clock::time_point> endReached{}, playCalled{};

 private:
  void event(const libvlc_event_t& event) override;
  void report(Report report);                    // from any thread
  libvlc_media_t* mediaOf(SoundStream& stream);  // the caller's to release
  void conclude(int generation);
  bool sounded() const;

  MediaPlayerVlc& owner_;                // touched from the event loop only
  std::shared_ptr<SoundStream> stream_;  // that the media reads from
  QString path_;                         // of the file at hand, or the name of its stream
  std::atomic<int> generation_{0};
  std::atomic<bool> soundFound_{false};  // the file at hand has a track of sound
};

}  // namespace korvane

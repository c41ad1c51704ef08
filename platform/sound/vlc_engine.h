// The thread that makes all calls of libVLC for one media player, and the queue before it. The
// engine outlives its player where libVLC hangs: the thread keeps it until the call has returned.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "platform/sound/media_player_vlc.h"
#include "platform/sound/vlc_library.h"

namespace korvane {

struct MediaPlayerVlc::Report {
  enum Kind { End, Failure, Length } kind = End;
  int generation = 0;
  double seconds = 0;   // of Length
  QString description;  // of Failure
};

class MediaPlayerVlc::Engine : public std::enable_shared_from_this<Engine> {
 public:
  Engine(MediaPlayerVlc& owner, Pump& pump, QStringList arguments);

  // From any thread: runs `command` on this one, after those before it; dropped after quit().
  void post(std::function<void()> command);

  // The owner hears nothing any more, and the thread ends, or is left behind after a second.
  void quit();

  // The commands; called on the thread only.

  bool make();      // libVLC and its player, once; false when that fails, with trouble_
  void makeSoon();  // with the next command, or when the page that asks for it has been painted

  // The file of that path; with a stream that, and `path` is what it is called. Reports carry
  // `generation` from now on.
  void open(int generation, const QString& path, std::shared_ptr<SoundStream> stream = nullptr);

  void play();
  void setPause(bool on);
  void stop();
  void seek(double seconds);
  void applyLevels();

  // Shared with the owner's thread.
  std::atomic<qint64> positionMs{0};
  std::atomic<int> volume{100};  // libVLC's percent
  std::atomic<bool> mute{false};
  std::atomic<Clock::time_point> endReached{}, playCalled{};

 private:
  void run();
  void report(Report report);                    // from any thread
  libvlc_media_t* mediaOf(SoundStream& stream);  // the caller's to release
  void conclude(int generation);
  bool sounded() const;
  static void event(const libvlc_event_t* event, void* engine);  // on libVLC's threads
  void takeLength(qint64 milliseconds);

  std::mutex mutex_;  // of the four below
  std::condition_variable wake_;
  std::deque<std::function<void()>> commands_;
  bool quitting_ = false, over_ = false;
  MediaPlayerVlc* owner_;  // null once it is gone; touched from the event loop only
  Pump* pump_;             // null once the owner is gone
  std::thread thread_;

  const QStringList arguments_;
  const VlcLibrary* vlc_ = nullptr;
  libvlc_instance_t* instance_ = nullptr;
  libvlc_media_player_t* player_ = nullptr;
  libvlc_media_t* media_ = nullptr;
  std::shared_ptr<SoundStream> stream_;  // that media_ reads from
  QString path_;                         // of the file at hand, or the name of its stream
  QString trouble_;                      // why libVLC could not be made
  std::atomic<int> generation_{0};
  std::atomic<qint64> lengthMs_{0};
  std::atomic<bool> soundFound_{false};  // the file at hand has a track of sound
};

}  // namespace korvane

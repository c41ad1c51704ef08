// The thread that makes all calls of libVLC for one player, the queue before it and the player of
// libVLC's behind it: music, movies and discs are made of one each.
//
// libVLC's calls may block while a device or a disk is slow, so all of them are made, in order, on
// this thread. The engine is held by a shared_ptr and outlives its owner where libVLC hangs: the
// thread keeps it until the call has returned.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "platform/media_track.h"
#include "platform/pump.h"
#include "platform/vlc/vlc_library.h"

namespace korvane {

class VlcEngine : public std::enable_shared_from_this<VlcEngine> {
 public:
  // `arguments` and then the words of $KORVANE_VLC_ARGS are added to libVLC's own, such as
  // "--aout=adummy" for a machine without a sound device. The pump must outlive quit(); not owned.
  VlcEngine(Pump& pump, QStringList arguments);
  virtual ~VlcEngine() = default;

  // From any thread: runs `command` on this one, after those before it; dropped after quit().
  void post(std::function<void()> command);

  // From the event loop, before the owner goes: nothing is told any more, and the thread ends, or
  // is left behind after a second.
  void quit();

  // The commands; called on the thread only. All but the first two do nothing before make().

  bool make();      // libVLC and its player, once; false when that fails, with trouble()
  void makeSoon();  // with the next command, or when the page that asks for it has been painted
  void play();      // nothing without a media
  void setPause(bool on);
  void stop();
  void seek(double seconds);
  void applyLevels();
  void setTrack(TrackKind kind, int id);

  // Shared with the owner's thread.
  std::atomic<qint64> positionMs{0};  // a quarter of a second old at most
  std::atomic<int> volume{100};       // libVLC's percent
  std::atomic<bool> mute{false};

 protected:
  // What libVLC tells of the player, on threads of libVLC's, where none of its calls may be made.
  virtual void event(const libvlc_event_t& event) = 0;
  virtual void poll() {}     // on the thread, as often as pollEvery() says
  virtual void prepare() {}  // on the thread, once: the player is made

  // On the thread: calls poll() that often, whenever nothing else is to do; 0 for never.
  void pollEvery(std::chrono::milliseconds pause) { pollPause_ = pause; }

  // From any thread: runs `news` from the event loop, unless the owner has gone by then.
  void tell(std::function<void()> news);

  void setMedia(libvlc_media_t* media);   // takes it over; ends what was before; null for none
  double newLength(qint64 milliseconds);  // in seconds; 0 when it is not worth telling
  const QString& trouble() const { return trouble_; }  // why libVLC could not be made

  // The tracks of the media at hand without libVLC's own row for none, and the one chosen.
  struct Tracks {
    QList<MediaTrack> all;
    int chosen = MediaTrack::kNone;
    bool operator==(const Tracks&) const = default;
  };
  Tracks tracks(TrackKind kind) const;

  bool silent_ = false;  // mute beside `mute`; for applyLevels()
  const VlcLibrary* vlc_ = nullptr;
  libvlc_instance_t* instance_ = nullptr;
  libvlc_media_player_t* player_ = nullptr;
  libvlc_media_t* media_ = nullptr;

 private:
  void run();
  static void hear(const libvlc_event_t* event, void* engine);

  std::mutex mutex_;  // of the four below
  std::condition_variable wake_;
  std::deque<std::function<void()>> commands_;
  bool quitting_ = false, over_ = false;
  Pump* pump_;  // null once the owner is gone; written on the event loop only
  std::thread thread_;

  const QStringList arguments_;
  QString trouble_;
  std::chrono::milliseconds pollPause_{0};
  std::atomic<qint64> lengthMs_{0};
};

}  // namespace korvane

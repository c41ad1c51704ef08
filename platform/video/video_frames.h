// The frames of a movie in memory: libVLC leaves its planes here at the movie's own size, and each
// becomes one picture in exactly the size that the painter asked for.
#pragma once

#include <mutex>

#include "platform/video_player.h"
#include "platform/vlc/vlc_library.h"

namespace korvane {

// Which part of a movie's picture is shown, and in which size; all in pixels.
struct VideoLayout {
  int x = 0, y = 0, width = 0, height = 0;  // of the movie's picture, at even places
  int toWidth = 0, toHeight = 0;            // 0 for nothing
};

// `pixelShape` is the width of one of the movie's pixels over its height.
VideoLayout layOut(int width, int height, double pixelShape, int roomWidth, int roomHeight,
                   VideoFit fit);

// What a file says of its picture: its visible size in pixels, 0 for unknown, and the width of a
// pixel over its height; as it is to be seen, turned upright.
struct VideoShape {
  int width = 0, height = 0;
  double pixel = 1;
  bool operator==(const VideoShape&) const = default;
};

class VideoFrames final : public VideoPicture {
 public:
  using Later = std::function<void(std::function<void()>)>;

  // `toLoop` runs work from the event loop, `toThread` on the thread that makes libVLC's calls.
  VideoFrames(Later toLoop, Later toThread);
  ~VideoFrames() override;

  void setEvents(Events* events) override { events_ = events; }
  void setRoom(int width, int height, VideoFit fit) override;
  std::shared_ptr<const VideoFrame> newest() override;

  // From the event loop: there is no frame, and until setSource() comes with the same number none
  // of those that still arrive is taken.
  void expect(int file);

  // On libVLC's thread: what comes from now on belongs to that file.
  void setSource(int file);
  void attach(const VlcLibrary& vlc, libvlc_media_player_t* player);

  // Of the file at hand, asked when its picture begins and for its first frames; called on libVLC's
  // threads.
  std::function<VideoShape()> shape;

 private:
  struct Owned;
  struct Room {
    int width = 0, height = 0;
    VideoFit fit = VideoFit::Whole;
    bool operator==(const Room&) const = default;
  };

  unsigned begin(unsigned* width, unsigned* height, unsigned* pitches, unsigned* lines);
  void lockPlanes();               // for the next picture
  std::shared_ptr<Owned> made();   // of the planes, which the caller has locked; may be null
  std::shared_ptr<Owned> spare();  // with mutex_ locked
  void publish(std::shared_ptr<Owned> frame);
  void remake();
  uchar* plane(int index);

  const Later toLoop_, toThread_;
  Events* events_ = nullptr;  // of the event loop

  std::mutex planesMutex_;  // of the planes and what belongs to them
  std::vector<uchar> planes_, scaled_;
  int width_ = 0, height_ = 0, planesFile_ = 0;
  bool decoded_ = false;  // the planes hold a picture
  double pixelShape_ = 1;
  VideoShape seen_;               // that pixelShape_ comes from
  int shapesToAsk_ = 0;           // for so many frames more; of libVLC's thread
  std::shared_ptr<Owned> ready_;  // made, and not shown yet

  std::mutex mutex_;  // of the rest
  Room room_;
  int expected_ = 0, source_ = 0;
  bool told_ = false;  // and newest() was not called since
  std::vector<std::shared_ptr<Owned>> pool_;
  std::shared_ptr<Owned> newest_;
};

}  // namespace korvane

#include "platform/video/video_frames.h"

#include <libyuv.h>

#include <atomic>
#include <cstring>

namespace korvane {
namespace {

constexpr int kMostHeld = 2;
constexpr int kLargestSide = 16384;          // pixels, of a room and of a movie
constexpr int kMostPadding = 128;            // pixels beyond the visible ones
constexpr int kShapesAsked = 50;             // frames, of those that a picture begins with
constexpr int kLargestStandardHeight = 576;  // above it, colours are those of HD television

int chroma(int pixels) {
  return (pixels + 1) / 2;
}

size_t planarSize(int width, int height) {
  return static_cast<size_t>(width) * static_cast<size_t>(height) +
         2 * static_cast<size_t>(chroma(width)) * static_cast<size_t>(chroma(height));
}

}  // namespace

VideoLayout layOut(int width, int height, double pixelShape, int roomWidth, int roomHeight,
                   VideoFit fit) {
  if (width <= 0 || height <= 0 || roomWidth <= 0 || roomHeight <= 0) return {};
  VideoLayout layout{0, 0, width, height, roomWidth, roomHeight};
  const double shape = width * pixelShape / height;
  const double room = static_cast<double>(roomWidth) / roomHeight;
  const auto part = [](double of) { return std::max(1, static_cast<int>(std::lround(of))); };
  if (fit == VideoFit::Whole) {
    if (shape > room)
      layout.toHeight = std::min(roomHeight, part(roomWidth / shape));
    else
      layout.toWidth = std::min(roomWidth, part(roomHeight * shape));
  } else if (fit == VideoFit::Filled) {
    if (shape > room) {
      layout.width = std::min(width, part(height * room / pixelShape));
      layout.x = (width - layout.width) / 2 & ~1;
    } else {
      layout.height = std::min(height, part(width * pixelShape / room));
      layout.y = (height - layout.height) / 2 & ~1;
    }
  }
  return layout;
}

struct VideoFrames::Owned : VideoFrame {
  // Makes it that large; what it shows is undefined then.
  void setSize(int toWidth, int toHeight) {
    width = toWidth;
    height = toHeight;
    rowBytes = qsizetype{4} * toWidth;
    const size_t needed = static_cast<size_t>(rowBytes) * static_cast<size_t>(toHeight);
    if (needed > size || needed < size / 2) {
      bytes = std::make_unique_for_overwrite<uchar[]>(needed);
      size = needed;
    }
    pixels = bytes.get();
  }
  std::unique_ptr<uchar[]> bytes;
  size_t size = 0;
  Room room;  // that it was made for
};

VideoFrames::VideoFrames(Later toLoop, Later toThread)
    : toLoop_(std::move(toLoop)), toThread_(std::move(toThread)) {}

VideoFrames::~VideoFrames() = default;

void VideoFrames::setRoom(int width, int height, VideoFit fit) {
  const Room room{std::clamp(width, 0, kLargestSide), std::clamp(height, 0, kLargestSide), fit};
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(room_, room) == room || expected_ == 0) return;
  }
  toThread_([this] { remake(); });
}

std::shared_ptr<const VideoFrame> VideoFrames::newest() {
  const std::lock_guard lock(mutex_);
  told_ = false;
  return newest_;
}

void VideoFrames::expect(int file) {
  std::unique_lock lock(mutex_);
  expected_ = file;
  const bool had = newest_ != nullptr;
  lock.unlock();
  if (had) publish(nullptr);
}

void VideoFrames::setSource(int file) {
  const std::scoped_lock lock(planesMutex_, mutex_);
  source_ = file;
  decoded_ = false;
  ready_.reset();
}

// libVLC hands over the size that the decoder works in, with rows and columns beyond the visible
// ones. It fills whatever size is asked for with the visible part.
unsigned VideoFrames::begin(unsigned* width, unsigned* height, unsigned* pitches, unsigned* lines) {
  int w = static_cast<int>(*width), h = static_cast<int>(*height);
  if (w <= 0 || h <= 0 || w > kLargestSide || h > kLargestSide) return 0;
  const VideoShape seen = shape ? shape() : VideoShape();
  if (w >= seen.width && h >= seen.height && w - seen.width < kMostPadding &&
      h - seen.height < kMostPadding && seen.width > 0 && seen.height > 0) {
    *width = static_cast<unsigned>(w = seen.width);
    *height = static_cast<unsigned>(h = seen.height);
  }
  const std::lock_guard lock(planesMutex_);
  width_ = w;
  height_ = h;
  pixelShape_ = seen.pixel;
  seen_ = seen;
  shapesToAsk_ = kShapesAsked;
  decoded_ = false;
  planes_.resize(planarSize(w, h));
  pitches[0] = *width;
  pitches[1] = pitches[2] = static_cast<unsigned>(chroma(w));
  lines[0] = *height;
  lines[1] = lines[2] = static_cast<unsigned>(chroma(h));
  return 1;
}

// Where a picture changes its size in the middle of a movie, libVLC says what it is like a few
// frames after it has begun; the planes then hold it stretched to what was known before.
void VideoFrames::lockPlanes() {
  const bool ask = shapesToAsk_ > 0 && shape;
  if (ask) --shapesToAsk_;
  const VideoShape seen = ask ? shape() : VideoShape();
  planesMutex_.lock();
  if (!ask || seen == seen_ || seen.width <= 0 || seen.height <= 0) return;
  seen_ = seen;
  pixelShape_ = seen.pixel * seen.width / seen.height * height_ / width_;
}

uchar* VideoFrames::plane(int index) {
  const size_t luma = static_cast<size_t>(width_) * static_cast<size_t>(height_);
  const size_t colour = static_cast<size_t>(chroma(width_)) * static_cast<size_t>(chroma(height_));
  return planes_.data() + (index == 0 ? 0 : luma + (index == 2 ? colour : 0));
}

void VideoFrames::attach(const VlcLibrary& vlc, libvlc_media_player_t* player) {
  vlc.libvlc_video_set_callbacks(
      player,
      [](void* self, void** planes) -> void* {
        auto& frames = *static_cast<VideoFrames*>(self);
        frames.lockPlanes();
        for (int i = 0; i < 3; ++i) planes[i] = frames.plane(i);
        return nullptr;
      },
      [](void* self, void*, void* const*) {
        auto& frames = *static_cast<VideoFrames*>(self);
        frames.decoded_ = true;
        frames.ready_ = frames.made();
        frames.planesMutex_.unlock();
      },
      [](void* self, void*) {
        auto& frames = *static_cast<VideoFrames*>(self);
        std::unique_lock lock(frames.planesMutex_);
        std::shared_ptr<Owned> frame = std::move(frames.ready_);
        frames.ready_.reset();
        if (!frame) return;
        bool stale = false;
        {
          const std::lock_guard roomLock(frames.mutex_);
          stale = frame->room != frames.room_;
        }
        if (stale) frame = frames.made();
        lock.unlock();
        if (frame) frames.publish(std::move(frame));
      },
      this);
  vlc.libvlc_video_set_format_callbacks(
      player,
      [](void** self, char* kind, unsigned* width, unsigned* height, unsigned* pitches,
         unsigned* lines) -> unsigned {
        std::memcpy(kind, "I420", 4);
        return static_cast<VideoFrames*>(*self)->begin(width, height, pitches, lines);
      },
      nullptr);
}

// A frame is free when only the pool has it.
std::shared_ptr<VideoFrames::Owned> VideoFrames::spare() {
  int held = 0;
  std::shared_ptr<Owned> free;
  for (const std::shared_ptr<Owned>& frame : pool_) {
    const long own = 1 + (frame == newest_) + (frame == ready_);
    if (frame.use_count() > own) ++held;
    if (frame.use_count() == 1) free = frame;
  }
  if (held >= kMostHeld) return nullptr;
  std::atomic_thread_fence(std::memory_order_acquire);  // the last holder's reads came before
  if (!free) pool_.push_back(free = std::make_shared<Owned>());
  return free;
}

std::shared_ptr<VideoFrames::Owned> VideoFrames::made() {
  std::shared_ptr<Owned> frame;
  VideoLayout layout;
  ready_.reset();
  {
    const std::lock_guard lock(mutex_);
    layout = layOut(width_, height_, pixelShape_, room_.width, room_.height, room_.fit);
    if (source_ != expected_ || !decoded_ || layout.toWidth <= 0) return nullptr;
    if (!(frame = spare())) return nullptr;
    frame->room = room_;
  }
  const int w = layout.toWidth, h = layout.toHeight;
  frame->setSize(w, h);
  const int pitch = width_, colourPitch = chroma(width_);
  const uchar* from[3] = {
      plane(0) + layout.y * pitch + layout.x,
      plane(1) + layout.y / 2 * colourPitch + layout.x / 2,
      plane(2) + layout.y / 2 * colourPitch + layout.x / 2,
  };
  int fromPitch = pitch, fromColourPitch = colourPitch;
  if (w != layout.width || h != layout.height) {
    scaled_.resize(planarSize(w, h));
    uchar* y = scaled_.data();
    uchar* u = y + static_cast<size_t>(w) * static_cast<size_t>(h);
    uchar* v = u + static_cast<size_t>(chroma(w)) * static_cast<size_t>(chroma(h));
    // The cheap filter sees two pixels each way, enough down to a half.
    const bool small = 2 * w < layout.width || 2 * h < layout.height;
    libyuv::I420Scale(from[0], pitch, from[1], colourPitch, from[2], colourPitch, layout.width,
                      layout.height, y, w, u, chroma(w), v, chroma(w), w, h,
                      small ? libyuv::kFilterBox : libyuv::kFilterBilinear);
    from[0] = y, from[1] = u, from[2] = v;
    fromPitch = w;
    fromColourPitch = chroma(w);
  }
  libyuv::I420ToARGBMatrix(
      from[0], fromPitch, from[1], fromColourPitch, from[2], fromColourPitch, frame->bytes.get(),
      static_cast<int>(frame->rowBytes),
      height_ > kLargestStandardHeight ? &libyuv::kYuvH709Constants : &libyuv::kYuvI601Constants, w,
      h);
  return frame;
}

// A new picture of the same moment, for a room that has changed.
void VideoFrames::remake() {
  std::unique_lock lock(planesMutex_);
  std::shared_ptr<Owned> frame = made();
  lock.unlock();
  if (frame) publish(std::move(frame));
}

void VideoFrames::publish(std::shared_ptr<Owned> frame) {
  const std::lock_guard lock(mutex_);
  if (frame && source_ != expected_) return;
  newest_ = std::move(frame);
  if (std::exchange(told_, true)) return;
  toLoop_([this] {
    if (events_) events_->pictureChanged();
  });
}

}  // namespace korvane

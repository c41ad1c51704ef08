// Paints the frames of a VideoPicture on a widget, unscaled and without a copy of them.
#pragma once

#include <QRect>
#include <memory>

#include "platform/video_player.h"

class QPainter;
class QRegion;
class QWidget;

namespace korvane {

class VideoSurface : private VideoPicture::Events {
 public:
  // `on` outlives it and paints by paint() alone: it must be opaque.
  explicit VideoSurface(QWidget& on) : on_(on) {}
  ~VideoSurface() override { letGo(); }
  VideoSurface(const VideoSurface&) = delete;

  // Hears `picture`, null for none, and gives it `room`, in device pixels; an empty one while
  // nothing shows. A picture that another surface still has goes over to this one, which then alone
  // hears it, in whatever order the two are told. The frame at hand is painted at once.
  void follow(VideoPicture* picture, VideoFit fit, QSize room);

  // `dirty`, in the widget's own pixels: the frame in the middle, black beside it.
  void paint(QPainter& painter, const QRegion& dirty);

  QSize frameSize() const;                  // of the newest one, in pixels; empty without one
  int painted() const { return painted_; }  // frames, each counted once

 private:
  void pictureChanged() override;
  void letGo();
  QRect place() const;  // of the frame in the room
  void updatePlace(QRect place);

  QWidget& on_;
  VideoPicture* picture_ = nullptr;
  VideoFit fit_ = VideoFit::Whole;
  QSize room_;
  std::shared_ptr<const VideoFrame> frame_;
  bool fresh_ = false;  // the frame is not painted yet
  int painted_ = 0;
};

}  // namespace korvane

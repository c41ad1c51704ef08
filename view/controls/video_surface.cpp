#include "view/controls/video_surface.h"

#include <QPainter>
#include <QWidget>
#include <map>

namespace korvane {
namespace {

constexpr int kRounding = 3;  // pixels that a player's rounding may take from a frame

// A picture has one who hears it and cannot say whom.
std::map<VideoPicture*, VideoSurface*>& holders() {
  static std::map<VideoPicture*, VideoSurface*> all;
  return all;
}

bool agree(QSize one, QSize other) {
  return std::abs(one.width() - other.width()) <= kRounding &&
         std::abs(one.height() - other.height()) <= kRounding;
}

}  // namespace

void VideoSurface::follow(VideoPicture* picture, VideoFit fit, QSize room) {
  if (picture == picture_ && fit == fit_ && room == room_) return;
  fit_ = fit;
  room_ = room;
  if (picture != picture_) {
    letGo();
    on_.update();
    if (!picture) return;
    VideoSurface*& holder = holders()[picture];
    if (holder) {
      holder->picture_ = nullptr;
      holder->frame_ = nullptr;
      holder->on_.update();
    }
    holder = this;
    picture_ = picture;
    picture->setEvents(this);
    frame_ = picture->newest();
    fresh_ = frame_ != nullptr;
  }
  if (picture_) picture_->setRoom(room_.width(), room_.height(), fit_);
  on_.update();
}

void VideoSurface::letGo() {
  if (picture_) {
    holders().erase(picture_);
    picture_->setEvents(nullptr);
    picture_->setRoom(0, 0, fit_);
  }
  picture_ = nullptr;
  frame_ = nullptr;
}

void VideoSurface::pictureChanged() {
  const QRect before = place();
  frame_ = picture_->newest();
  fresh_ = frame_ != nullptr;
  updatePlace(before | place());
}

void VideoSurface::updatePlace(QRect place) {
  const double ratio = on_.devicePixelRatioF();
  on_.update(
      QRectF(place.x() / ratio, place.y() / ratio, place.width() / ratio, place.height() / ratio)
          .toAlignedRect());
}

QSize VideoSurface::frameSize() const {
  return frame_ ? QSize(frame_->width, frame_->height) : QSize();
}

QRect VideoSurface::place() const {
  if (!frame_ || room_.isEmpty()) return {};
  const QSize is = frameSize();
  QSize due = room_;
  if (fit_ != VideoFit::Stretched)
    due = is.scaled(room_,
                    fit_ == VideoFit::Whole ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding);
  if (agree(is, due)) due = is;
  return QRect(QPoint((room_.width() - due.width()) / 2, (room_.height() - due.height()) / 2), due);
}

void VideoSurface::paint(QPainter& painter, const QRegion& dirty) {
  const QRect to = place();
  const double ratio = on_.devicePixelRatioF();
  const QRect covered(
      QPoint(qCeil(to.left() / ratio), qCeil(to.top() / ratio)),
      QPoint(qFloor((to.right() + 1) / ratio) - 1, qFloor((to.bottom() + 1) / ratio) - 1));
  for (const QRect& bar : frame_ ? dirty - covered : dirty) painter.fillRect(bar, Qt::black);
  if (to.isEmpty()) return;
  const QImage image(frame_->pixels, frame_->width, frame_->height, frame_->rowBytes,
                     QImage::Format_RGB32);
  painter.scale(1 / ratio, 1 / ratio);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(to, image);
  if (std::exchange(fresh_, false)) ++painted_;
}

}  // namespace korvane

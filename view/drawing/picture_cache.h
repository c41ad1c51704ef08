// Pictures at the exact size of the screen: each decoded or drawn once per size and kept up to a
// limit of memory, the ones not used for longest leaving first.
#pragma once

#include <QCache>
#include <QPixmap>

#include "core/graphics.h"
#include "view/drawing/draw_ahead.h"

namespace korvane {

class PictureCache {
 public:
  explicit PictureCache(Graphics& graphics);

  // The picture at `size` device pixels; for Fit::Inside at the largest size inside it. Null for an
  // empty, missing or broken picture.
  QPixmap pixmap(const Picture& picture, QSize size, Fit fit = Fit::Inside);

  // Begins to draw what pixmap() or render() will soon be asked for.
  void prepare(const Picture& picture, QSize size, Fit fit = Fit::Inside);

  // The same without keeping it, for what is as large as the screen.
  QPixmap render(const Picture& picture, QSize size, Fit fit);

  // The theme's pressed partner, the name with "b" added; nothing when there is none.
  std::optional<Picture> pressedPartner(const Picture& picture);

 private:
  struct Kept {
    std::shared_ptr<const void> owner;
    QPixmap pixmap;
  };

  PictureSource source(const Picture& picture) const;
  QImage drawn(const PictureSource& source, QSize size, Fit fit);

  Graphics& graphics_;
  QCache<PictureKey, Kept> kept_;
  DrawAhead ahead_;
};

}  // namespace korvane

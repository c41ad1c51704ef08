// Pictures at the exact size of the screen: each decoded or drawn once per size and kept up to a
// limit of memory, the ones not used for longest leaving first. Decoded pixels that have the size
// already are given as they are: neither copied nor kept. Of the user-interface thread.
#pragma once

#include <QCache>
#include <QPixmap>
#include <QPointer>

#include "core/graphics.h"
#include "view/drawing/draw_ahead.h"

namespace korvane {

class PictureCache {
 public:
  explicit PictureCache(Graphics& graphics);  // which must outlive it

  // The picture at `size` device pixels; for Fit::Inside at the largest size inside it. Null for an
  // empty, missing or broken picture.
  QPixmap pixmap(const Picture& picture, QSize size, Fit fit = Fit::Inside);

  // The same without drawing here: nothing while a thread draws it. whenDrawn() tells when to ask
  // again.
  std::optional<QPixmap> drawnPixmap(const Picture& picture, QSize size);
  // Runs `again` once, from the event loop, when a picture that drawnPixmap() did not have is
  // there; never when `who` has gone. One for each `who`.
  void whenDrawn(QObject* who, std::function<void()> again);

  // Begins to draw what pixmap() or render() will soon be asked for.
  void prepare(const Picture& picture, QSize size, Fit fit = Fit::Inside);

  // The same without keeping it, for what is as large as the screen.
  QPixmap render(const Picture& picture, QSize size, Fit fit);

  // The theme's pressed partner, the name with "b" added; nothing when there is none.
  std::optional<Picture> pressedPartner(const Picture& picture);

 private:
  struct Kept {
    std::weak_ptr<const void> owner;  // another may stand at its address once it has gone
    QPixmap pixmap;
  };
  const Kept* kept(const PictureKey& key) const;

  PictureSource source(const Picture& picture) const;
  QPixmap keep(const PictureKey& key, const PictureSource& source, QImage image);
  void takeDrawn();
  QImage drawn(const PictureSource& source, QSize size, Fit fit);

  Graphics& graphics_;
  QCache<PictureKey, Kept> kept_;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
  QObject here_;  // of the thread that paints
  DrawAhead ahead_;
};

}  // namespace korvane

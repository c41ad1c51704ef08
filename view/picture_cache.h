// Pictures at the exact size of the screen: each decoded or drawn once per size and kept up to a
// limit of memory, the ones not used for longest leaving first.
#pragma once

#include <QCache>
#include <QPixmap>

#include "core/graphics.h"

namespace korvane {

enum class Fit {
  Inside,   // whole and undistorted, centred by the one who paints it
  Cover,    // fills the size, undistorted, what stands over cut off
  Stretch,  // fills the size
};

class PictureCache {
 public:
  explicit PictureCache(Graphics& graphics);

  // The picture at `size` device pixels; for Fit::Inside at the largest size inside it. Null for an
  // empty, missing or broken picture.
  QPixmap pixmap(const Picture& picture, QSize size, Fit fit = Fit::Inside);

  // The same without keeping it, for what is as large as the screen.
  QPixmap render(const Picture& picture, QSize size, Fit fit) const;

  // The theme's pressed partner, the name with "b" added; nothing when there is none.
  std::optional<Picture> pressedPartner(const Picture& picture);

 private:
  struct Source {
    std::shared_ptr<const void> owner;  // keeps the bytes, and with them the key, alive
    QByteArray bytes;
    bool svg = false;
  };
  struct Key {
    const void* source;
    int width, height;
    Fit fit;
    bool operator==(const Key&) const = default;
    friend size_t qHash(const Key& key, size_t seed) {
      return qHashMulti(seed, key.source, key.width, key.height, static_cast<int>(key.fit));
    }
  };
  struct Kept {
    std::shared_ptr<const void> owner;
    QPixmap pixmap;
  };

  Source source(const Picture& picture) const;
  static QPixmap drawn(const Source& source, QSize size, Fit fit);

  Graphics& graphics_;
  QCache<Key, Kept> kept_;
};

}  // namespace korvane

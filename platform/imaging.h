// The reader, turner and writer of picture files. All members may be called from any thread,
// several at once; they wait for the disk and the processor, so the event loop calls none of them
// but mayRead(). A file whose pixels would need more than kMostBytes is refused in words.
#pragma once

#include <QDateTime>

#include "platform/pixels.h"

namespace korvane {

class Imaging {
 public:
  static constexpr qint64 kMostBytes = 256 << 20;  // of one decoded picture

  virtual ~Imaging() = default;

  // What a file says of itself in its first bytes. Nothing is decoded.
  struct About {
    int width = 0, height = 0;  // pixels, as it is shown with `upright`; 0 when it is no picture
    int orientation = 1;        // of EXIF, 1 to 8
    QDateTime taken;            // of EXIF, in local time; invalid where it says none
    QString error;              // why it cannot be read, in words; empty when it can
  };
  virtual About about(const QString& path, bool upright) const = 0;

  // Whether a file of that name may be one that load() reads: its kind has a decoder here.
  virtual bool mayRead(QStringView name) const = 0;

  struct Reading {
    int width = 0, height = 0;  // pixels of the box that it is for; 0 for the whole picture
    bool cover = false;         // fills the box, as large as it must be; else lies inside it
    bool upright = true;        // obeys the orientation of EXIF
    bool enlarge = false;       // a smaller picture is made as large as the box
  };
  struct Loaded {
    std::shared_ptr<const Pixels> pixels;  // null when it could not be read
    int width = 0, height = 0;             // of the whole picture
    QString error;                         // why, in words; empty when it could
  };
  // First by the decoders of kinds, then, where they refuse the file, by whatever its bytes are.
  virtual Loaded load(const QString& path, const Reading& reading) const = 0;

  // As a JPEG file of 24 bits, `quality` from 1 to 100. Empty when there is no memory for it.
  virtual QByteArray jpeg(const Pixels& pixels, int quality) const = 0;

  // The bytes of the file turned by 90, 180 or 270 degrees clockwise, for the caller to save.
  // With `keepKind` a file stays of its kind, and a JPEG is turned without loss where its size
  // allows; else every one becomes a JPEG. What the file says beside its pixels is kept in a JPEG,
  // its orientation set to upright where `upright` reads it so. Empty with `error` in words.
  virtual QByteArray turned(const QString& path, int degrees, bool keepKind, bool upright,
                            QString* error) const = 0;

  // Of a picture in memory.
  virtual std::shared_ptr<const Pixels> turned(const Pixels& pixels, int degrees) const = 0;
  virtual std::shared_ptr<const Pixels> scaled(const Pixels& pixels, int width,
                                               int height) const = 0;
  // Brighter: each colour value becomes 255 * (value / 255) ^ (1 / gamma), then `contrast` times
  // its distance from the middle, both 1 for no change.
  virtual std::shared_ptr<const Pixels> brightened(const Pixels& pixels, double gamma,
                                                   double contrast) const = 0;
};

// The size of `width` x `height` pixels fitted into a box, its shape kept; at least 1 x 1.
struct FittedSize {
  int width = 0, height = 0;
};
FittedSize fittedSize(int width, int height, int boxWidth, int boxHeight);

}  // namespace korvane

// HEIC and AVIF by libheif. Everything may be called from any thread.
#pragma once

#include <QDateTime>

#include "platform/imaging/pixel_buffer.h"

namespace korvane {

// Whether a decoder of such files is installed: HEIC or, with `avif`, AVIF.
bool canReadHeif(bool avif);

// A file of one of the two kinds, opened. Such a file says itself how its picture is to be turned,
// apart from EXIF, and what comes of it is upright always.
class HeifFile {
 public:
  explicit HeifFile(const QByteArray& path);  // bytes of a path
  ~HeifFile();
  HeifFile(const HeifFile&) = delete;

  // Of the main picture, upright; 0 when there is none.
  int width() const;
  int height() const;
  QDateTime taken() const;  // of EXIF; invalid when it does not say
  // Of its own size. Null when it cannot be decoded.
  std::shared_ptr<const Pixels> decode();
  const QString& fault() const { return fault_; }  // in words; empty when there was none

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
  QString fault_;
};

}  // namespace korvane

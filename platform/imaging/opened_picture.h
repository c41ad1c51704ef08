// A picture file that has been opened, and what its first bytes say.
#pragma once

#include <QFile>

#include "platform/imaging/exif.h"
#include "platform/imaging/jpeg_segments.h"
#include "platform/imaging/picture_kind.h"
#include "platform/text.h"

namespace korvane {

class OpenedPicture {
 public:
  // Only regular files are opened; the name may be any bytes (path_text.h).
  explicit OpenedPicture(const QString& path);

  PictureKind kind() const { return kind_; }       // None with fault()
  const QString& fault() const { return fault_; }  // in words; empty when there was none
  const QByteArray& pathBytes() const { return path_; }

  // The first 64 KiB, of a JPEG as much as it takes to reach its pixels, at most 4 MiB.
  const QByteArray& start() const { return start_; }
  // All of it. Empty with fault() when it cannot be read or is longer than kMostBytes.
  QByteArray whole();
  // To read from the first byte on. Owned by this; nothing of it is mapped, so that a card
  // that is pulled out ends in an error and not in a signal.
  QIODevice& device();

  // Of a JPEG or TIFF.
  const JpegHead& jpeg() const { return jpeg_; }
  const Exif& exif() const { return exif_; }

 private:
  QByteArray read(qint64 limit);  // from the start
  void readJpegHead();

  QByteArray path_, start_;
  QFile file_;
  std::unique_ptr<QIODevice> copy_;
  PictureKind kind_ = PictureKind::None;
  JpegHead jpeg_;
  Exif exif_;
  QString fault_;
};

}  // namespace korvane

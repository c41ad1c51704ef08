// Pictures by Qt's readers and writers of images, that is, of every kind but those with a decoder
// of their own here. Drawings (SVG) are left out: they are programs more than pictures, and a small
// one can take a reader hours. Everything may be called from any thread.
#pragma once

#include <QImage>
#include <QImageReader>

#include "platform/imaging/pixel_buffer.h"

namespace korvane {

// The picture in Qt's words and back, the bytes shared. An image that has not the form of Pixels is
// converted; a null one gives null.
QImage toImage(const Pixels& pixels);
std::shared_ptr<const Pixels> toPixels(QImage image);

// A reader of the picture that `device` stands before. Not over Imaging::kMostBytes.
class QtImage {
 public:
  explicit QtImage(QIODevice& device);  // not owned; outlives it

  // As stored, not upright. Not valid where it cannot be read, with fault(), and where its kind
  // does not tell before it is read, without one.
  QSize size();
  // Null when it cannot be read. Of several pictures of an icon the largest, else the first.
  QImage read(QSize size);  // in that size, made so while it is read where its kind allows
  QImage read();            // as it is stored, in its own depth
  bool hasMore();           // pictures than one, be it pages or an animation

  const QByteArray& format() const { return format_; }  // as Qt names it; empty for none
  const QString& fault() const { return fault_; }       // in words; empty when there was none

 private:
  void chooseLargest();

  QImageReader reader_;
  QByteArray format_;
  QString fault_;
};

}  // namespace korvane

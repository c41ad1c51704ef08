// Picture files of every kind, looked at and loaded: each by the decoder of the kind that its first
// bytes say, whatever its name; a JPEG that stores its colours in an unusual way by Qt's reader.
// From any thread.
#pragma once

#include "platform/imaging.h"

namespace korvane {

Imaging::About aboutPicture(const QString& path, bool upright);
Imaging::Loaded loadPicture(const QString& path, const Imaging::Reading& reading);

// By area, so that no detail glitters. Null when there is no memory for it.
std::shared_ptr<const Pixels> scaledPixels(const Pixels& pixels, FittedSize size);

}  // namespace korvane

// GIF files (CompuServe, GIF 89a), which Qt reads but does not write.
#pragma once

#include <QImage>

namespace korvane {

// One picture, a pixel either opaque or clear. Its colours stay as they are where there are at most
// 256 of them, which holds for what came from a GIF; else each becomes one of 216. Empty when the
// picture is too large for the format or there is no memory for it.
QByteArray gifOf(const QImage& image);

}  // namespace korvane

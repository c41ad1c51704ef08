// Picture files turned and written anew in memory.
#pragma once

#include "platform/imaging.h"

namespace korvane {

// As Imaging::turned(path, ...). From any thread.
QByteArray turnPicture(const QString& path, int degrees, bool keepKind, bool upright,
                       QString* error);

}  // namespace korvane

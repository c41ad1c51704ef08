// The modes of the benchmark that read and write picture files, beside bare libjpeg-turbo. Each
// makes its pictures itself, prints one line of JSON and returns 0 when its aim was met.
#pragma once

#include "platform/text.h"

namespace korvane {

int benchThumbs(const QStringList& arguments);       // 200 thumbnails of 12 megapixels
int benchTurns(const QStringList& arguments);        // 50 turns of 12 megapixels, saved
int benchShowPicture(const QStringList& arguments);  // 24 megapixels for a screen of 1280x800

}  // namespace korvane

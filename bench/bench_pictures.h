// The modes of the benchmark that read and write picture files. Each makes its pictures itself,
// prints one line of JSON and returns 0 when what it checked held.
#pragma once

#include "platform/text.h"

namespace korvane {

// Beside bare libjpeg-turbo
int benchThumbs(const QStringList& arguments);       // 200 thumbnails of 12 megapixels
int benchTurns(const QStringList& arguments);        // 50 turns of 12 megapixels, saved
int benchShowPicture(const QStringList& arguments);  // 24 megapixels for a screen of 1280x800

// HOME is the program directory of a console; its settings are changed.
int benchSheet(const QStringList& arguments);  // HOME: the sheets of 100 and of 2,000 pictures
int benchShow(const QStringList& arguments);   // HOME: changes of 24 megapixels, decoded ahead

}  // namespace korvane

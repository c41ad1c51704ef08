// The kinds of picture files: by a name's suffix, and by the first bytes of a file.
#pragma once

#include "platform/text.h"

namespace korvane {

enum class PictureKind {
  None,  // no picture, or of a kind that is read by none here
  Jpeg,
  Heif,  // HEIC and AVIF
  AnimatedCursor,
  Other,  // one that Qt has a reader of
};

// By the bytes at the start of a file, of which 32 are enough.
PictureKind pictureKindOf(QByteArrayView start);

// By the suffix of a name, without regard to case; whether a decoder is there is not asked.
// `format` gets Qt's name of the format.
PictureKind pictureKindOfName(QStringView name, QByteArray* format = nullptr);

// Whether a picture of that format, by Qt's name, is read here at all.
bool isFormatRead(const QByteArray& format);

}  // namespace korvane

// ID3 tags (id3.org: "ID3 tag version 2.3.0", and Eric Kemp's ID3v1 with the track of version 1.1)
// as the bytes of a file.
#pragma once

#include "platform/cd_ripper.h"

namespace korvane {

QByteArray id3v2(const RipTags& tags);  // version 2.3, texts as UTF-16, the cover as front cover
QByteArray id3v1(const RipTags& tags);  // 128 bytes: Latin-1, texts of up to 30 letters

// The MIME type of a picture that tags can carry; empty for any other.
QByteArray coverType(const QByteArray& picture);

}  // namespace korvane

// The cover of an audio file of any kind: what coverArtBytes() finds, else the first picture that
// TagLib reads: ID3v2 of every version (id3.org), FLAC and Vorbis comment pictures (xiph.org), the
// covers of MP4.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

// Nothing without a picture, or when the file cannot be read; never more than 64 MiB. From any
// thread.
std::optional<QByteArray> anyCoverArtBytes(const QString& path);

}  // namespace korvane

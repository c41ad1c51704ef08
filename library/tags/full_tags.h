// The tag of any audio file, whatever its kind: ID3v2, Vorbis comment, MP4, APE, ASF...
#pragma once

#include "library/tags/audio_tags.h"

namespace korvane {

// Must run once before readFullTags is used: in which page 8-bit text of tags is written.
void setFullTagsPage(const CodePage& page);

// Nothing when the file has no tag, is no audio file or cannot be read. From any thread.
std::optional<AudioTags> readFullTags(const QString& path);

}  // namespace korvane

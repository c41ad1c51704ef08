// The comments of FLAC and Opus files (xiph.org, Vorbis I, section 5, "comment field and header").
#pragma once

#include "platform/cd_ripper.h"

namespace korvane {

// Names and values in UTF-8; empty values are left out.
inline std::vector<std::pair<const char*, QByteArray>> vorbisFields(const RipTags& tags) {
  std::vector<std::pair<const char*, QByteArray>> fields;
  const auto add = [&fields](const char* name, const QString& text) {
    if (!text.isEmpty()) fields.emplace_back(name, text.toUtf8());
  };
  add("TITLE", tags.title);
  add("ARTIST", tags.artist);
  add("ALBUM", tags.album);
  add("DATE", tags.year);
  add("GENRE", tags.genre);
  add("TRACKNUMBER", tags.track > 0 ? QString::number(tags.track) : QString());
  return fields;
}

}  // namespace korvane

// readID3v1: the five text fields of an ID3v1 tag, the last 128 bytes of a file.
//
// Layout (id3.org, "ID3v1"), offsets from 0: "TAG", title 3..32, artist 33..62, album 63..92, year
// 93..96, comment 97..126. The genre (127) and the track byte of ID3v1.1 are not looked at.
#pragma once

#include <array>
#include <optional>

#include "library/tags/code_page.h"

namespace korvane {

struct AudioTags {
  QString Title, Artist, Album, Comment, Year;
  int track = 0;  // never of an ID3v1 tag; 0 for none
  bool operator==(const AudioTags&) const = default;
};

inline constexpr qint64 kId3v1Size = 128;

// The fields of a tag given by its bytes; nothing unless there are 128 that begin with "TAG".
std::optional<AudioTags> tagsOfID3v1(QByteArrayView tail, const CodePage& page = CodePage());

// The same of a file; nothing as well when it is too short. Throws std::runtime_error when the file
// cannot be read.
std::optional<AudioTags> readID3v1(const QString& path, const CodePage& page = CodePage());

// The names of ID3v1's genre numbers.
inline constexpr int kGenres = 148;
const std::array<const char*, kGenres>& genreNames();

}  // namespace korvane

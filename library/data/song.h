// A row of the table Songs, and the widths of its columns in characters.
#pragma once

#include "platform/text.h"

namespace korvane {

struct Song {
  QString Artist, album, SongTitle, year, Comment, SongPath;
  qint64 SongID = 0;

  bool isFavorite() const { return year == "-1"_L1; }
  bool operator==(const Song&) const = default;
};

namespace width {
inline constexpr int Artist = 70, album = 70, SongTitle = 70, year = 4, Comment = 30;
inline constexpr int Tag = 30;  // title, artist, album and comment as a tag reader gives them
}  // namespace width

// The title without its track prefix: when the fourth character is a dash, what follows it;
// trimmed.
QString songTitleShown(const QString& title);

}  // namespace korvane

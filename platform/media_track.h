// A track of a movie or a disc that may be chosen: one of its sounds or of its subtitles.
#pragma once

#include <QList>

#include "platform/text.h"

namespace korvane {

enum class TrackKind { Sound, Subtitles };

struct MediaTrack {
  static constexpr int kNone = -1;  // no subtitles; no sound at hand

  int id = kNone;  // of this player and this file only
  QString name;    // for the user to read, as "English" or "Track 2"
  bool operator==(const MediaTrack&) const = default;
};

}  // namespace korvane

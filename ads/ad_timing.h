// The timing file of an ad, "ad1.tim" of "ad1.jpg": text, whose first line is a number of seconds
// and whose further ones are the hours in which the ad shows (ads/ad_hours.h), a line a range.
#pragma once

#include <vector>

#include "ads/ad_hours.h"

namespace korvane {

struct AdTiming {
  static constexpr qint64 kMostBytes = 4 << 20;  // of a file that is read at all

  int seconds = 0;
  std::vector<AdHours> hours;  // none: it always shows
  bool understood = true;      // every line of hours was
};

// The first line counts when it is a number above 0 and below 500, rounded, halves to the even
// one; else `seconds` stays. Of what follows blank lines and those that begin with ';' are left
// out, lines that say no hours too; so is all behind the first hundred lines.
AdTiming adTiming(QByteArrayView bytes, int seconds);

}  // namespace korvane

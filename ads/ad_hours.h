// When an ad may show: days and hours, as a line of its timing file says them.
//
//   [days] [from-to]     days: Mon, Mon-Fri, Sat,Sun or a mixture; all when left out
//                        from, to: HH:MM of 24 hours, 24:00 for the end of the day; the whole day
//                        when left out
//
// in any case, with blanks between the two. A range that ends before it begins goes on: Sat-Mon
// over Sunday, 22:00-02:00 into the next day.
#pragma once

#include <QDateTime>
#include <optional>

#include "platform/text.h"

namespace korvane {

struct AdHours {
  unsigned days = 0;           // a bit a day on which it begins, Monday the lowest
  int from = 0, to = 24 * 60;  // minutes of the day; up to, but without, `to`

  bool contains(const QDateTime& when) const;  // of local time
  bool operator==(const AdHours&) const = default;
};

// Nothing for a text that says none.
std::optional<AdHours> adHours(QStringView line);

}  // namespace korvane

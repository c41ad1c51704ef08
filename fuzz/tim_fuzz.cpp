// The reader of an ad's timing file on any bytes: it ends, an ad stays for 0 to 500 seconds or as
// long as it did, and its hours are of this week and day and few.
#include <cstdlib>

#include "ads/ad_timing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  constexpr int kStandard = 1000;
  const QByteArrayView file(data, static_cast<qsizetype>(size));
  const AdTiming timing = adTiming(file, kStandard);
  if (timing.seconds != kStandard && (timing.seconds < 0 || timing.seconds > 500)) std::abort();
  if (timing.hours.size() > 100) std::abort();
  for (const AdHours& hours : timing.hours) {
    const bool inDay = hours.from >= 0 && hours.from < 1440 && hours.to >= 0 && hours.to <= 1440;
    if (hours.days == 0 || hours.days > 127 || !inDay || hours.from == hours.to) std::abort();
    int hoursIn = 0;
    const QDateTime monday(QDate(2024, 3, 4), QTime(0, 0));
    for (int hour = 0; hour < 7 * 24; ++hour)
      hoursIn += hours.contains(monday.addSecs(hour * 3600));
    if (hoursIn == 0 && (hours.to - hours.from + 1440) % 1440 > 60) std::abort();
  }
  return 0;
}

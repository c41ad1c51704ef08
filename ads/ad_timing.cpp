#include "ads/ad_timing.h"

#include "core/conversions.h"

namespace korvane {
namespace {

constexpr int kMostLines = 100;
constexpr qsizetype kLongestLine = 200;  // bytes; a longer one says nothing

// Takes the first line off `bytes`; lines end with LF, CR or both.
QString nextLine(QByteArrayView& bytes) {
  qsizetype end = 0;
  while (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r') ++end;
  const QByteArrayView line = bytes.first(end);
  const bool both = end + 1 < bytes.size() && bytes[end] == '\r' && bytes[end + 1] == '\n';
  bytes = bytes.sliced(std::min(end + (both ? 2 : 1), bytes.size()));
  return line.size() > kLongestLine ? u"?"_s : QString::fromLatin1(line);
}

}  // namespace

AdTiming adTiming(QByteArrayView bytes, int seconds) {
  constexpr double kTooMany = 500;
  AdTiming timing;
  timing.seconds = seconds;
  if (const auto number = numeric(nextLine(bytes)); number && *number > 0 && *number < kTooMany)
    timing.seconds = toInteger(*number);
  for (int lines = 0; lines < kMostLines && !bytes.isEmpty(); ++lines) {
    const QString line = nextLine(bytes).trimmed();
    if (line.isEmpty() || line.startsWith(u';')) continue;
    if (const auto hours = adHours(line))
      timing.hours.push_back(*hours);
    else
      timing.understood = false;
  }
  return timing;
}

}  // namespace korvane

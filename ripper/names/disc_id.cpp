#include "ripper/names/disc_id.h"

#include "platform/disc_drive.h"

namespace korvane {
namespace {

int digitSum(int number) {
  int sum = 0;
  for (int rest = std::abs(number); rest > 0; rest /= 10) sum += rest % 10;
  return sum;
}

QByteArray hexadecimal(int number, int width) {
  return QByteArray::number(static_cast<quint32>(number), 16).rightJustified(width, '0');
}

}  // namespace

QByteArray discIdentifier(std::span<const int> frames) {
  if (frames.empty()) return {};
  const auto seconds = [](int frame) { return frame / kSectorsPerSecond; };
  const std::span<const int> starts = frames.first(frames.size() - 1);
  int sum = 0;
  for (const int start : starts) sum += digitSum(seconds(start));
  const int length = seconds(frames.back()) - seconds(frames.front());
  return hexadecimal(sum % 255, 2) + hexadecimal(length, 4) +
         hexadecimal(static_cast<int>(starts.size()), 2);
}

}  // namespace korvane

#include "ripper/names/c_spti.h"

#include "platform/disc_drive.h"

namespace korvane {
namespace {

constexpr int kHead = 4, kDescriptor = 8, kMostTracks = 99;
constexpr int kLongest = kHead + kDescriptor * (kMostTracks + 1);  // with the lead-out
constexpr int kLimit = 5;                                          // s

constexpr quint8 kReadToc = 0x43, kMinutesSecondsFrames = 2, kTableOfContents = 0;
constexpr int kPosition = 16;  // in the address/control byte

}  // namespace

QString tocOfAnswer(QByteArrayView answer) {
  const auto byte = [&](int at) { return static_cast<quint8>(answer[at]); };
  if (answer.size() < kHead) return {};
  const int first = byte(2), last = byte(3), count = last - first + 1;
  if ((first == 0 && last == 0) || count > kMostTracks) return {};
  if (answer.size() < kHead + kDescriptor * (count + 1)) return {};
  QString text;
  bool isPosition = false;
  for (int i = 0; i <= count; ++i) {
    const int at = kHead + kDescriptor * i;
    isPosition |= (byte(at + 1) & kPosition) != 0;
    const int frames = kSectorsPerSecond * (byte(at + 5) * 60 + byte(at + 6)) + byte(at + 7);
    text += u' ' + QString::number(frames);
  }
  return isPosition ? text.trimmed() : QString();
}

bool cSPTI::InitMediaToc(const QString& drive) {
  const PacketDrive::Command command{kReadToc, kMinutesSecondsFrames, kTableOfContents, 0, 0, 0,
                                     0,        kLongest >> 8,         kLongest & 0xFF,  0};
  const std::optional<QByteArray> answer = packets_.read(drive, command, kLongest, kLimit);
  if (answer) toc_ = tocOfAnswer(*answer);
  return answer.has_value();
}

}  // namespace korvane

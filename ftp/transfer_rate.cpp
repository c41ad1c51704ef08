#include "ftp/transfer_rate.h"

namespace korvane {
namespace {

constexpr qint64 kSayMs = 250;
constexpr double kUnit = 1000;

QString duration(qint64 seconds) {
  if (seconds < 60) return u"%1 s"_s.arg(seconds);
  if (seconds < 3600) return u"%1 min %2 s"_s.arg(seconds / 60).arg(seconds % 60);
  return u"%1 h %2 min"_s.arg(seconds / 3600).arg(seconds / 60 % 60);
}

}  // namespace

QString bytesText(qint64 bytes) {
  if (static_cast<double>(bytes) < kUnit) return u"%1 bytes"_s.arg(bytes);
  double value = static_cast<double>(bytes);
  QString unit;
  for (const QString& next : {u"kB"_s, u"MB"_s, u"GB"_s, u"TB"_s}) {
    if (value < kUnit) break;
    value /= kUnit;
    unit = next;
  }
  return QString::number(value, 'f', 1) + u' ' + unit;
}

QString TransferRate::words(qint64 bytes, qint64 size, qint64 nowMs) {
  if (first_ < 0) first_ = bytes;
  if (nowMs - said_ < kSayMs && bytes < size) return {};
  said_ = nowMs;
  QString text = u"%1 of %2"_s.arg(bytesText(bytes), bytesText(size));
  const double seconds = static_cast<double>(nowMs - begun_) / 1000;
  const double rate = seconds > 0 ? static_cast<double>(bytes - first_) / seconds : 0;
  if (rate < 1) return text;
  text += u", %1/s"_s.arg(bytesText(static_cast<qint64>(rate)));
  if (bytes < size)
    text += u", %1 left"_s.arg(
        duration(static_cast<qint64>(static_cast<double>(size - bytes) / rate + 1)));
  return text;
}

}  // namespace korvane

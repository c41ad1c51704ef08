#include "ads/ad_log.h"

namespace korvane {
namespace {

constexpr qint64 kLargest = 1'000'000;
constexpr qsizetype kMostNoted = 4096;

}  // namespace

AdLog::AdLog(FileSystem& files, const Clock& clock, const QString& home)
    : files_(files),
      clock_(clock),
      path_(home + u"/AdLog.txt"_s),
      old_(home + u"/AdLog.old.txt"_s) {}

void AdLog::begins(const QString& name) {
  ends();
  name_ = name;
  since_ = clock_.now();
  sinceMs_ = clock_.monotonicMs();
}

void AdLog::ends() {
  if (name_.isEmpty()) return;
  QString name = std::exchange(name_, {});
  for (QChar& each : name)
    if (each.category() == QChar::Other_Control) each = u' ';
  const qint64 seconds = (clock_.monotonicMs() - sinceMs_ + 500) / 1000;
  noted_ += u"%1\t%2\t%3\n"_s.arg(since_.toString(u"yyyy-MM-dd HH:mm:ss"_s))
                .arg(seconds)
                .arg(name)
                .toUtf8();
  if (noted_.size() > kMostNoted) write();
}

void AdLog::write() {
  if (noted_.isEmpty()) return;
  if (files_.size(path_) > kLargest) files_.MoveFile(path_, old_);
  files_.append(path_, std::exchange(noted_, {}));
}

}  // namespace korvane

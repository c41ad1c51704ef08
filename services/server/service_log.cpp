#include "services/server/service_log.h"

#include <cstdio>

namespace korvane {
namespace {

constexpr int kMostLines = 100;
constexpr qint64 kWindowMs = 10'000;

// Under the journal a line begins with its priority (sd-daemon(3)).
QByteArray prefix(int priority) {
  static const bool journal = qEnvironmentVariableIsSet("JOURNAL_STREAM");
  return journal ? '<' + QByteArray::number(priority) + '>' : QByteArray();
}

}  // namespace

QString printable(QStringView text, qsizetype most) {
  QString shown = text.first(std::min(text.size(), most)).toString();
  for (QChar& c : shown)
    if (!c.isPrint()) c = u'?';
  return text.size() > most ? shown + u"..."_s : shown;
}

void ServiceLog::say(const QString& text) {
  line(6, text);
}

void ServiceLog::warn(const QString& text) {
  line(4, text);
}

void ServiceLog::line(int priority, const QString& text) {
  const qint64 now = clock_.monotonicMs();
  if (now - windowMs_ >= kWindowMs) {
    if (left_ > 0)
      write(prefix(4) + program_ + ": " + QByteArray::number(left_) + " lines left out\n");
    windowMs_ = now;
    inWindow_ = left_ = 0;
  }
  if (++inWindow_ > kMostLines) {
    ++left_;
    return;
  }
  write(prefix(priority) + program_ + ": " + printable(text, 500).toUtf8() + '\n');
}

void ServiceLog::write(const QByteArray& line) {
  std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
  std::fflush(stderr);
}

}  // namespace korvane

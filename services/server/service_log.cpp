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
  line(news_, text);
}

void ServiceLog::warn(const QString& text) {
  line(warnings_, text);
}

void ServiceLog::line(Budget& budget, const QString& text) {
  const QByteArray begin = prefix(budget.priority) + program_ + ": ";
  const auto put = [&](const QString& words) {
    if (++budget.lines > kMostLines)
      ++budget.leftOut;
    else
      write(begin + printable(words, 500).toUtf8() + '\n');
  };
  const qint64 now = clock_.monotonicMs();
  const bool anew = now - budget.sinceMs >= kWindowMs;
  if (!anew && text == budget.last) {
    ++budget.repeats;
    return;
  }
  if (anew) {
    if (budget.leftOut > 0) write(begin + QByteArray::number(budget.leftOut) + " lines left out\n");
    budget.sinceMs = now;
    budget.lines = budget.leftOut = 0;
  }
  if (const int times = std::exchange(budget.repeats, 0); times > 0)
    put(u"the last line %1 times more"_s.arg(times));
  budget.last = text;
  put(text);
}

void ServiceLog::write(const QByteArray& line) {
  std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
  std::fflush(stderr);
}

}  // namespace korvane

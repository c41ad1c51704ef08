// What a service says on standard error, a line each, which the journal keeps with its time. What
// comes from the network is shown without control characters, a line that repeats is counted in its
// place, and a flood of lines is cut.
#pragma once

#include "platform/clock.h"
#include "platform/text.h"

namespace korvane {

class ServiceLog {
 public:
  // Both must outlive it; `program` begins each line.
  ServiceLog(const Clock& clock, const char* program) : clock_(clock), program_(program) {}
  virtual ~ServiceLog() = default;

  void say(const QString& text);   // what goes on
  void warn(const QString& text);  // what an owner should look at

 protected:
  virtual void write(const QByteArray& line);  // with its end, as UTF-8

 private:
  struct Budget {  // of lines in a span of time, kept apart for news and for warnings
    const int priority;
    qint64 sinceMs = 0;
    int lines = 0, leftOut = 0;
    QString last = {};
    int repeats = 0;  // of `last`, since it was written
  };
  void line(Budget& budget, const QString& text);

  const Clock& clock_;
  const char* program_;
  Budget news_{6}, warnings_{4};
};

// For the log: at most so many characters, '?' for those that do not print.
QString printable(QStringView text, qsizetype most = 200);

}  // namespace korvane

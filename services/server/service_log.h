// What a service says on standard error, a line each, which the journal keeps with its time. What
// comes from the network is shown without control characters, and a flood of lines is cut.
#pragma once

#include "platform/clock.h"
#include "platform/text.h"

namespace korvane {

class ServiceLog {
 public:
  ServiceLog(const Clock& clock, const char* program) : clock_(clock), program_(program) {}
  virtual ~ServiceLog() = default;

  void say(const QString& text);   // what goes on
  void warn(const QString& text);  // what an owner should look at

 protected:
  virtual void write(const QByteArray& line);

 private:
  struct Budget {  // of lines in a span of time, kept apart for news and for warnings
    const int priority;
    qint64 sinceMs = 0;
    int lines = 0, leftOut = 0;
  };
  void line(Budget& budget, const QString& text);

  const Clock& clock_;
  const char* program_;
  Budget news_{6}, warnings_{4};
};

QString printable(QStringView text, qsizetype most = 200);  // for the log

}  // namespace korvane

// AdLog.txt of the program directory: what was shown when, a line an ad: "YYYY-MM-DD HH:MM:SS", the
// seconds that it stood, and its file name, with tabs between. With more than a million bytes it
// becomes AdLog.old.txt, in the place of the one before.
#pragma once

#include "platform/clock.h"
#include "platform/file_system.h"

namespace korvane {

class AdLog {
 public:
  AdLog(FileSystem& files, const Clock& clock, const QString& home);  // the doors outlive it

  void begins(const QString& name);  // an ad comes, and the one before it ends
  void ends();
  void write();  // what is noted goes to the disk; a failure loses it

 private:
  FileSystem& files_;
  const Clock& clock_;
  QString path_, old_;
  QString name_;  // that stands; empty for none
  QDateTime since_;
  qint64 sinceMs_ = 0;
  QByteArray noted_;
};

}  // namespace korvane

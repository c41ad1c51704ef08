#include "core/log.h"

namespace korvane {
namespace {
constexpr qint64 kLargestLog = 5'000'000;
}

Log::Log(FileSystem& files, const Clock& clock, const QString& home)
    : files_(files), clock_(clock), path_(home + u"/log.txt"_s) {}

void Log::logIt(const QString& text) const {
  if (files_.stamp(path_).size > kLargestLog) files_.DeleteFile(path_);
  const QString line = clock_.now().toString(u"MM/dd/yyyy HH:mm:ss"_s) + u' ' + text + u'\n';
  files_.append(path_, line.toUtf8());
}

void Log::error(int number, const QString& description, const char* procedure,
                const char* owner) const {
  logIt(u"Error %1 (%2) in procedure %3 of %4"_s.arg(QString::number(number), description,
                                                     QString::fromLatin1(procedure),
                                                     QString::fromLatin1(owner)));
}

}  // namespace korvane

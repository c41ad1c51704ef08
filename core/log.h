// log.txt of the program directory: "MM/DD/YYYY HH:NN:SS", a blank and the text, a line an entry.
#pragma once

#include <exception>

#include "platform/clock.h"
#include "platform/file_system.h"

namespace korvane {

class Log {
 public:
  // `home` is the program directory; the others must outlive the log.
  Log(FileSystem& files, const Clock& clock, const QString& home);

  // Never fails visibly. A log over 5,000,000 bytes starts anew.
  void logIt(const QString& text) const;

  // "Error <number> (<description>) in procedure <procedure> of <owner>", where `owner` reads
  // "Form frmMain", "Module Database" or "Class Module cFTP".
  void error(int number, const QString& description, const char* procedure,
             const char* owner) const;

  // Runs `body`; an exception becomes one line of error(). True when the body ended by itself.
  template <class Body>
  bool guard(const char* procedure, const char* owner, Body&& body) const {
    try {
      body();
      return true;
    } catch (const std::exception& failure) {
      error(5, QString::fromUtf8(failure.what()), procedure, owner);
      return false;
    }
  }

 private:
  FileSystem& files_;
  const Clock& clock_;
  QString path_;
};

}  // namespace korvane

// A program directory of its own on the real disk, gone when the test ends: a small "Morvanta.INI"
// and the theme "TEST" with a "COLORS.INI".
#pragma once

#include <QTemporaryDir>

#include "platform/text.h"

namespace korvane {

class TemporaryHome {
 public:
  TemporaryHome();  // throws when the disk refuses

  QString path() const { return directory_.path(); }
  QString operator/(const QString& name) const { return directory_.filePath(name); }

  // Writes a file below it, with its folders; returns its path.
  QString put(const QString& name, const QByteArray& bytes) const;
  QByteArray get(const QString& name) const;  // empty when missing
  void folder(const QString& name) const;

 private:
  QTemporaryDir directory_;
};

}  // namespace korvane

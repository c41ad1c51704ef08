// Keyboard layouts as data files, "Keyboards/NAME.keys" of the program directory. The format
// stands in docs/keyboards.md.
#pragma once

#include "core/log.h"
#include "core/settings.h"
#include "custom/keyboard/keyboard_layout.h"

namespace korvane {

// The US keyboard with the keys of a file put in; what is wrong with it, and its line, in `error`.
std::optional<KeyboardLayout> readKeyboard(const QString& name, const QByteArray& bytes,
                                           QString* error);

class KeyboardFiles {
 public:
  struct Uses {
    Settings& settings;
    const FileSystem& files;
    const Log& log;
  };
  explicit KeyboardFiles(Uses uses) : uses_(uses) {}

  QStringList names() const;  // "US" first, then those of the files, in upper case
  // The one that the settings name; the US keyboard, and a line in the log, when it cannot be read.
  KeyboardLayout chosen() const;
  bool choose(const QString& name, QString* error);  // false when it cannot be stored. Yields.

 private:
  QString folder() const { return uses_.settings.home() + u"/Keyboards"_s; }
  Uses uses_;
};

}  // namespace korvane

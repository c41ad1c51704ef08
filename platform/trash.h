// The trash can of the desktop, as freedesktop.org lays it out (Trash 1.0).
#pragma once

#include "platform/text.h"

namespace korvane {

class Trash {
 public:
  virtual ~Trash() = default;
  // The path in the trash that the file has now. Nothing when its volume has no trash can or the
  // file stays for another reason, with `error` in words.
  virtual std::optional<QString> put(const QString& path, QString* error) = 0;
  // Back to `path`, from where put() has laid it. False with `error` when it stays in the trash:
  // it is gone from there, or something has that name by now.
  virtual bool takeBack(const QString& inTrash, const QString& path, QString* error) = 0;
};

}  // namespace korvane

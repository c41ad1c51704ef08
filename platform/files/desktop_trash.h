// The trash can over the disk. A file goes into the can of its own volume: the user's own one, or
// ".Trash/UID" or ".Trash-UID" at the volume's top. It has no state: from any thread.
#pragma once

#include "platform/trash.h"

namespace korvane {

class DesktopTrash final : public Trash {
 public:
  std::optional<QString> put(const QString& path, QString* error) override;
  bool takeBack(const QString& inTrash, const QString& path, QString* error) override;
};

}  // namespace korvane

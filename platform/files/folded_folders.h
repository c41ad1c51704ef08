// What folders hold, by folded name: answers "which name on disk is meant by this one" without
// reading a folder twice. A remembered folder counts only while its time of change is the one it
// was read at, and was old enough then that a later change must show in it. Any thread.
#pragma once

#include <QHash>
#include <mutex>
#include <optional>

#include "platform/text.h"

namespace korvane {

class FoldedFolders {
 public:
  // The name in `folder` (both as bytes on disk) that equals `name` without regard to case, the
  // first by bytes when several do; nothing when there is none.
  std::optional<QByteArray> nameOf(const QByteArray& folder, const QString& name);

 private:
  struct Contents {
    qint64 changed = 0;  // nanoseconds
    quint64 device = 0, inode = 0;
    bool settled = false;  // the folder had not changed for a while when it was read
    QHash<QString, QByteArray> names;
  };
  const Contents* contents(const QByteArray& folder);

  std::mutex mutex_;
  QHash<QByteArray, Contents> folders_;
};

}  // namespace korvane

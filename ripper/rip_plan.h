// ripit: from ticked tracks to a run. Makes the folders of the album and says where each file goes
// and what the library says of it.
#pragma once

#include "core/log.h"
#include "core/settings.h"
#include "ripper/rip_run.h"

namespace korvane {

struct RipRequest {
  struct Row {
    int track = 0;  // of the disc, and its row in the list
    QString title;
    int seconds = 0;
  };
  QString ripPath, source, artist, album, year, genre;
  std::vector<Row> rows;
};

class RipPlan {
 public:
  static constexpr int kMost = 50;  // tracks of one run

  struct Uses {  // none owned
    FileSystem& files;
    const Settings& settings;
    // Bytes that may still be written there; 0 when that cannot be told.
    std::function<qint64(const QString& folder)> freeSpace;
  };
  explicit RipPlan(Uses uses) : uses_(std::move(uses)) {}

  // Nothing, with `why` in words for the user, when the tracks have no room or a folder cannot be
  // made. A file that the library will name, and that no ripped file replaces, is deleted.
  std::optional<RipOrder> make(const RipRequest& request, QString* why) const;

  qint64 freeSpace(const QString& folder) const;  // of the nearest folder that there is

 private:
  bool hasRoom(const RipRequest& request, RipFormat format, QString* why) const;
  bool makeFolders(const QStringList& folders, QString* why) const;
  std::optional<RipTags> tagsOf(const RipRequest& request, const RipRequest::Row& row,
                                const QByteArray& cover) const;
  RipFormat format() const;

  const Uses uses_;
};

}  // namespace korvane

// adsList: the ads of the directory ADDS beside the program in the order of their names, and where
// the show stands among them.
#pragma once

#include "ads/ad_timing.h"
#include "platform/file_system.h"

namespace korvane {

struct Ad {
  QString aName, aPath;
  int aTime = 0;  // seconds
  std::vector<AdHours> hours;
  bool due(const QDateTime& when) const;
};

class AdList {
 public:
  void open(std::vector<Ad> ads);  // at the first
  int RecordCount() const { return static_cast<int>(ads_.size()); }
  bool EndOfFile() const { return at_ >= RecordCount(); }
  void MoveFirst() { at_ = 0; }
  void MoveNext() { at_ = std::min(at_ + 1, RecordCount()); }

  // The one at hand or, with `hour`, the first from there on that shows at that time; behind the
  // last the first follows. The list then stands there. Null for none.
  const Ad* take(const std::optional<QDateTime>& hour);
  bool anyDue(const std::optional<QDateTime>& hour) const;

 private:
  std::vector<Ad> ads_;
  int at_ = 0;
};

// Reads the directory and the timing files; waits for the disk, from any thread.
struct AdsFound {
  std::vector<Ad> ads;
  QStringList complaints;  // lines for the log
};
AdsFound findAds(const FileSystem& files, const QString& directory, int standardSeconds);

}  // namespace korvane

// A listing of a folder of the server: cDirList, the collection of its entries, cDirItem.
#pragma once

#include <QDateTime>
#include <QHash>
#include <vector>

#include "platform/text.h"

namespace korvane {

struct cDirItem {
  // In the order of the nine marks.
  enum Attribute : unsigned {
    Archive = 1,
    Compressed = 2,
    Directory = 4,
    Hidden = 8,
    Normal = 16,
    Offline = 32,
    ReadOnly = 64,
    System = 128,
    Temporary = 256
  };

  QString fileName;  // as it is shown: UTF-8 where the bytes are, else Windows-1252
  QByteArray bytes;  // as the server wrote it, and as it wants it
  qint64 size = 0;
  QDateTime created, accessed, modified;  // local time; invalid where the server did not tell
  unsigned attributes = 0;
  bool link = false;  // to what is a file or a folder: it has to be tried

  bool directory() const { return attributes & Directory; }
};

// " A " to " T " in their fixed order, " - " for each that does not apply.
QString attributeText(unsigned attributes);

// In the order of the server, by number from 1 or by the file name as its key. Of two with the same
// name the first stays.
class cDirList {
 public:
  void Add(cDirItem item);
  void Clear();
  int Count() const { return static_cast<int>(items_.size()); }
  const cDirItem* item(int number) const;  // null where there is none
  const cDirItem* item(const QString& fileName) const;

  // NewEnum: in order.
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<cDirItem> items_;
  QHash<QString, int> byName_;
};

}  // namespace korvane

// Reads the directories of a tree, as deep as a scan looks and no deeper.
//
// Names are bytes as on disk, in the order of the disk. Links are followed, except to a directory
// that holds the link: a loop ends there.
#pragma once

#include <functional>
#include <vector>

#include "platform/text.h"

namespace korvane {

struct Folder {
  QByteArray path;
  int depth = 0;  // 0 for the root
  std::vector<QByteArray> files;
};

class FolderWalk {
 public:
  // Goes on while `found` answers true. `failed` hears of what cannot be read: path and reason.
  using Found = std::function<bool(Folder)>;
  using Failed = std::function<void(const QByteArray& path, int error)>;

  // Gives the folders from `shallowest` to `deepest` levels below the root, each before those in
  // it.
  FolderWalk(int shallowest, int deepest, Found found, Failed failed);
  void run(const QByteArray& root);  // calls both from within; once at a time

 private:
  struct Id {
    quint64 device, inode;
    bool operator==(const Id&) const = default;
  };
  bool visit(const QByteArray& path, int depth);

  const int shallowest_, deepest_;
  Found found_;
  Failed failed_;
  std::vector<Id> above_;  // the directories that hold the one at hand
};

}  // namespace korvane

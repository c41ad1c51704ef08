// The one binary payload of the Music Listener: a picture that follows its announcement in
// deliveries of its own and is kept as coverArt.jpg of the program directory.
#pragma once

#include <optional>

#include "platform/file_system.h"

namespace korvane {

class CoverTransfer {
 public:
  static constexpr double kLargest = 64 << 20;  // bytes; a larger picture is not taken

  CoverTransfer(FileSystem& files, const QString& home);  // the program directory

  bool receivingCoverArt() const { return receiving_; }  // deliveries are for take()
  void begin(double coverArtSize);  // deletes the picture before; nothing for a size that cannot be
  void cancel() { receiving_ = false; }  // what has come stays in the file

  // Adds a delivery. The whole picture once its size has come; until then, or when the file cannot
  // be read back, nothing.
  std::optional<QByteArray> take(const QByteArray& bytes);

 private:
  FileSystem& files_;
  const QString path_;
  qint64 coverArtSize_ = 0, received_ = 0;
  bool receiving_ = false;
};

}  // namespace korvane

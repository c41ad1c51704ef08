#include "listener/cover_transfer.h"

namespace korvane {

CoverTransfer::CoverTransfer(FileSystem& files, const QString& home)
    : files_(files), path_(home + u"/coverArt.jpg"_s) {}

void CoverTransfer::begin(double coverArtSize) {
  if (!(coverArtSize >= 0 && coverArtSize <= kLargest)) return;
  coverArtSize_ = static_cast<qint64>(coverArtSize);
  received_ = 0;
  receiving_ = true;
  if (files_.FileExists(path_)) files_.DeleteFile(path_);
}

std::optional<QByteArray> CoverTransfer::take(const QByteArray& bytes) {
  files_.append(path_, bytes);
  received_ += bytes.size();  // not the file's length: a full disk must not hold the connection
  if (received_ < coverArtSize_) return std::nullopt;
  receiving_ = false;
  return files_.read(path_);
}

}  // namespace korvane

// The list file "Morvanta.idx" beside the database: the whole library in order, to be mapped, so
// that showing and searching a million songs touches a few pages. A cache: it says which state of
// the database it stands for, and is never trusted beyond its bounds.
//
// The file, numbers in the machine's own byte order: an IndexHeader, then each section of it at its
// offset (a multiple of 8):
//   sample     u64 of every 256th song: the high half of its key
//   high, low  u64 of every song in the order of titles: its text_order::Key
//   ids        u32 of every song in that order: SongID
//   artists    u32 offsets into text, one more than there are artists
//   albums     u32 offsets into text, two an album (album, artist) and one more
//   text       UTF-8 without separators
#pragma once

#include <QFile>
#include <memory>
#include <optional>
#include <span>

#include "library/data/text_order.h"
#include "platform/text.h"

namespace korvane {

// Which state of a database: of the file's header.
struct DatabaseStamp {
  uint32_t changes = 0;  // the file change counter
  uint32_t pages = 0;
  uint32_t library = 0;  // the library's number
  bool operator==(const DatabaseStamp&) const = default;

  // Of a file's first 100 bytes; nothing of fewer.
  static std::optional<DatabaseStamp> of(const std::optional<QByteArray>& header);
};

struct IndexHeader {
  enum Section { Sample, High, Low, Ids, Artists, Albums, Text, kSections };
  struct Extent {
    uint64_t offset = 0, size = 0;  // bytes
  };

  char magic[8] = {'K', 'R', 'V', 'L', 'I', 'S', 'T', 'S'};
  uint32_t format = 1;
  uint32_t textOrder = 0;
  DatabaseStamp stamp;
  uint32_t albumNames = 0;  // distinct ones, whoever the artist
  uint64_t songs = 0, artists = 0, albums = 0;
  Extent sections[kSections];
};

class IndexImage {
 public:
  static constexpr int kSampleStep = 256;

  // The image of a file or of bytes; null when it is missing, damaged or of another format.
  static std::shared_ptr<const IndexImage> map(const QString& path);
  static std::shared_ptr<const IndexImage> hold(QByteArray bytes);

  const IndexHeader& header() const { return *header_; }
  int songs() const { return static_cast<int>(header_->songs); }
  int artists() const { return static_cast<int>(header_->artists); }
  int albums() const { return static_cast<int>(header_->albums); }

  // Entries count from 0; empty or 0 outside.
  uint32_t songId(int at) const;
  QByteArrayView artist(int at) const { return entry(IndexHeader::Artists, at); }
  QByteArrayView album(int at) const { return entry(IndexHeader::Albums, 2 * at); }
  QByteArrayView albumArtist(int at) const { return entry(IndexHeader::Albums, 2 * at + 1); }

  // The songs whose key is `key`: [first, second), where first is also the first song not before
  // it.
  std::pair<int, int> range(const text_order::Key& key) const;

 private:
  IndexImage() = default;
  bool accept(const char* data, size_t size);
  template <class T>
  std::span<const T> section(IndexHeader::Section which) const;
  QByteArrayView entry(IndexHeader::Section offsets, int at) const;

  QFile file_;
  QByteArray bytes_;
  const char* data_ = nullptr;
  const IndexHeader* header_ = nullptr;
};

}  // namespace korvane

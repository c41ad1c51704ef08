#include "library/index/index_image.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>

#include "platform/path_text.h"

namespace korvane {

std::optional<DatabaseStamp> DatabaseStamp::of(const std::optional<QByteArray>& header) {
  // The SQLite file format, section 1.3: big-endian numbers at fixed places.
  if (!header || header->size() < 100) return {};
  const auto at = [&](qsizetype offset) {
    return qFromBigEndian<uint32_t>(header->constData() + offset);
  };
  return DatabaseStamp{at(24), at(28), at(60)};
}

std::shared_ptr<const IndexImage> IndexImage::map(const QString& path) {
  std::shared_ptr<IndexImage> image(new IndexImage);
  image->file_.setFileName(path);
  if (!image->file_.open(QIODevice::ReadOnly)) return {};
  const qint64 size = image->file_.size();
  const uchar* data = size > 0 ? image->file_.map(0, size) : nullptr;
  if (!data || !image->accept(reinterpret_cast<const char*>(data), static_cast<size_t>(size)))
    return {};
  return image;
}

std::shared_ptr<const IndexImage> IndexImage::hold(QByteArray bytes) {
  std::shared_ptr<IndexImage> image(new IndexImage);
  image->bytes_ = std::move(bytes);
  if (!image->accept(image->bytes_.constData(), static_cast<size_t>(image->bytes_.size())))
    return {};
  return image;
}

bool IndexImage::accept(const char* data, size_t size) {
  const IndexHeader wanted;
  if (size < sizeof(IndexHeader)) return false;
  const auto* header = reinterpret_cast<const IndexHeader*>(data);
  if (std::memcmp(header->magic, wanted.magic, sizeof wanted.magic) != 0) return false;
  if (header->format != wanted.format || header->textOrder != text_order::version()) return false;
  constexpr uint64_t kMost = 0x3FFFFFFF;
  if (header->songs > kMost || header->artists > kMost || header->albums > kMost) return false;
  const uint64_t sizes[] = {(header->songs + kSampleStep - 1) / kSampleStep * 8,
                            header->songs * 8,
                            header->songs * 8,
                            header->songs * 4,
                            (header->artists + 1) * 4,
                            (header->albums * 2 + 1) * 4};
  for (int i = 0; i < IndexHeader::kSections; ++i) {
    const auto& [offset, length] = header->sections[i];
    if (offset % 8 != 0 || offset > size || length > size - offset) return false;
    if (i != IndexHeader::Text && length != sizes[i]) return false;
  }
  data_ = data;
  header_ = header;
  return true;
}

template <class T>
std::span<const T> IndexImage::section(IndexHeader::Section which) const {
  const auto& extent = header_->sections[which];
  return {reinterpret_cast<const T*>(data_ + extent.offset), extent.size / sizeof(T)};
}

uint32_t IndexImage::songId(int at) const {
  const auto ids = section<uint32_t>(IndexHeader::Ids);
  return at >= 0 && at < songs() ? ids[static_cast<size_t>(at)] : 0;
}

QByteArrayView IndexImage::entry(IndexHeader::Section offsets, int at) const {
  const auto places = section<uint32_t>(offsets);
  if (at < 0 || static_cast<size_t>(at) + 1 >= places.size()) return {};
  const uint32_t from = places[static_cast<size_t>(at)], to = places[static_cast<size_t>(at) + 1];
  const auto text = section<char>(IndexHeader::Text);
  if (from > to || to > text.size()) return {};
  return {text.data() + from, to - from};
}

std::pair<int, int> IndexImage::range(const text_order::Key& key) const {
  const auto sample = section<uint64_t>(IndexHeader::Sample);
  const auto high = section<uint64_t>(IndexHeader::High), low = section<uint64_t>(IndexHeader::Low);
  // The sample fits the first cache; what is left to search is one step of it.
  const auto block = [&](auto it) {
    const auto at = static_cast<size_t>(it - sample.begin());
    return std::min(at * kSampleStep, high.size());
  };
  const auto lowSample = std::lower_bound(sample.begin(), sample.end(), key.high);
  const auto from = high.begin() + (lowSample == sample.begin() ? 0 : block(lowSample - 1));
  auto first = std::lower_bound(from, high.begin() + block(lowSample), key.high);
  if (first == high.end() || *first != key.high) {
    const int at = static_cast<int>(first - high.begin());
    return {at, at};
  }
  // Few songs share a key: gallop to the end of them instead of searching the whole.
  std::ptrdiff_t reach = 1;
  while (reach < high.end() - first && first[reach] == key.high) reach *= 2;
  const auto last = std::upper_bound(first, first + std::min(reach, high.end() - first), key.high);
  const auto lows =
      low.subspan(static_cast<size_t>(first - high.begin()), static_cast<size_t>(last - first));
  const auto [begin, end] = std::equal_range(lows.begin(), lows.end(), key.low);
  const int base = static_cast<int>(first - high.begin());
  return {base + static_cast<int>(begin - lows.begin()),
          base + static_cast<int>(end - lows.begin())};
}

}  // namespace korvane

#include "services/server/outbox.h"

namespace korvane {
namespace {

constexpr qint64 kMostUnsent = 64 << 10;  // of what lies with the socket
constexpr qsizetype kMostJoined = 16 << 10;

}  // namespace

void Outbox::put(const QByteArray& record) {
  size_ += record.size();
  if (!items_.empty() && items_.back().kind == Item::Records &&
      items_.back().bytes.size() + record.size() <= kMostJoined)
    items_.back().bytes += record;
  else
    items_.push_back({Item::Records, record});
}

void Outbox::putPicture(const QByteArray& announcement, const QByteArray& picture) {
  dropPictures();
  items_.push_back({Item::Announcement, announcement});
  items_.push_back({Item::Picture, picture});
}

void Outbox::dropPictures() {
  for (size_t i = 0; i + 1 < items_.size(); ++i) {
    if (items_[i].kind != Item::Announcement) continue;
    const auto first = items_.begin() + static_cast<long>(i);
    items_.erase(first, first + 2);
    return;
  }
}

void Outbox::clear() {
  items_.clear();
  size_ = 0;
}

QByteArray Outbox::next(qint64 nowMs, qint64 unsent) {
  if (items_.empty()) return {};
  if (gapDue_) {
    if (unsent > 0) quietSince_ = -1;
    if (unsent > 0) return {};
    if (quietSince_ < 0) quietSince_ = nowMs;
    if (nowMs - quietSince_ < kGapMs) return {};
    gapDue_ = false;
  }
  if (unsent > kMostUnsent) return {};
  const Item item = std::move(items_.front());
  items_.pop_front();
  if (item.kind == Item::Records) {
    size_ -= item.bytes.size();
  } else {
    gapDue_ = true;
    quietSince_ = -1;
  }
  return item.bytes;
}

}  // namespace korvane

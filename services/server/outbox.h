// What one peer is still to be sent, in order. A console takes a picture as the deliveries that
// follow its announcement, and drops what comes in one delivery with the announcement: so before
// and after a picture nothing is sent for a while.
#pragma once

#include <deque>

#include "platform/text.h"

namespace korvane {

// It only keeps: who owns it asks next() and sends.
class Outbox {
 public:
  static constexpr int kGapMs = 150;  // before and after a picture

  // A whole record or several, with their ends. It may go out in one delivery with others.
  void put(const QByteArray& record);
  // An announcement and its picture; takes the place of one whose announcement has not gone yet.
  void putPicture(const QByteArray& announcement, const QByteArray& picture);
  void dropPictures();  // those whose announcement has not gone yet

  // What to send now; empty when nothing is, or not yet. `unsent` are the bytes given out earlier
  // that the peer's machine has not taken.
  QByteArray next(qint64 nowMs, qint64 unsent);

  void clear();  // nothing of what waits is sent any more

  qint64 size() const { return size_; }  // bytes of records that wait; pictures do not count
  bool empty() const { return items_.empty(); }

 private:
  struct Item {
    enum Kind { Records, Announcement, Picture } kind;
    QByteArray bytes;
  };

  std::deque<Item> items_;
  qint64 size_ = 0;
  qint64 quietSince_ = -1;  // a gap counts from here; -1 when none is due
  bool gapDue_ = false;
};

}  // namespace korvane

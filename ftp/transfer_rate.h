// How fast a transfer goes and how long it will take, in words.
#pragma once

#include "platform/text.h"

namespace korvane {

class TransferRate {
 public:
  void begin(qint64 nowMs) {
    begun_ = said_ = nowMs;
    first_ = -1;
  }
  // "1.5 of 20.0 MB, 3.1 MB/s, 6 s left". Nothing where the last words are not 250 ms old.
  QString words(qint64 bytes, qint64 size, qint64 nowMs);

 private:
  qint64 begun_ = 0, said_ = 0;
  qint64 first_ = -1;  // bytes that were there at the first look: one that is gone on with has some
};

// "512 bytes", "1.5 MB"
QString bytesText(qint64 bytes);

}  // namespace korvane

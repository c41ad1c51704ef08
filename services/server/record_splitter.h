// Records out of the bytes of one connection, however they were cut: a record ends with 0x01, and
// what has no end yet waits for it.
#pragma once

#include <optional>

#include "listener/listener_record.h"

namespace korvane {

class RecordSplitter {
 public:
  explicit RecordSplitter(qsizetype longest) : longest_(longest) {}  // bytes of a record

  // Keeps what arrived. False when it holds a record that is too long: nothing is to be made of
  // this connection any more.
  bool put(QByteArrayView bytes);

  // The next record that is whole, without its 0x01; nothing when there is none.
  std::optional<QByteArray> next();

  qsizetype whole() const { return whole_; }              // records that next() can give
  bool unfinished() const { return unfinished_ > 0; }     // bytes of a record without its end wait
  qsizetype size() const { return bytes_.size() - at_; }  // bytes that wait

 private:
  qsizetype longest_;
  QByteArray bytes_;
  qsizetype at_ = 0;  // in bytes_, where the next record begins
  qsizetype whole_ = 0, unfinished_ = 0;
};

// The fields of a record, the first `most` of them. They point into `record`.
QList<QByteArrayView> fieldsOf(QByteArrayView record, qsizetype most);

}  // namespace korvane

// Records out of the bytes of one connection, however they were cut: a record ends with 0x01, and
// what has no end yet waits for it.
#pragma once

#include <functional>

#include "listener/listener_record.h"

namespace korvane {

class RecordSplitter {
 public:
  explicit RecordSplitter(qsizetype longest) : longest_(longest) {}  // bytes of a record

  // Calls visit(record without its 0x01) for each record that is whole now, until it returns false.
  // False when a record is too long: nothing is to be made of this connection any more.
  bool take(QByteArrayView bytes, const std::function<bool(QByteArrayView)>& visit);

  bool unfinished() const { return !waiting_.isEmpty(); }

 private:
  qsizetype longest_;
  QByteArray waiting_;
};

// The fields of a record, the first `most` of them.
QList<QByteArrayView> fieldsOf(QByteArrayView record, qsizetype most);

}  // namespace korvane

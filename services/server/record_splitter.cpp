#include "services/server/record_splitter.h"

namespace korvane {

bool RecordSplitter::put(QByteArrayView bytes) {
  bytes_.remove(0, std::exchange(at_, 0));
  bytes_.append(bytes);
  for (;;) {
    const qsizetype end = bytes.indexOf(kRecordEnd);
    unfinished_ += end < 0 ? bytes.size() : end;
    if (unfinished_ > longest_) return false;
    if (end < 0) return true;
    unfinished_ = 0;
    ++whole_;
    bytes = bytes.sliced(end + 1);
  }
}

std::optional<QByteArray> RecordSplitter::next() {
  if (whole_ == 0) return std::nullopt;
  const qsizetype end = bytes_.indexOf(kRecordEnd, at_);
  QByteArray record = bytes_.sliced(at_, end - at_);
  at_ = end + 1;
  if (--whole_ == 0) bytes_.remove(0, std::exchange(at_, 0));
  return record;
}

QList<QByteArrayView> fieldsOf(QByteArrayView record, qsizetype most) {
  QList<QByteArrayView> fields;
  for (qsizetype end = 0; fields.size() < most; record = record.sliced(end + 1)) {
    end = record.indexOf(kFieldEnd);
    fields << (end < 0 ? record : record.first(end));
    if (end < 0) break;
  }
  return fields;
}

}  // namespace korvane

#include "services/server/record_splitter.h"

namespace korvane {

bool RecordSplitter::take(QByteArrayView bytes, const std::function<bool(QByteArrayView)>& visit) {
  while (!bytes.isEmpty()) {
    const qsizetype end = bytes.indexOf(kRecordEnd);
    const qsizetype length = waiting_.size() + (end < 0 ? bytes.size() : end);
    if (length > longest_) return false;
    if (end < 0) {
      waiting_.append(bytes);
      return true;
    }
    QByteArray whole = std::exchange(waiting_, {});
    const bool apart = whole.isEmpty();
    if (!apart) whole.append(bytes.first(end));
    const bool goesOn = visit(apart ? bytes.first(end) : QByteArrayView(whole));
    if (!goesOn) return true;
    bytes = bytes.sliced(end + 1);
  }
  return true;
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

#include "ripper/import/dump_record.h"

#include <vector>

#include "platform/disc_drive.h"
#include "ripper/names/disc_id.h"

namespace korvane {
namespace {

QStringList identifiers(const XmcdRecord& record) {
  const int leadOut = record.seconds * kSectorsPerSecond;
  if (record.offsets.isEmpty() || record.offsets.last() >= leadOut) return record.discIds;
  std::vector<int> frames(record.offsets.begin(), record.offsets.end());
  frames.push_back(leadOut);
  const QString worked = QString::fromLatin1(discIdentifier(frames));
  // A single one is that of the addresses, as another writer works it out.
  QStringList all = record.discIds.size() > 1 ? record.discIds : QStringList();
  all.removeOne(worked);
  all.prepend(worked);
  return all;
}

}  // namespace

std::optional<DumpRecord> readDumpRecord(QByteArrayView bytes) {
  std::optional<XmcdRecord> record = readXmcd(bytes);
  if (!record) return std::nullopt;
  const QStringList ids = identifiers(*record);
  if (ids.isEmpty()) return std::nullopt;
  return DumpRecord{ids, std::move(record->artist), std::move(record->album),
                    std::move(record->titles)};
}

}  // namespace korvane

#include "ripper/import/cddb_import.h"

#include "ripper/import/cd_data_files.h"
#include "ripper/import/dump_files.h"
#include "ripper/import/dump_record.h"
#include "ripper/import/record_queue.h"

namespace korvane {
namespace {

void count(CddbImport& done, CdDataFiles& data, const std::optional<DiscRow>& row) {
  ++done.records;
  bool added = false;
  if (row)
    for (const QByteArray& id : row->discIds) added |= data.add(id, row->columns);
  ++(!row ? done.bad : added ? done.added : done.known);
}

std::optional<DiscRow> rowOf(QByteArrayView bytes) {
  const std::optional<DumpRecord> record = readDumpRecord(bytes);
  if (!record) return std::nullopt;
  DiscRow row{{}, discColumns(record->artist, record->album, record->titles)};
  for (const QString& id : record->discIds) row.discIds << id.toLatin1();
  return row;
}

}  // namespace

CddbImport importCddb(FileSystem& files, const QString& source, const QString& directory,
                      const CddbImportRules& rules) {
  CddbImport done, committed;
  try {
    CdDataFiles data(files, directory);
    QString trouble;
    // One thread reads and understands the records while this one writes the rows before them.
    RecordQueue queue([&](RecordQueue& rows) {
      trouble = readDumpFiles(files, source,
                              [&](QByteArrayView bytes) { return rows.put(rowOf(bytes)); });
    });
    RecordQueue::Rows rows;
    while (!(rows = queue.take(std::move(rows))).empty()) {
      for (const auto& row : rows) {
        count(done, data, row);
        if (done.records % rules.batch == 0) {
          data.commit();
          committed = done;
        }
        rules.progress(done);
      }
    }
    data.commit();
    done.trouble = trouble;
    return done;
  } catch (const std::exception& failure) {
    committed.trouble = QString::fromUtf8(failure.what());
  }
  return committed;
}

}  // namespace korvane

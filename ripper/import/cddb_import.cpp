#include "ripper/import/cddb_import.h"

#include "ripper/import/cd_data_files.h"
#include "ripper/import/dump_files.h"

namespace korvane {
namespace {

void count(CddbImport& done, CdDataFiles& data, QByteArrayView bytes) {
  ++done.records;
  const std::optional<DumpRecord> record = readDumpRecord(bytes);
  bool added = false;
  if (record)
    for (const QString& id : record->discIds) added |= data.add(id, *record);
  ++(!record ? done.bad : added ? done.added : done.known);
}

}  // namespace

CddbImport importCddb(FileSystem& files, const QString& source, const QString& directory,
                      const CddbImportRules& rules) {
  CddbImport done, committed;
  try {
    CdDataFiles data(files, directory);
    const QString trouble = readDumpFiles(files, source, [&](QByteArrayView bytes) {
      count(done, data, bytes);
      if (done.records % rules.batch == 0) {
        data.commit();
        committed = done;
      }
      rules.progress(done);
    });
    data.commit();
    done.trouble = trouble;
    return done;
  } catch (const std::exception& failure) {
    committed.trouble = QString::fromUtf8(failure.what());
  }
  return committed;
}

}  // namespace korvane

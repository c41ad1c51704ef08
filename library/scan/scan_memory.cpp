#include "library/scan/scan_memory.h"

#include <cstring>

namespace korvane {

ScanMemory ScanMemory::load(sql::Connection& connection, const QByteArray& root) {
  ScanMemory memory;
  auto run = connection.run(
      "SELECT Directory, Stamps FROM Scanned WHERE Directory = ?1 "
      "UNION ALL SELECT Directory, Stamps FROM Scanned WHERE Directory > ?2 AND Directory < ?3");
  const QByteArray first = root + '/', end = root + '0';  // '0' comes right after '/'
  run.bindBlob(1, root).bindBlob(2, first).bindBlob(3, end);
  while (run.step()) {
    const QByteArrayView blob = run.bytes(1);
    Stamps stamps(static_cast<size_t>(blob.size()) / sizeof(quint64));
    if (!stamps.empty()) std::memcpy(stamps.data(), blob.data(), stamps.size() * sizeof(quint64));
    memory.directories_.insert(run.bytes(0).toByteArray(), stamps);
  }
  return memory;
}

const Stamps* ScanMemory::find(const QByteArray& directory) const {
  const auto found = directories_.constFind(directory);
  return found == directories_.cend() ? nullptr : &*found;
}

void ScanMemory::write(sql::Connection& connection, const QByteArray& directory,
                       const Stamps& stamps) {
  auto run = connection.run("INSERT OR REPLACE INTO Scanned VALUES (?1, ?2)");
  const QByteArrayView blob(reinterpret_cast<const char*>(stamps.data()),
                            static_cast<qsizetype>(stamps.size() * sizeof(quint64)));
  run.bindBlob(1, directory).bindBlob(2, blob);
  run.step();
}

}  // namespace korvane

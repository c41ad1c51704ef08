// Turns the files of a batch into rows: looks, remembers, opens and reads. From any thread.
#pragma once

#include <atomic>

#include "library/scan/prefetch.h"

namespace korvane {

class FileReader {
 public:
  FileReader(const ScanPlan& plan, const ScanMemory& memory);  // both must outlive it

  // Fills batch.files, in the order of its names without those that are no files any more. Ends
  // early when `stop` is set.
  void read(Batch& batch, const std::atomic<bool>& stop) const;

 private:
  enum Result { Gone, Known, Read, Failed };
  // Leaves the reason of Failed in `error`.
  Result look(int directory, const QByteArray& name, const Stamps* known, ScannedFile& file,
              QByteArray& tail, int& error) const;
  Song rowOf(const Batch& batch, const QByteArray& name, const QByteArray& tail) const;

  const ScanPlan& plan_;
  const ScanMemory& memory_;
  const CodePage page_;
  const quint64 seed_;
};

}  // namespace korvane

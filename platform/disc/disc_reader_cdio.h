// Discs by libcdio: a drive of the machine, or a CUE sheet with the BIN of the same name beside it.
//
// libcdio keeps state of the process, so all readers of a program take turns: one waits while
// another reads a chunk, and as long as a drive hangs. The careful ones of a drive take no turns.
#pragma once

#include "platform/disc/disc_reader.h"

namespace korvane {

class DiscReaderCdio final : public DiscReader {
 public:
  DiscLook look(const QString& source, const DiscLook& before) override;
  std::unique_ptr<SectorReader> sectors(const QString& source) override;
  std::unique_ptr<SectorReader> carefulSectors(const QString& source, bool pointing) override;
  void eject(const QString& source) override;
};

// The file that a source is, in bytes of the disk: the machine's first CD drive for an empty one,
// empty when it has none. May wait as the reader's calls do.
QByteArray discPath(const QString& source);
bool isDevice(const QByteArray& path);

}  // namespace korvane

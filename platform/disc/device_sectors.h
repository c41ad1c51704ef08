// The sound of a disc in a CD drive by the drive's own command READ CD (MMC-3), without libcdio, so
// that a scratch holds up no reader of another disc.
#pragma once

#include "platform/disc/disc_reader.h"

namespace korvane {

class DeviceSectors final : public SectorReader {
 public:
  // `pointing`: a sector in which the drive's own correction (C2) left errors counts as not read,
  // where the drive tells. Null when the device cannot be opened.
  static std::unique_ptr<DeviceSectors> open(const QByteArray& device, bool pointing);
  ~DeviceSectors() override;

  bool read(int first, int count, char* to) override;
  int remembered() const override { return 1200; }  // 2.7 MiB: no drive is known to keep more

 private:
  enum Answer { Good, Failed, Refused };
  DeviceSectors(int file, bool pointing) : file_(file), pointing_(pointing) {}
  Answer command(int first, int count, bool pointing, char* to) const;
  bool readPointing(int first, int count, char* to);

  const int file_;
  bool pointing_;
  QByteArray room_;
};

}  // namespace korvane

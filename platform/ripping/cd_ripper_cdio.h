// Ripping by libcdio-paranoia and the encoders' own libraries.
#pragma once

#include "platform/cd_ripper.h"
#include "platform/disc/cd_drives.h"
#include "platform/disc/disc_reader.h"
#include "platform/pump.h"

namespace korvane {

class CdRipperCdio final : public SwdCDRipper {
 public:
  // The pump is not owned and must outlive this.
  CdRipperCdio(Pump& pump, std::shared_ptr<DiscReader> reader, std::unique_ptr<CdDrives> drives);

  void setEvents(Events*) override {}
  void open(const QString&) override {}
  void close() override {}
  std::vector<Drive> drives() const override { return {}; }
  bool looked(const QString&) const override { return false; }
  const Disc* disc(const QString&) const override { return nullptr; }
  QString trouble(const QString&) const override { return {}; }
  void setEncoder(const SwdMP3Encoder&) override {}
  void setSecure(bool) override {}
  void setSideBySide(bool) override {}
  void queueTrack(const RipJob&) override {}
  void start() override {}
  void abort() override {}
  bool running() const override { return false; }
  void finish(const QString&) override {}
};

}  // namespace korvane

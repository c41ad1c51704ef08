// A drive over what reads discs and the media player, which sounds them.
#pragma once

#include "platform/disc/disc_sound.h"
#include "platform/disc/disc_watch.h"
#include "platform/disc_drive.h"
#include "platform/media_player.h"

namespace korvane {

class ReadingDrive final : public DiscDrive {
 public:
  // The pump and the player are not owned and must outlive this.
  ReadingDrive(Pump& pump, MediaPlayer& player, std::shared_ptr<DiscReader> reader);
  ~ReadingDrive() override;  // at most 1 s, even when the drive hangs

  void setEvents(Events* events) override { events_ = events; }
  void open(const QString& source) override;
  void close() override;
  bool looked() const override { return look_.has_value(); }
  const Disc* disc() const override;
  QString trouble() const override;
  void play(int track, int seconds) override;
  void pause() override;
  void stop() override;
  void eject() override;
  Mode mode() const override;
  Place place() const override;

 private:
  void heard(int watch, const DiscLook& look);
  int sector() const;  // of the disc, that sounds now

  MediaPlayer& player_;
  const std::shared_ptr<DiscReader> reader_;
  std::shared_ptr<DiscWatch> watch_;
  Events* events_ = nullptr;
  QString source_;
  int number_ = 0;  // of the watch at hand
  bool open_ = false;
  std::optional<DiscLook> look_;
  std::shared_ptr<DiscSound> sound_;
};

}  // namespace korvane

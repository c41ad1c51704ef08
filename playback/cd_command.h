// cdCommand: the CD by numbered functions that answer in text.
//
//   0  play from `track` and `seconds` to the end of the disc
//   1  open, and play: the whole disc when `track` is below 1; "false" without a disc
//   2  stop          3  pause         5  close         9  open the door
//   4  open: "true", or "false" without a disc
//   6  number of tracks, "false" without a disc
//   7  length of the disc, mm:ss:ff
//   8  length of `track`, mm:ss
//  10  position, tt:mm:ss:ff (ff counts 75ths); "false" without a disc
//  11  "OPEN", "STOPPED", "SEEK", "PLAYING", "PAUSED" or "NOT READY"
//  12  open: "AUDIO" when track 1 is sound, else "DATA"
//
// What has no answer answers with an empty text.
#pragma once

#include "core/app_state.h"
#include "platform/disc_drive.h"
#include "platform/pump.h"

namespace korvane {

class CdCommands {
 public:
  CdCommands(DiscDrive& drive, Pump& pump, const AppState& state)
      : drive_(drive), pump_(pump), state_(state) {}

  // 1, 4 and 12 wait for the drive's first answer, at most 3 s; they yield.
  QString cdCommand(int function, int track = 0, int seconds = 0);

 private:
  bool open();
  QString startDisc(int track);
  QString lengthOfDisc() const;
  QString lengthOfTrack(int track) const;
  QString position() const;

  DiscDrive& drive_;
  Pump& pump_;
  const AppState& state_;
};

}  // namespace korvane

// The table of contents of the disc in a drive, by the packet command READ TOC (43h, MMC-3 6.26).
#pragma once

#include "platform/packet_drive.h"

namespace korvane {

// The starts of the tracks and of the lead-out from an answer in minutes, seconds and frames,
// format 0: frames of 1/75 s with the lead-in, a blank between. Empty for an answer that is cut
// short or without a track, or where no descriptor says that it is a position.
QString tocOfAnswer(QByteArrayView answer);

class cSPTI {
 public:
  explicit cSPTI(PacketDrive& packets) : packets_(packets) {}  // not owned; must outlive this

  // Asks the drive for its table, up to 5 s. False when it gives no answer.
  bool InitMediaToc(const QString& drive);
  const QString& GetTOC() const { return toc_; }  // of the last success
  QString GetTEXT() const { return {}; }          // CD-TEXT, which is not asked for

 private:
  PacketDrive& packets_;
  QString toc_;
};

}  // namespace korvane

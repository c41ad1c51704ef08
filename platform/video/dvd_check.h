// What keeps a DVD from being played, known from a few of its bytes before libVLC is asked, which
// would only say that it failed. What is not found out here may still fail while it plays.
#pragma once

#include "platform/text.h"
#include "platform/video/dvd_drive.h"

namespace korvane {

constexpr qsizetype kDvdSector = 2048;     // bytes
constexpr qsizetype kDvdFilmSectors = 64;  // of a film that are looked at

struct DvdBytes {
  QByteArray menu;       // the first sector of VIDEO_TS.IFO, or what there is of it
  qint64 menuBytes = 0;  // the length of the whole file
  QByteArray film;  // the first kDvdFilmSectors of one of its titles; empty on a disc without one
};

// Why a disc of such bytes does not play, as the end of a sentence without its full stop; empty
// when nothing speaks against it. Any bytes may be given. `decrypts` as canDecryptDvds().
QString dvdObstacle(const DvdBytes& bytes, bool decrypts);

// Finds the disc that `path` means, which is a folder VIDEO_TS or the one above it, in letters of
// either case, or a device or an image of a disc, which are not looked into; empty for what is in
// the drive. `folder` (or the drive's device) is what libVLC may be given. The answer is one
// sentence for the user when it cannot be played, and else empty. Reads 132 kB of each title at
// most, and may wait for the disk.
QString dvdTrouble(const QString& path, const DvdDriveLook& drive, bool decrypts, QString* folder);

bool canDecryptDvds();  // libdvdcss is installed; libVLC finds it by itself

}  // namespace korvane

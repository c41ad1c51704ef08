// The check of a disc with any bytes: it ends, and what it lets through begins as a DVD does and is
// as long as it says. The first byte is the number of sectors that the VIDEO_TS.IFO is said to
// have; of the rest up to 2048 bytes are its beginning, and what follows is that of the film.
#include <cstdlib>

#include "platform/video/dvd_check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  if (size == 0) return 0;
  const QByteArray rest(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
  DvdBytes bytes;
  bytes.menu = rest.first(std::min(rest.size(), kDvdSector));
  bytes.menuBytes = data[0] * kDvdSector;
  bytes.film = rest.sliced(bytes.menu.size());
  const bool decrypted = dvdObstacle(bytes, true).isEmpty();
  if (decrypted && (!bytes.menu.startsWith("DVDVIDEO-VMG") || bytes.menu.size() < kDvdSector ||
                    bytes.menuBytes == 0))
    std::abort();
  if (!decrypted && dvdObstacle(bytes, false).isEmpty()) std::abort();
  return 0;
}

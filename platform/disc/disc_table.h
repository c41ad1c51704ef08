// What is on a disc that libcdio has opened: tracks, their places and names (the table of contents
// and CD-TEXT, MMC-3). Calls of libcdio: not by two threads at once.
#pragma once

#include <cdio/cdio.h>

#include "platform/disc/disc_reader.h"

namespace korvane {

// `name` is what messages call the disc. A table that contradicts itself is no disc; tracks beyond
// the end of an image that is cut short are left out, and `trouble` says so.
DiscLook tableOf(CdIo_t* disc, const QString& name);

// What libcdio last complained of on this thread, and forgets it. Its own log would end the
// program on an error, so the first call puts another in its place.
QString takeCdioComplaint();

}  // namespace korvane

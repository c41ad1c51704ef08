// What is wrong with a DVD before it is played, in one sentence for a message; empty when nothing
// is. They read the disk: not for the event loop.
#pragma once

#include "platform/text.h"

namespace korvane {

// Of a folder VIDEO_TS or the one above it: the table of the disc is there and whole (the layout of
// VIDEO_TS.IFO), and no title is scrambled without the library that reads those.
QString dvdFolderFault(const QString& folder);

// Whether the library that reads scrambled discs, libdvdcss, is installed.
bool readsScrambledDvds();

}  // namespace korvane

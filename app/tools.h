// The command line's work on the library, without a window.
#pragma once

#include "platform/file_system.h"
#include "platform/pump.h"

namespace korvane {

// Each returns the exit code and says on standard error what went wrong.
int listLibrary(const QString& home, const QString& what);
int scanDirectory(const QString& home, const QString& directory, FileSystem& files, Pump& pump);

// The songs that a first start brings along.
void scanStarterSongs(const QString& home, FileSystem& files, Pump& pump);

}  // namespace korvane

// The command line's work on the library and on the names of discs, without a window.
#pragma once

#include "platform/file_system.h"
#include "platform/pump.h"

namespace korvane {

// Each returns the exit code and says on standard error what went wrong.
int listLibrary(const QString& home, const QString& what);
int scanDirectory(const QString& home, const QString& directory, FileSystem& files, Pump& pump);
// Into the databases of the home's CDDBPath; `dump` as readDumpFiles() takes it.
int importDiscNames(const QString& home, const QString& dump, FileSystem& files, Pump& pump);

// The songs that a first start brings along.
void scanStarterSongs(const QString& home, FileSystem& files, Pump& pump);

}  // namespace korvane

// The program directory: where a console keeps its settings, database, themes and log.
#pragma once

#include "platform/file_system.h"

namespace korvane {

// --home, else $KORVANE_HOME, else the executable's directory if it holds Morvanta.INI, else
// $XDG_DATA_HOME/korvane. Absolute.
QString chooseHome(const QString& asked, const QString& executableDirectory,
                   const FileSystem& files);

// Makes what a first start lacks from the starter files (settings, database, songs and a link to
// the shipped themes); what stands is left alone. False with `error` in words.
bool makeHome(const QString& home, const QString& starter, FileSystem& files, QString* error);

// The starter files: of the source tree beside the build, else of the installation.
QString starterDirectory(const QString& executableDirectory, const FileSystem& files);

}  // namespace korvane

// Which row a file becomes: the writers' rules for texts, apart from any reading and writing.
// Title, artist and album are stored without blanks at their ends, comment and year as they are.
#pragma once

#include "library/data/song.h"
#include "library/scan/scan_rules.h"
#include "library/tags/audio_tags.h"

namespace korvane {

// A row by tags. Empty title: the file name; empty artist or album: "unknown"; every " becomes '.
Song songByTags(const std::optional<AudioTags>& tags, const QString& fileName, const QString& path,
                const ScanRules& rules);

// A row by the names of folders and file; year and comment are not set.
Song songByFolders(const QString& artist, const QString& album, const QString& fileName,
                   const QString& path, const ScanRules& rules);

// A file's name as a text for the eye: UTF-8, or Windows-1252 when it is none.
QString nameShown(QByteArrayView diskBytes);

}  // namespace korvane

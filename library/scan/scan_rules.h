// What a scan takes for a song and how it reads it.
#pragma once

#include "core/settings.h"

namespace korvane {

struct ScanRules {
  bool fullTags = false;  // any tag where there is no ID3v1, texts as wide as their columns
  QString codePage;       // of 8-bit tags
  QStringList kinds;      // of files, besides MP3, WMA and WAV; upper case, without a dot

  bool isSong(QStringView fileName) const;
  // The name without the ending of a song's kind; unchanged without one.
  QString withoutKind(const QString& fileName) const;
  // A number for these rules, so that a file read under others is read again.
  quint64 stamp() const;
};

// The rules of the keys "Tags", "TagCodePage" and "FileKinds".
ScanRules scanRules(const Settings& settings);

}  // namespace korvane

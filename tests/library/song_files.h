// Song files for scans: any bytes under any name, and tags.
#pragma once

#include <QByteArray>

namespace korvane {

// Makes the file and the directories above it; names are bytes. Throws std::runtime_error.
void makeSongFile(const QByteArray& path, const QByteArray& bytes);

// An ID3v1 tag.
QByteArray songTag(const QByteArray& title, const QByteArray& artist, const QByteArray& album);

}  // namespace korvane

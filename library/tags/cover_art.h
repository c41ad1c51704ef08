// getCoverArt's reader: the first attached picture of an ID3v2.3 tag at the front of a file.
//
// Format (id3.org, "ID3v2.3.0"): a header of 10 bytes, "ID3" first, then frames, each a header of
// 10 bytes (identifier, size, flags) and `size` bytes. Sizes of frames are big-endian numbers of
// eight bits a byte, of whatever version the tag says it is.
#pragma once

#include <QIODevice>
#include <optional>

#include "platform/text.h"

namespace korvane {

// The bytes of the first "APIC" frame from its index 10 on, zeros skipped; nothing without one.
// Never takes more memory than the file has bytes, nor more than 64 MiB.
std::optional<QByteArray> attachedPicture(QIODevice& file);

// `bytes` from where an image begins in them (JPEG, PNG, GIF, BMP or WEBP); all of them when none
// does.
QByteArray imageWithin(const QByteArray& bytes);

// Both, of a file. Nothing as well when it cannot be read.
std::optional<QByteArray> coverArtBytes(const QString& path);

}  // namespace korvane

// The files of subtitles that stand beside a movie: "Film.srt" and "Film.en.srt" beside "Film.mp4".
#pragma once

#include "platform/text.h"

namespace korvane {

struct SubtitleFile {
  QByteArray path;  // as the disk has it
  QString name;     // what its name has beyond the movie's, "en"; else all of it
};

// In the order of their names, without regard to case; 16 at most. A file without a line of times
// is none: libVLC refuses it, and would leave the others with the wrong names. Reads the movie's
// folder and the beginning of each file: not for the event loop.
std::vector<SubtitleFile> subtitleFiles(const QString& movie);

}  // namespace korvane

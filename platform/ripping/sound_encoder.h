// What turns the sound of a disc into a file: one object a file, used by one thread. Sound is
// 16-bit stereo at 44,100 Hz, samples of left and right by turns.
#pragma once

#include "platform/cd_ripper.h"
#include "platform/files/new_file.h"

namespace korvane {

class SoundEncoder {
 public:
  virtual ~SoundEncoder() = default;
  // False when the file cannot be written, which then knows why, or the encoder fails.
  virtual bool encode(std::span<const qint16> samples) = 0;
  virtual bool finish() = 0;  // what the encoder still holds, and the file's last words
};

// Encodes into `file`, which is not owned and not committed; `frames` (pairs of samples) are to
// come. Null when the encoder refuses what it is asked for, or the file cannot be written.
std::unique_ptr<SoundEncoder> makeEncoder(const SwdMP3Encoder& how,
                                          const std::optional<RipTags>& tags, qint64 frames,
                                          NewFile& file);

// The bodies behind it, one a format.
std::unique_ptr<SoundEncoder> makeMp3Encoder(const SwdMP3Encoder& how,
                                             const std::optional<RipTags>& tags, NewFile& file);
std::unique_ptr<SoundEncoder> makeFlacEncoder(const SwdMP3Encoder& how,
                                              const std::optional<RipTags>& tags, qint64 frames,
                                              NewFile& file);
std::unique_ptr<SoundEncoder> makeOpusEncoder(const SwdMP3Encoder& how,
                                              const std::optional<RipTags>& tags, NewFile& file);

}  // namespace korvane

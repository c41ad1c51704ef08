#include "platform/ripping/sound_encoder.h"

namespace korvane {

std::unique_ptr<SoundEncoder> makeEncoder(const SwdMP3Encoder& how,
                                          const std::optional<RipTags>& tags, qint64 frames,
                                          NewFile& file) {
  switch (how.format) {
    case RipFormat::Mp3:
      return makeMp3Encoder(how, tags, file);
    case RipFormat::Flac:
      return makeFlacEncoder(how, tags, frames, file);
    case RipFormat::Opus:
      return makeOpusEncoder(how, tags, file);
  }
  return nullptr;
}

}  // namespace korvane

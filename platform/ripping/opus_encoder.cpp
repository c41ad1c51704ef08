// Opus in Ogg by libopusenc (RFC 6716, RFC 7845).
#include <opusenc.h>

#include "platform/ripping/id3_tags.h"
#include "platform/ripping/sound_encoder.h"
#include "platform/ripping/vorbis_fields.h"

namespace korvane {
namespace {

constexpr int kMostEffort = 10, kFrontCover = 3;  // libopus's complexity; RFC 9639's picture type

struct Destroy {
  void operator()(OggOpusComments* comments) const { ope_comments_destroy(comments); }
  void operator()(OggOpusEnc* encoder) const { ope_encoder_destroy(encoder); }
};

class OpusFileEncoder final : public SoundEncoder {
 public:
  explicit OpusFileEncoder(NewFile& file) : file_(file) {}

  bool open(const SwdMP3Encoder& how, const std::optional<RipTags>& tags) {
    if (tags) addTags(*tags);
    static const OpusEncCallbacks calls{write, [](void*) { return 0; }};
    encoder_.reset(
        ope_encoder_create_callbacks(&calls, this, comments_.get(), 44100, 2, 0, nullptr));
    if (!encoder_) return false;
    const int effort = static_cast<int>(std::lround(kMostEffort * how.quality));
    return ope_encoder_ctl(encoder_.get(), OPUS_SET_BITRATE(how.bitRate)) == OPE_OK &&
           ope_encoder_ctl(encoder_.get(), OPUS_SET_COMPLEXITY(effort)) == OPE_OK;
  }

  bool encode(std::span<const qint16> samples) override {
    return ope_encoder_write(encoder_.get(), samples.data(),
                             static_cast<int>(samples.size() / 2)) == OPE_OK;
  }

  bool finish() override { return ope_encoder_drain(encoder_.get()) == OPE_OK; }

 private:
  void addTags(const RipTags& tags) {
    for (const auto& [name, value] : vorbisFields(tags))
      ope_comments_add(comments_.get(), name, value.constData());
    if (!coverType(tags.cover).isEmpty())  // a picture that libopusenc refuses is left out
      ope_comments_add_picture_from_memory(comments_.get(), tags.cover.constData(),
                                           static_cast<size_t>(tags.cover.size()), kFrontCover,
                                           nullptr);
  }

  static int write(void* self, const unsigned char* bytes, opus_int32 count) {
    return static_cast<OpusFileEncoder*>(self)->file_.write({bytes, count}) ? 0 : 1;
  }

  NewFile& file_;
  std::unique_ptr<OggOpusComments, Destroy> comments_{ope_comments_create()};
  std::unique_ptr<OggOpusEnc, Destroy> encoder_;
};

}  // namespace

std::unique_ptr<SoundEncoder> makeOpusEncoder(const SwdMP3Encoder& how,
                                              const std::optional<RipTags>& tags, NewFile& file) {
  auto encoder = std::make_unique<OpusFileEncoder>(file);
  if (!encoder->open(how, tags)) return nullptr;
  return encoder;
}

}  // namespace korvane

// FLAC by libFLAC (xiph.org: "FLAC format").
#include <FLAC/metadata.h>
#include <FLAC/stream_encoder.h>

#include "platform/ripping/id3_tags.h"
#include "platform/ripping/sound_encoder.h"
#include "platform/ripping/vorbis_fields.h"

namespace korvane {
namespace {

constexpr int kBest = 8;  // libFLAC's levels are 0 to 8

struct Delete {
  void operator()(FLAC__StreamEncoder* encoder) const { FLAC__stream_encoder_delete(encoder); }
  void operator()(FLAC__StreamMetadata* block) const { FLAC__metadata_object_delete(block); }
};
using Block = std::unique_ptr<FLAC__StreamMetadata, Delete>;

Block comments(const RipTags& tags) {
  Block block(FLAC__metadata_object_new(FLAC__METADATA_TYPE_VORBIS_COMMENT));
  for (const auto& [name, value] : vorbisFields(tags)) {
    FLAC__StreamMetadata_VorbisComment_Entry entry;
    if (!FLAC__metadata_object_vorbiscomment_entry_from_name_value_pair(&entry, name,
                                                                        value.constData()))
      continue;
    FLAC__metadata_object_vorbiscomment_append_comment(block.get(), entry, false);  // owns it now
  }
  return block;
}

Block cover(const QByteArray& picture) {
  QByteArray type = coverType(picture);
  if (type.isEmpty()) return nullptr;
  Block block(FLAC__metadata_object_new(FLAC__METADATA_TYPE_PICTURE));
  block->data.picture.type = FLAC__STREAM_METADATA_PICTURE_TYPE_FRONT_COVER;
  FLAC__metadata_object_picture_set_mime_type(block.get(), type.data(), true);
  QByteArray copy = picture;
  FLAC__metadata_object_picture_set_data(block.get(), reinterpret_cast<FLAC__byte*>(copy.data()),
                                         static_cast<FLAC__uint32>(copy.size()), true);
  return block;
}

class FlacEncoder final : public SoundEncoder {
 public:
  explicit FlacEncoder(NewFile& file) : file_(file) {}

  bool open(const SwdMP3Encoder& how, const std::optional<RipTags>& tags, qint64 frames) {
    if (!encoder_) return false;
    FLAC__stream_encoder_set_channels(encoder_.get(), 2);
    FLAC__stream_encoder_set_bits_per_sample(encoder_.get(), 16);
    FLAC__stream_encoder_set_sample_rate(encoder_.get(), 44100);
    FLAC__stream_encoder_set_compression_level(
        encoder_.get(), static_cast<unsigned>(std::lround(kBest * how.quality)));
    FLAC__stream_encoder_set_total_samples_estimate(encoder_.get(),
                                                    static_cast<FLAC__uint64>(frames));
    if (tags) blocks_.push_back(comments(*tags));
    if (Block picture = tags ? cover(tags->cover) : nullptr) blocks_.push_back(std::move(picture));
    std::vector<FLAC__StreamMetadata*> blocks;
    for (const Block& block : blocks_) blocks.push_back(block.get());
    if (!blocks.empty())
      FLAC__stream_encoder_set_metadata(encoder_.get(), blocks.data(),
                                        static_cast<unsigned>(blocks.size()));
    return FLAC__stream_encoder_init_stream(encoder_.get(), write, seek, tell, nullptr, this) ==
           FLAC__STREAM_ENCODER_INIT_STATUS_OK;
  }

  bool encode(std::span<const qint16> samples) override {
    wide_.assign(samples.begin(), samples.end());
    return FLAC__stream_encoder_process_interleaved(encoder_.get(), wide_.data(),
                                                    static_cast<unsigned>(samples.size() / 2));
  }

  bool finish() override { return FLAC__stream_encoder_finish(encoder_.get()); }

 private:
  static FLAC__StreamEncoderWriteStatus write(const FLAC__StreamEncoder*, const FLAC__byte* bytes,
                                              size_t count, unsigned, unsigned, void* self) {
    FlacEncoder& to = *static_cast<FlacEncoder*>(self);
    const QByteArrayView view(bytes, static_cast<qsizetype>(count));
    const bool good =
        to.at_ == to.file_.written() ? to.file_.write(view) : to.file_.rewrite(to.at_, view);
    to.at_ += view.size();
    return good ? FLAC__STREAM_ENCODER_WRITE_STATUS_OK
                : FLAC__STREAM_ENCODER_WRITE_STATUS_FATAL_ERROR;
  }
  static FLAC__StreamEncoderSeekStatus seek(const FLAC__StreamEncoder*, FLAC__uint64 to,
                                            void* self) {
    static_cast<FlacEncoder*>(self)->at_ = static_cast<qint64>(to);
    return FLAC__STREAM_ENCODER_SEEK_STATUS_OK;
  }
  static FLAC__StreamEncoderTellStatus tell(const FLAC__StreamEncoder*, FLAC__uint64* at,
                                            void* self) {
    *at = static_cast<FLAC__uint64>(static_cast<FlacEncoder*>(self)->at_);
    return FLAC__STREAM_ENCODER_TELL_STATUS_OK;
  }

  NewFile& file_;
  qint64 at_ = 0;  // where libFLAC writes next
  std::vector<Block> blocks_;
  std::vector<FLAC__int32> wide_;
  // The last member: it writes and reads the blocks when it goes.
  std::unique_ptr<FLAC__StreamEncoder, Delete> encoder_{FLAC__stream_encoder_new()};
};

}  // namespace

std::unique_ptr<SoundEncoder> makeFlacEncoder(const SwdMP3Encoder& how,
                                              const std::optional<RipTags>& tags, qint64 frames,
                                              NewFile& file) {
  auto encoder = std::make_unique<FlacEncoder>(file);
  if (!encoder->open(how, tags, frames)) return nullptr;
  return encoder;
}

}  // namespace korvane

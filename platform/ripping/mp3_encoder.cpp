// MP3 by LAME at a constant rate: ID3v2.3, LAME's own Info header, the sound, ID3v1.
#include <lame/lame.h>

#include <mutex>

#include "platform/ripping/id3_tags.h"
#include "platform/ripping/sound_encoder.h"

namespace korvane {
namespace {

constexpr int kRate = 44100, kWorst = 9;  // LAME's scale is 0, the best, to 9

// What LAME may need for so many frames (pairs of samples), by its own header.
size_t roomFor(size_t frames) {
  return frames + frames / 4 + 7200;
}

void silent(const char*, va_list) {}

struct Close {
  void operator()(lame_global_flags* lame) const { lame_close(lame); }
};
using Lame = std::unique_ptr<lame_global_flags, Close>;

Lame openLame(const SwdMP3Encoder& how) {
  static std::mutex tables;  // LAME fills some of the process when it begins
  const std::lock_guard lock(tables);
  Lame lame(lame_init());
  if (!lame) return nullptr;
  lame_set_errorf(lame.get(), silent);
  lame_set_msgf(lame.get(), silent);
  lame_set_debugf(lame.get(), silent);
  lame_set_in_samplerate(lame.get(), kRate);
  lame_set_num_channels(lame.get(), 2);
  lame_set_VBR(lame.get(), vbr_off);
  lame_set_brate(lame.get(), how.bitRate / 1000);
  lame_set_quality(lame.get(), static_cast<int>(std::lround(kWorst * (1 - how.quality))));
  lame_set_bWriteVbrTag(lame.get(), 1);
  lame_set_write_id3tag_automatic(lame.get(), 0);
  return lame_init_params(lame.get()) < 0 ? nullptr : std::move(lame);
}

class Mp3Encoder final : public SoundEncoder {
 public:
  Mp3Encoder(Lame lame, const std::optional<RipTags>& tags, NewFile& file)
      : lame_(std::move(lame)), file_(file) {
    if (tags) {
      file_.write(id3v2(*tags));
      last_ = id3v1(*tags);
    }
    start_ = file_.written();
  }

  bool encode(std::span<const qint16> samples) override {
    const size_t frames = samples.size() / 2;
    room_.resize(roomFor(frames));
    // LAME's own declaration lacks the const.
    const int count = lame_encode_buffer_interleaved(
        lame_.get(), const_cast<qint16*>(samples.data()), static_cast<int>(frames), room_.data(),
        static_cast<int>(room_.size()));
    return put(count);
  }

  bool finish() override {
    room_.resize(roomFor(0));
    const int count = lame_encode_flush(lame_.get(), room_.data(), static_cast<int>(room_.size()));
    if (!put(count)) return false;
    const size_t length = lame_get_lametag_frame(lame_.get(), room_.data(), room_.size());
    if (length > room_.size()) return false;
    return file_.rewrite(start_, view(length)) && file_.write(last_);
  }

 private:
  bool put(int count) { return count >= 0 && file_.write(view(static_cast<size_t>(count))); }
  QByteArrayView view(size_t length) const {
    return {room_.data(), static_cast<qsizetype>(length)};
  }

  Lame lame_;
  NewFile& file_;
  QByteArray last_;  // after the sound
  std::vector<unsigned char> room_;
  qint64 start_ = 0;  // of the sound: LAME leaves its header free there
};

}  // namespace

std::unique_ptr<SoundEncoder> makeMp3Encoder(const SwdMP3Encoder& how,
                                             const std::optional<RipTags>& tags, NewFile& file) {
  Lame lame = openLame(how);
  if (!lame) return nullptr;
  return std::make_unique<Mp3Encoder>(std::move(lame), tags, file);
}

}  // namespace korvane

#include "platform/imaging/jpeg_codec.h"

#include <turbojpeg.h>

#include "platform/imaging/exif.h"
#include "platform/imaging/jpeg_segments.h"

namespace korvane {
namespace {

constexpr int kEncodedAnewQuality = 95;

class TurboJpeg {
 public:
  explicit TurboJpeg(tjhandle handle) : handle_(handle) {}
  ~TurboJpeg() {
    if (handle_) tjDestroy(handle_);
  }
  TurboJpeg(const TurboJpeg&) = delete;

  operator tjhandle() const { return handle_; }
  QString fault() const { return QString::fromLatin1(tjGetErrorStr2(handle_)); }
  bool fatal() const { return tjGetErrorCode(handle_) == TJERR_FATAL; }

 private:
  tjhandle handle_;
};

// Bytes that libjpeg-turbo allocates.
struct TurboBytes {
  uchar* data = nullptr;
  unsigned long size = 0;

  TurboBytes() = default;
  ~TurboBytes() { tjFree(data); }
  TurboBytes(const TurboBytes&) = delete;
  QByteArray copy() const {
    return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  }
};

const uchar* raw(QByteArrayView bytes) {
  return reinterpret_cast<const uchar*>(bytes.data());
}

unsigned long length(QByteArrayView bytes) {
  return static_cast<unsigned long>(bytes.size());
}

struct Frame {
  int width = 0, height = 0, subsampling = 0, colours = 0;
};

bool readFrame(const TurboJpeg& turbo, QByteArrayView bytes, Frame* frame) {
  return tjDecompressHeader3(turbo, raw(bytes), length(bytes), &frame->width, &frame->height,
                             &frame->subsampling, &frame->colours) == 0 ||
         (!turbo.fatal() && frame->width > 0);
}

// The smallest scale that is at least `atLeast` large.
FittedSize scaledTo(const Frame& frame, FittedSize atLeast) {
  int count = 0;
  const tjscalingfactor* factors = tjGetScalingFactors(&count);
  FittedSize best{frame.width, frame.height};
  for (const tjscalingfactor& factor : std::span(factors, static_cast<size_t>(count))) {
    const FittedSize size{TJSCALED(frame.width, factor), TJSCALED(frame.height, factor)};
    const bool enough = size.width >= atLeast.width && size.height >= atLeast.height;
    if (enough && size.width < best.width) best = size;
  }
  return best;
}

// Four inks, which such files store as their absence, in place to 0xAARRGGBB.
void inksToColours(quint32* words, qsizetype count) {
  for (quint32& word : std::span(words, static_cast<size_t>(count))) {
    const auto* ink = reinterpret_cast<const uchar*>(&word);
    const quint32 black = ink[3];
    const auto colour = [&](int at) { return (ink[at] * black + 127) / 255; };
    word = 0xff000000 | colour(0) << 16 | colour(1) << 8 | colour(2);
  }
}

// A word before the end that is none of the file's: cameras leave it, and no pixel is lost by it.
bool harmless(const QString& fault) {
  return fault.isEmpty() || fault.contains("extraneous bytes"_L1);
}

int across(int subsampling) {
  switch (subsampling) {
    case TJSAMP_422:
      return TJSAMP_440;
    case TJSAMP_440:
      return TJSAMP_422;
    case TJSAMP_411:
      return TJSAMP_444;
    default:
      return subsampling;
  }
}

QByteArray encode(const Pixels& pixels, int quality, int subsampling) {
  const TurboJpeg turbo(tjInitCompress());
  TurboBytes made;
  if (!turbo) return {};
  const int done = tjCompress2(turbo, pixels.bits, pixels.width,
                               static_cast<int>(pixels.bytesPerLine), pixels.height, TJPF_BGRX,
                               &made.data, &made.size, subsampling, std::clamp(quality, 1, 100), 0);
  return done == 0 ? made.copy() : QByteArray();
}

std::shared_ptr<const Pixels> onWhite(const Pixels& pixels) {
  const auto made = newPixels(pixels.width, pixels.height);
  if (!made) return nullptr;
  quint32* to = made->words;
  for (int y = 0; y < pixels.height; ++y) {
    const auto* from = reinterpret_cast<const quint32*>(pixels.bits + y * pixels.bytesPerLine);
    for (int x = 0; x < pixels.width; ++x)
      *to++ = from[x] + (0xff - (from[x] >> 24)) * 0x01010101U;  // premultiplied: none overflows
  }
  return made->pixels;
}

QByteArray encodedAnew(QByteArrayView bytes, const Frame& frame, QuarterTurn turn, QString* fault) {
  const DecodedJpeg whole = decodeJpeg(bytes, {frame.width, frame.height});
  *fault = whole.fault;
  if (!whole.pixels || !harmless(whole.fault)) return {};
  const auto pixels = turnedPixels(*whole.pixels, turn);
  const int subsampling = frame.colours == TJCS_CMYK || frame.colours == TJCS_YCCK ? int{TJSAMP_444}
                          : turn.transposed ? across(frame.subsampling)
                                            : frame.subsampling;
  QByteArray made = pixels ? encode(*pixels, kEncodedAnewQuality, subsampling) : QByteArray();
  if (made.isEmpty()) return {};
  // Behind the segment by which the encoder names the format.
  const JpegHead head = jpegHead(made);
  const JpegSegment first = head.segments.empty() ? JpegSegment() : head.segments.front();
  const qsizetype at = first.marker == 0xE0 ? first.at + first.size : 2;
  return made.insert(at, jpegRemarks(bytes, jpegHead(bytes)));
}

int operation(QuarterTurn turn) {
  static constexpr int kOperations[2][2][2] = {
      {{TJXOP_NONE, TJXOP_VFLIP}, {TJXOP_HFLIP, TJXOP_ROT180}},
      {{TJXOP_TRANSPOSE, TJXOP_ROT270}, {TJXOP_ROT90, TJXOP_TRANSVERSE}},
  };
  return kOperations[turn.transposed][turn.mirrored][turn.flipped];
}

QByteArray withoutLoss(const TurboJpeg& turbo, QByteArrayView bytes, QuarterTurn turn,
                       QString* fault) {
  tjtransform transform{};
  transform.op = operation(turn);
  transform.options = TJXOPT_PERFECT;
  TurboBytes made;
  if (tjTransform(turbo, raw(bytes), length(bytes), 1, &made.data, &made.size, &transform,
                  TJFLAG_LIMITSCANS) != 0) {
    *fault = turbo.fault();
    if (turbo.fatal() || !harmless(*fault)) return {};
  }
  return made.data ? made.copy() : QByteArray();
}

// Whether the blocks that the turn brings to the left and to the top are whole ones.
bool isWhole(const Frame& frame, QuarterTurn turn) {
  if (frame.subsampling < 0 || frame.subsampling >= TJ_NUMSAMP) return false;
  const bool toLeft = turn.transposed ? turn.flipped : turn.mirrored;
  const bool toTop = turn.transposed ? turn.mirrored : turn.flipped;
  return (!toLeft || frame.width % tjMCUWidth[frame.subsampling] == 0) &&
         (!toTop || frame.height % tjMCUHeight[frame.subsampling] == 0);
}

}  // namespace

DecodedJpeg decodeJpeg(QByteArrayView bytes, FittedSize atLeast) {
  const TurboJpeg turbo(tjInitDecompress());
  Frame frame;
  if (!turbo || !readFrame(turbo, bytes, &frame))
    return {nullptr, frame.width > 0 && frame.subsampling < 0, turbo.fault()};
  const FittedSize size = scaledTo(frame, atLeast);
  const auto made = newPixels(size.width, size.height);
  if (!made) return {nullptr, false, u"There is not enough memory for it."_s};
  const bool inks = frame.colours == TJCS_CMYK || frame.colours == TJCS_YCCK;
  QString fault;
  if (tjDecompress2(turbo, raw(bytes), length(bytes), reinterpret_cast<uchar*>(made->words),
                    size.width, size.width * 4, size.height, inks ? TJPF_CMYK : TJPF_BGRA,
                    TJFLAG_LIMITSCANS) != 0) {
    fault = turbo.fault();
    if (turbo.fatal()) return {nullptr, false, fault};
  }
  if (inks) inksToColours(made->words, qsizetype{size.width} * size.height);
  return {made->pixels, false, fault};
}

QByteArray encodeJpeg(const Pixels& pixels, int quality) {
  constexpr int kFine = 90;  // from this quality on each pixel keeps its own colour
  const int subsampling = quality < kFine ? TJSAMP_420 : TJSAMP_444;
  if (pixels.opaque) return encode(pixels, quality, subsampling);
  const auto opaque = onWhite(pixels);
  return opaque ? encode(*opaque, quality, subsampling) : QByteArray();
}

QByteArray turnJpeg(QByteArrayView bytes, QuarterTurn turn, bool upright, QString* error) {
  const TurboJpeg turbo(tjInitTransform());
  Frame frame;
  QString fault;
  QByteArray made;
  if (!turbo || !readFrame(turbo, bytes, &frame))
    fault = turbo.fault();
  else if (isWhole(frame, turn))
    made = withoutLoss(turbo, bytes, turn, &fault);
  else
    made = encodedAnew(bytes, frame, turn, &fault);
  if (made.isEmpty()) {
    *error = fault.isEmpty() ? u"There is not enough memory for it."_s : fault;
    return {};
  }
  const JpegHead head = jpegHead(made);
  rewriteExif(made.data() + head.exifAt, head.exifSize, {upright, head.width, head.height});
  return made;
}

}  // namespace korvane

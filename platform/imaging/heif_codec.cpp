#include "platform/imaging/heif_codec.h"

#include <libheif/heif.h>
#include <QtEndian>

#include "platform/imaging/exif.h"
#include "platform/imaging/qt_images.h"

namespace korvane {
namespace {

constexpr size_t kMostExif = 128 << 10;

template <typename T, void (*release)(T*)>
struct Releaser {
  void operator()(T* thing) const { release(thing); }
};
void releaseHandle(heif_image_handle* handle) {
  heif_image_handle_release(handle);
}
void releaseImage(heif_image* image) {
  heif_image_release(image);
}
using Image = std::unique_ptr<heif_image, Releaser<heif_image, releaseImage>>;

QString wordsOf(const heif_error& error) {
  if (error.code == heif_error_Unsupported_filetype || error.code == heif_error_Unsupported_feature)
    return u"There is no decoder for it here."_s;
  return u"It is damaged or cut short (%1)."_s.arg(QString::fromUtf8(error.message));
}

}  // namespace

struct HeifFile::Parts {
  std::unique_ptr<heif_context, Releaser<heif_context, heif_context_free>> context{
      heif_context_alloc()};
  std::unique_ptr<heif_image_handle, Releaser<heif_image_handle, releaseHandle>> handle;
};

bool canReadHeif(bool avif) {
  return heif_have_decoder_for_format(avif ? heif_compression_AV1 : heif_compression_HEVC) != 0;
}

HeifFile::HeifFile(const QByteArray& path) : parts_(std::make_unique<Parts>()) {
  heif_error error = heif_context_read_from_file(parts_->context.get(), path.constData(), nullptr);
  heif_image_handle* handle = nullptr;
  if (error.code == heif_error_Ok)
    error = heif_context_get_primary_image_handle(parts_->context.get(), &handle);
  parts_->handle.reset(handle);
  if (error.code != heif_error_Ok)
    fault_ = wordsOf(error);
  else if (width() < 1 || height() < 1)
    fault_ = u"It has no picture in it."_s;
  else if (tooLarge(width(), height()))
    fault_ = tooLargeText(width(), height());
}

HeifFile::~HeifFile() = default;

int HeifFile::width() const {
  return parts_->handle ? heif_image_handle_get_width(parts_->handle.get()) : 0;
}

int HeifFile::height() const {
  return parts_->handle ? heif_image_handle_get_height(parts_->handle.get()) : 0;
}

QDateTime HeifFile::taken() const {
  heif_item_id id = 0;
  if (!parts_->handle ||
      heif_image_handle_get_list_of_metadata_block_IDs(parts_->handle.get(), "Exif", &id, 1) < 1)
    return {};
  const size_t size = heif_image_handle_get_metadata_size(parts_->handle.get(), id);
  if (size < 4 || size > kMostExif) return {};
  QByteArray block(static_cast<qsizetype>(size), Qt::Uninitialized);
  const heif_error error = heif_image_handle_get_metadata(parts_->handle.get(), id, block.data());
  if (error.code != heif_error_Ok) return {};
  // Its first four bytes say how far behind them the TIFF head stands.
  const qsizetype skip = 4 + qsizetype{qFromBigEndian<quint32>(block.constData())};
  return skip < block.size() ? readExif(QByteArrayView(block).sliced(skip)).taken : QDateTime();
}

std::shared_ptr<const Pixels> HeifFile::decode() {
  if (!fault_.isEmpty()) return nullptr;
  heif_image* decoded = nullptr;
  const heif_error error = heif_decode_image(parts_->handle.get(), &decoded, heif_colorspace_RGB,
                                             heif_chroma_interleaved_RGBA, nullptr);
  const Image image(decoded);
  if (error.code != heif_error_Ok) {
    fault_ = wordsOf(error);
    return nullptr;
  }
  int stride = 0;
  const uint8_t* plane = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
  const bool clear = heif_image_handle_has_alpha_channel(parts_->handle.get()) != 0;
  const auto format = !clear ? QImage::Format_RGBX8888
                      : heif_image_is_premultiplied_alpha(decoded)
                          ? QImage::Format_RGBA8888_Premultiplied
                          : QImage::Format_RGBA8888;
  if (!plane) return nullptr;
  auto pixels =
      toPixels(QImage(plane, heif_image_get_width(decoded, heif_channel_interleaved),
                      heif_image_get_height(decoded, heif_channel_interleaved), stride, format));
  if (!pixels) fault_ = u"There is not enough memory for it."_s;
  return pixels;
}

}  // namespace korvane

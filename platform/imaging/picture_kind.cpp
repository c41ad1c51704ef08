#include "platform/imaging/picture_kind.h"

#include <libheif/heif.h>

namespace korvane {
namespace {

struct Suffix {
  const char* suffix;
  PictureKind kind;
  const char* format;
};
constexpr Suffix kSuffixes[] = {
    {"jpg", PictureKind::Jpeg, "jpeg"},          {"jpeg", PictureKind::Jpeg, "jpeg"},
    {"jpe", PictureKind::Jpeg, "jpeg"},          {"jfif", PictureKind::Jpeg, "jpeg"},
    {"heic", PictureKind::Heif, "heic"},         {"heif", PictureKind::Heif, "heic"},
    {"hif", PictureKind::Heif, "heic"},          {"avif", PictureKind::Heif, "avif"},
    {"ani", PictureKind::AnimatedCursor, "ico"}, {"bmp", PictureKind::Other, "bmp"},
    {"dib", PictureKind::Other, "bmp"},          {"cur", PictureKind::Other, "cur"},
    {"gif", PictureKind::Other, "gif"},          {"ico", PictureKind::Other, "ico"},
    {"mng", PictureKind::Other, "mng"},          {"pbm", PictureKind::Other, "pbm"},
    {"pgm", PictureKind::Other, "pgm"},          {"png", PictureKind::Other, "png"},
    {"ppm", PictureKind::Other, "ppm"},          {"tga", PictureKind::Other, "tga"},
    {"tif", PictureKind::Other, "tiff"},         {"tiff", PictureKind::Other, "tiff"},
    {"webp", PictureKind::Other, "webp"},        {"xbm", PictureKind::Other, "xbm"},
    {"xpm", PictureKind::Other, "xpm"},
};

bool isHeif(QByteArrayView start) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(start.data());
  const auto type =
      heif_check_filetype(bytes, static_cast<int>(std::min<qsizetype>(start.size(), 32)));
  if (type == heif_filetype_yes_supported || type == heif_filetype_maybe) return true;
  return start.size() >= 12 && start.sliced(4, 4) == "ftyp" &&
         (start.sliced(8, 4) == "avif" || start.sliced(8, 4) == "avis");
}

}  // namespace

PictureKind pictureKindOf(QByteArrayView start) {
  if (start.startsWith("\xFF\xD8\xFF")) return PictureKind::Jpeg;
  if (start.startsWith("RIFF") && start.size() >= 12 && start.sliced(8, 4) == "ACON")
    return PictureKind::AnimatedCursor;
  return isHeif(start) ? PictureKind::Heif : PictureKind::Other;
}

PictureKind pictureKindOfName(QStringView name, QByteArray* format) {
  const qsizetype dot = name.lastIndexOf(u'.');
  const QStringView suffix = dot < 0 ? QStringView() : name.sliced(dot + 1);
  for (const Suffix& row : kSuffixes) {
    if (suffix.compare(QLatin1StringView(row.suffix), Qt::CaseInsensitive) != 0) continue;
    if (format) *format = row.format;
    return row.kind;
  }
  return PictureKind::None;
}

bool isFormatRead(const QByteArray& format) {
  return !format.isEmpty() &&
         std::ranges::any_of(kSuffixes, [&](const Suffix& row) { return format == row.format; });
}

}  // namespace korvane

#include "bench/made_album.h"

#include <unistd.h>

#include <QFile>

#include "platform/imaging/picture_codecs.h"

namespace korvane {
namespace {

// Waves and grain.
QByteArray photograph(int width, int height, int number) {
  std::vector<quint32> words(static_cast<size_t>(width) * static_cast<size_t>(height));
  quint32 grain = static_cast<quint32>(number) + 1;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      grain = grain * 1664525 + 1013904223;
      const auto wave = [&](int by) {
        const double value = std::sin((x + number * 97) / (30.0 + by)) * std::cos(y / (40.0 + by));
        return static_cast<quint32>(110 + 90 * value + (grain >> 28));
      };
      words[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] =
          0xff000000 | wave(0) << 16 | wave(17) << 8 | wave(41);
    }
  const Pixels pixels{width, height, width * 4, reinterpret_cast<uchar*>(words.data()), true, {}};
  return PictureCodecs().jpeg(pixels, 85);
}

}  // namespace

MadeAlbum::MadeAlbum(int count, int width, int height) {
  for (int i = 0; i < count; ++i) {
    paths_.push_back(folder_.filePath(u"%1.jpg"_s.arg(i)));
    if (i < kDistinct)
      save(paths_.back(), photograph(width, height, i));
    else if (::link(paths_[i % kDistinct].toUtf8(), paths_.back().toUtf8()) != 0)
      std::abort();
  }
}

void MadeAlbum::save(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
}

}  // namespace korvane

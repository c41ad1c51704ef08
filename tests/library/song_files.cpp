#include "tests/library/song_files.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace korvane {

void makeSongFile(const QByteArray& path, const QByteArray& bytes) {
  const std::filesystem::path file(path.toStdString());
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.constData(), bytes.size());
  out.close();
  if (!out) throw std::runtime_error("cannot write " + path.toStdString());
}

QByteArray songTag(const QByteArray& title, const QByteArray& artist, const QByteArray& album) {
  const auto field = [](QByteArray text, qsizetype size) {
    return text.first(std::min(size, text.size())).append(size - std::min(size, text.size()), '\0');
  };
  return "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) + QByteArray(35, '\0');
}

}  // namespace korvane

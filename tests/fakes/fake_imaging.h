// Picture files as a table: what each says of itself, and pixels of one colour in the asked size.
#pragma once

#include <map>

#include "platform/imaging.h"

namespace korvane {

class FakeImaging : public Imaging {
 public:
  struct File {
    int width = 400, height = 300;
    int orientation = 1;
    QDateTime taken{};
    QString error{};
    quint32 colour = 0xff808080;
  };
  std::map<QString, File> files;       // by path; one that is not named is as File says
  mutable std::vector<QString> loads;  // paths, as they were asked for
  mutable std::vector<Reading> readings;

  About about(const QString& path, bool) const override {
    const File file = of(path);
    return {file.error.isEmpty() ? file.width : 0, file.error.isEmpty() ? file.height : 0,
            file.orientation, file.taken, file.error};
  }
  bool mayRead(QStringView) const override { return true; }
  Loaded load(const QString& path, const Reading& reading) const override {
    loads.push_back(path);
    readings.push_back(reading);
    const File file = of(path);
    if (!file.error.isEmpty()) return {nullptr, 0, 0, file.error};
    FittedSize size{file.width, file.height};
    if (reading.width > 0 &&
        (reading.enlarge || size.width > reading.width || size.height > reading.height))
      size = fittedSize(file.width, file.height, reading.width, reading.height);
    return {filled(size.width, size.height, file.colour), file.width, file.height, {}};
  }
  QByteArray jpeg(const Pixels& pixels, int quality) const override {
    return "JPEG " + QByteArray::number(pixels.width) + 'x' + QByteArray::number(pixels.height) +
           " at " + QByteArray::number(quality);
  }
  QByteArray turned(const QString& path, int degrees, bool keepKind, bool,
                    QString* error) const override {
    const File file = of(path);
    if (!file.error.isEmpty()) {
      if (error) *error = file.error;
      return {};
    }
    return (keepKind ? "KIND turned " : "JPEG turned ") + QByteArray::number(degrees);
  }
  std::shared_ptr<const Pixels> turned(const Pixels& pixels, int degrees) const override {
    const bool across = degrees % 180 != 0;
    return filled(across ? pixels.height : pixels.width, across ? pixels.width : pixels.height,
                  0xff808080);
  }
  std::shared_ptr<const Pixels> scaled(const Pixels&, int width, int height) const override {
    return filled(width, height, 0xff808080);
  }
  std::shared_ptr<const Pixels> brightened(const Pixels& pixels, double, double) const override {
    return filled(pixels.width, pixels.height, 0xffc0c0c0);
  }

  static std::shared_ptr<const Pixels> filled(int width, int height, quint32 colour) {
    auto words = std::make_shared<std::vector<quint32>>(
        static_cast<size_t>(width) * static_cast<size_t>(height), colour);
    return std::make_shared<const Pixels>(Pixels{
        width, height, width * 4, reinterpret_cast<const uchar*>(words->data()), true, words});
  }

 private:
  File of(const QString& path) const {
    const auto found = files.find(path);
    return found == files.end() ? File() : found->second;
  }
};

}  // namespace korvane

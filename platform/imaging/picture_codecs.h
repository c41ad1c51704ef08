// The picture files of this machine: JPEG by libjpeg-turbo, HEIC and AVIF by libheif, the rest by
// Qt.
#pragma once

#include "platform/imaging.h"

namespace korvane {

class PictureCodecs final : public Imaging {
 public:
  PictureCodecs();  // sets Qt's limit of memory for one image to kMostBytes, for the whole program

  About about(const QString& path, bool upright) const override;
  bool mayRead(QStringView name) const override;
  Loaded load(const QString& path, const Reading& reading) const override;
  QByteArray jpeg(const Pixels& pixels, int quality) const override;
  QByteArray turned(const QString& path, int degrees, bool keepKind, bool upright,
                    QString* error) const override;
  std::shared_ptr<const Pixels> turned(const Pixels& pixels, int degrees) const override;
  std::shared_ptr<const Pixels> scaled(const Pixels& pixels, int width, int height) const override;
  std::shared_ptr<const Pixels> brightened(const Pixels& pixels, double gamma,
                                           double contrast) const override;
};

}  // namespace korvane

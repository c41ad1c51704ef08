// The lists of artists and of albums over the mapped list file.
#pragma once

#include "core/form/row_source.h"
#include "library/index/index_image.h"

namespace korvane {

class ArtistRows : public RowSource {
 public:
  explicit ArtistRows(std::shared_ptr<const IndexImage> image) : image_(std::move(image)) {}
  int rowCount() const override { return image_->artists(); }
  QString cell(int column, int row) const override {
    return column == 1 ? QString::fromUtf8(image_->artist(row - 1)) : QString();
  }

 private:
  std::shared_ptr<const IndexImage> image_;
};

// Columns: 1 album, 2 artist.
class AlbumRows : public RowSource {
 public:
  explicit AlbumRows(std::shared_ptr<const IndexImage> image) : image_(std::move(image)) {}
  int rowCount() const override { return image_->albums(); }
  QString cell(int column, int row) const override {
    if (column == 1) return QString::fromUtf8(image_->album(row - 1));
    return column == 2 && row >= 1 ? QString::fromUtf8(image_->albumArtist(row - 1)) : QString();
  }

 private:
  std::shared_ptr<const IndexImage> image_;
};

}  // namespace korvane

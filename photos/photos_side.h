// Photos: the Photos tab.
#pragma once

#include "core/desk.h"
#include "photos/photos_tab.h"

namespace korvane {

class PhotosSide {
 public:
  explicit PhotosSide(Desk& desk);

  PhotosTab tab;

 private:
  Image& cmdPhotoSetup_;
};

}  // namespace korvane

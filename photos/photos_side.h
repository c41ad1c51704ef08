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
  static void chooseDirectory(Desk& desk);  // Yields.

  Image& cmdPhotoSetup_;
};

}  // namespace korvane

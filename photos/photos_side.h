// Photos: the Photos tab, its album and its show.
#pragma once

#include "core/desk.h"
#include "photos/photos_tab.h"

namespace korvane {

class PhotosSide {
 public:
  explicit PhotosSide(Desk& desk);

  clsPicture pictures;  // of the tab and its show
  PhotoAlbum album;
  SlideShow show;
  PhotosTab tab;

 private:
  void connectList(Desk& desk);
  void connectShow(Desk& desk);
  void addDoors(Desk& desk);
  void chooseDirectory(Desk& desk);  // Yields.

  Image& cmdPhotoSetup_;
};

}  // namespace korvane

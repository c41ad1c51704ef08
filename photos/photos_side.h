// Photos: the Photos tab, its album and its show.
#pragma once

#include "core/desk.h"
#include "photos/photos_tab.h"
#include "photos/print/picture_printer.h"
#include "photos/screens/view_pic_form.h"

namespace korvane {

class PhotosSide {
 public:
  explicit PhotosSide(Desk& desk);

  clsPicture pictures;  // of the tab and its show
  PhotoAlbum album;
  SlideShow show;
  PhotosTab tab;
  PicturePrinter printer;
  ViewBigForm viewBig;
  ViewPicForm viewPic;

 private:
  void connectList(Desk& desk);
  void connectShow(Desk& desk);
  void connectSheet(Desk& desk);
  void cmdPhotoSetup_Click(Desk& desk);  // Yields.
  void addDoors(Desk& desk);
  void chooseDirectory(Desk& desk);  // Yields.

  Image& cmdPhotoSetup_;
};

}  // namespace korvane

// frmViewPic: the sheet of the pictures of one directory, and what is done with those that are
// chosen.
#pragma once

#include "core/dialog.h"
#include "photos/screens/picture_actions.h"
#include "photos/screens/print_pictures.h"
#include "photos/screens/split_ddc.h"
#include "photos/screens/view_big_form.h"
#include "platform/system.h"

namespace korvane {

class ViewPicForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Screen& screen;
    System& system;
    Settings& settings;
    Log& log;
    ViewBigForm& big;
    QString cache;  // the directory for thumbnails of albums that cannot be written
  };
  explicit ViewPicForm(Uses uses);

  void open(const QString& directory);  // Yields.

  PrintPictures print;                         // the chosen pictures; set before the form is shown
  std::vector<QString> selectedPaths() const;  // in the order of the sheet

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* picControl = bind("picControl");
    Frame* picFrame = bind("picFrame");
    Frame* picSplit = bind("picSplit");
    Grid* Drive1 = bind("Drive1");
    Grid* Dir1 = bind("Dir1");
    Grid* File1 = bind("File1");
    std::array<Button*, 3> optThumbs = bind("optThumbs");
    std::array<Button*, 2> optSize = bind("optSize");
    std::array<Button*, 3> optPrint = bind("optPrint");
    Label* lblPhotoFolder = bind("lblPhotoFolder");
    Label* lblCount = bind("lblCount");
    Label* sbrMain = bind("sbrMain");
    Sheet* picSlide = bind("picSlide");
    Slider* vsbSlide = bind("vsbSlide");
    Button* cmdStop = bind("cmdStop");
    Progress* picProgress = bind("picProgress");
    Frame* mnuOptions = bind("mnuOptions");
    Button* mnuMove = bind("mnuMove");
    Frame* fraTakeBack = bind("fraTakeBack");
    Label* lblTakeBack = bind("lblTakeBack");
    Timer* tmrTakeBack = bind("tmrTakeBack");
  };

  void connectFolders();
  void connectSheet();
  void connectMenu();
  void Form_Load(const QString& directory);
  void Form_Unload();
  void Dir1_Change(const QString& path);
  void listFolders();
  void loadCells();
  void showCount();
  void showSelected();
  void fitSlider();
  void picSlide_Click(int cell);
  void picSlide_DblClick(int cell);
  void cmdOptions_Click();
  void mnuPrint_Click();
  void offerToTakeBack();
  void endTakeBack();

  Uses uses_;
  Panel panel_;
  cSplitDDC split_;
  SheetWork work_;
  std::shared_ptr<PictureCells> cells_;
  Thumbnails thumbnails_;
  PictureActions actions_;
  std::optional<clsPicture> picture_;  // while the form is up
  QString path_;                       // the directory shown
};

}  // namespace korvane

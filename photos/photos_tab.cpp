#include "photos/photos_tab.h"

namespace korvane {
namespace {

constexpr int kLongestDelay = 60;  // seconds a picture

}  // namespace

PhotosTab::PhotosTab(TabParts& parts, System& system, Messages& messages, KeepAwake& awake)
    : parts_(parts),
      panel_(parts.form),
      system_(system),
      messages_(messages),
      awake_(awake),
      page_(parts.form, {"PhotoList", "cmdPhotoSetup"}),
      show_(parts.form, {"picTransition", "scrollDelay"}),
      otherPlay_(parts.form, {"cmdControls#5", "cmdControls#6"}),
      fullScreen_(parts.form, {"cmdMovieFullScreen"}),
      movies_(parts.form, {"MovieList"}) {
  panel_.scrollDelay->minimum = 1;
  panel_.scrollDelay->maximum = kLongestDelay;
}

void PhotosTab::leave() {
  fullScreen_.hide();
  awake_.need(this, false);
  system_.pump.doEvents();
  page_.hide();
  parts_.settings.write(key::Delay, QString::number(std::lround(panel_.scrollDelay->value())));
  parts_.paging.hide();
  parts_.tabPicture(kPhotosTab, u"photos"_s, u"photo"_s);
  panel_.pictimer->enabled = false;
  otherPlay_.show();
  show_.hide();
  parts_.main.showPlayState(parts_.state.gPlayMode);
}

void PhotosTab::enter() {
  parts_.main.setBackground(u"photos"_s);
  awake_.need(this, true);
  parts_.volume.show();
  parts_.mute.show();
  parts_.main.HideAllGrids();

  lookForDirectory();
  movies_.hide();
  parts_.tabPicture(kPhotosTab, u"photos"_s, u"photob"_s);
  page_.show();
  parts_.paging.show(*list());
  otherPlay_.hide();
  panel_.cmdContinue->visible = false;
  parts_.main.showTransport(u"play"_s, u"pause"_s, u"stopb"_s);
  showDelay();
  panel_.pictimer->enabled = false;
  parts_.top.hide();
  fullScreen_.show();
}

// The box comes once; after that the empty list says it, and the box only to who presses the open
// tab again.
void PhotosTab::lookForDirectory() {
  const QString directory = parts_.settings.str(key::PDirectory);
  if (system_.files.FolderExists(directory)) return;
  if (directory != "NO"_L1) system_.files.CreateFolder(directory);
  if (system_.files.FolderExists(directory)) return;
  const bool pressedAgain = parts_.state.currentTab == kPhotosTab;
  if (std::exchange(warned_, true) && !pressedAgain) return;
  messages_.say(
      u"Photos directory has not be set up or is INVALID. Click on setup, then click on Setup "
      "Movies Directory to select where the photos are located"_s);
}

void PhotosTab::showDelay() {
  Slider& delay = *panel_.scrollDelay;
  delay.value = std::clamp(val(parts_.settings.str(key::Delay)), delay.minimum(), delay.maximum());
  delay.visible = true;
}

Grid* PhotosTab::list() {
  return panel_.PhotoList;
}

}  // namespace korvane

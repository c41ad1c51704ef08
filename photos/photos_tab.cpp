#include "photos/photos_tab.h"

namespace korvane {
namespace {

constexpr int kLongestDelay = 60;  // seconds a picture

}  // namespace

PhotosTab::PhotosTab(Uses uses)
    : uses_(uses),
      parts_(uses.parts),
      panel_(uses.parts.form),
      page_(uses.parts.form, {"PhotoList", "cmdPhotoSetup"}),
      delay_(uses.parts.form, {"scrollDelay", "lblDelay"}),
      otherPlay_(uses.parts.form, {"cmdControls#5", "cmdControls#6"}),
      fullScreen_(uses.parts.form, {"cmdMovieFullScreen"}),
      movies_(uses.parts.form, {"MovieList"}) {
  panel_.scrollDelay->minimum = 1;
  panel_.scrollDelay->maximum = kLongestDelay;
}

void PhotosTab::leave() {
  fullScreen_.hide();
  uses_.awake.need(this, false);
  uses_.system.pump.doEvents();
  uses_.album.close();
  uses_.show.leave();
  page_.hide();
  parts_.settings.write(key::Delay, QString::number(panel_.scrollDelay->value()));
  parts_.paging.hide();
  parts_.tabPicture(kPhotosTab, u"photos"_s, u"photo"_s);
  otherPlay_.show();
  delay_.hide();
  parts_.main.showPlayState(parts_.state.gPlayMode);
}

void PhotosTab::enter() {
  parts_.main.setBackground(u"photos"_s);
  uses_.awake.need(this, true);
  parts_.volume.show();
  parts_.mute.show();
  parts_.main.HideAllGrids();
  movies_.hide();
  parts_.top.hide();
  parts_.tabPicture(kPhotosTab, u"photos"_s, u"photob"_s);
  otherPlay_.hide();
  panel_.cmdContinue->visible = false;
  fullScreen_.show();
  showDelay();
  if (!uses_.show.on()) {
    page_.show();
    parts_.paging.show(*list());
  }
  uses_.show.showTransport();
  uses_.album.open(parts_.state.currentTab == kPhotosTab);
}

// It starts the timer too, which does nothing while there is no show.
void PhotosTab::showDelay() {
  Slider& delay = *panel_.scrollDelay;
  delay.value = std::clamp(val(parts_.settings.str(key::Delay)), delay.minimum(), delay.maximum());
  delay_.show();
  uses_.show.scrollDelay_Change();
}

Player* PhotosTab::player() {
  return uses_.show.on() ? &uses_.show : nullptr;
}

Grid* PhotosTab::list() {
  return panel_.PhotoList;
}

}  // namespace korvane

#include "control/maps_tab.h"

namespace korvane {
namespace {

constexpr int kParkedMap = 795;  // where the map waits before its first use
constexpr Rect kMapPlace{444, 8, 828, 752};

}  // namespace

MapsTab::MapsTab(TabParts& parts)
    : parts_(parts),
      panel_(parts.form),
      map_(parts.form, {"frameMap", "MappointControl"}),
      radio_(parts.form, {"AMSlider", "FMSlider", "Grid#9", "Grid#10"}),
      note_(parts.form, {"lblNote#0"}) {}

void MapsTab::leave() {
  const bool radio = parts_.state.gRadioEnabled;
  if (parts_.state.gMapsEnabled) map_.hide();
  if (radio) radio_.hide();
  note_.hide();
  const QString group = radio ? u"radio"_s : u"maps"_s;
  parts_.tabPicture(kMapsTab, group, group);
  parts_.controls.show();
  panel_.lblCurrentPlayList->visible = true;
}

void MapsTab::enter() {
  const bool radio = parts_.state.gRadioEnabled;
  const QString group = radio ? u"radio"_s : u"maps"_s;
  parts_.main.setBackground(group);
  parts_.tabPicture(kMapsTab, group, group + u'b');
  parts_.hidePlaying();
  if (parts_.state.gMapsEnabled) {
    Surface& map = *panel_.MappointControl;
    if (map.rect().left == kParkedMap) map.rect = kMapPlace;
    map_.show();
  }
  if (radio) {
    radio_.show();
    using enum TransportButton;
    for (const TransportButton button : {Random, Repeat, Continue, Pause})
      panel_.cmdControls[at(button)]->visible = false;
    return;
  }
  note_.show(!parts_.state.gMapsEnabled);
  parts_.controls.hide();
}

}  // namespace korvane

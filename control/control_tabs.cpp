#include "control/control_tabs.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kParkedMap = 795;  // where the map waits before its first use
constexpr Rect kMapPlace{444, 8, 828, 752};
constexpr int kUnits = 16;  // of an X10 house
constexpr int kConnectWaitMs = 300;

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

MoreTab::MoreTab(TabParts& parts, const Palette& palette, RecordLink& x10Link)
    : parts_(parts),
      panel_(parts.form),
      palette_(palette),
      x10Link_(x10Link),
      lights_(parts.form, {"framex10"}),
      links_(parts.form, {"lblConnectStat"}),
      note_(parts.form, {"lblNote#1"}) {}

void MoreTab::leave() {
  parts_.tabPicture(kMoreTab, u"more"_s, u"more"_s);
  lights_.hide();
  note_.hide();
  parts_.top.show();
  parts_.controls.show();
  links_.hide();
  panel_.lblCurrentPlayList->visible = true;
}

void MoreTab::enter() {
  parts_.main.setBackground(u"more"_s);
  parts_.tabPicture(kMoreTab, u"more"_s, u"moreb"_s);
  parts_.hidePlaying();
  parts_.controls.hide();
  if (parts_.state.gPremise) parts_.state.gX10 = u"NO"_s;
  const bool lights = parts_.state.gX10 == "YES"_L1;
  note_.show(!lights);
  if (lights) openLights();
}

void MoreTab::openLights() {
  Grid& units = *panel_.ssX10;
  std::vector<RowTable::Row> rows;
  for (int unit = 1; unit <= kUnits; ++unit) {
    const QString name = u'A' + QString::number(unit);
    const QString description = parts_.settings.readSetting(u"X10", name + u'D');
    if (description == "NO"_L1) continue;
    rows.push_back(
        {{description, parts_.settings.readSetting(u"X10", name + u"DIM"_s)}, false, false});
  }
  units.columns = std::vector<Grid::Column>{{u"Light"_s}, {QString(), 0, true}};
  units.fontSize = parts_.state.gGridFontSize;
  units.rowHeight = parts_.state.gGridHeight;
  units.setRows(std::move(rows));

  connectLights();
  panel_.lblX10->caption = x10Link_.state() == Winsock::Connected ? u"X10 listener Active"_s
                                                                  : u"X10 listener DISCONNECTED"_s;
  for (Control* control : std::initializer_list<Control*>{&units, panel_.framex10, panel_.lblX10})
    dressControl(*control, palette_);
  for (Button* button : panel_.cmdX10) dressControl(*button, palette_);
  lights_.show();
}

void MoreTab::connectLights() {
  const QString& ip = parts_.state.gX10IP;
  if (ip.isEmpty() || ip == "NO"_L1) return;
  if (x10Link_.connect()) x10Link_.letStand(kConnectWaitMs);
}

}  // namespace korvane

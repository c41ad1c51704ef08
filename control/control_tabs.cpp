#include "control/control_tabs.h"

namespace korvane {
namespace {

constexpr int kParkedMap = 795;  // where the map waits before its first use
constexpr Rect kMapPlace{444, 8, 828, 752};
constexpr int kUnits = 16;  // of an X10 house
constexpr int kConnectWaitMs = 300;

}  // namespace

MapsTab::MapsTab(TabParts& parts)
    : parts_(parts),
      map_(parts.form, {"frameMap", "MappointControl"}),
      radio_(parts.form, {"AMSlider", "FMSlider", "Grid#9", "Grid#10"}) {}

void MapsTab::leave() {
  const bool radio = parts_.state.gRadioEnabled;
  if (parts_.state.gMapsEnabled) map_.hide();
  if (radio) radio_.hide();
  const QString group = radio ? u"radio"_s : u"maps"_s;
  parts_.tabPicture(kMapsTab, group, group);
  parts_.controls.show();
  parts_.form.find(u"lblCurrentPlayList")->visible = true;
}

void MapsTab::enter() {
  const bool radio = parts_.state.gRadioEnabled;
  const QString group = radio ? u"radio"_s : u"maps"_s;
  parts_.main.setBackground(group);
  parts_.tabPicture(kMapsTab, group, group + u'b');
  parts_.hidePlaying();
  if (parts_.state.gMapsEnabled) {
    Control* map = parts_.form.find(u"MappointControl");
    if (map->rect().left == kParkedMap) map->rect = kMapPlace;
    map_.show();
  }
  if (radio) {
    radio_.show();
    for (int i : {6, 5, 7, 2}) parts_.form.find(u"cmdControls", i)->visible = false;
    return;
  }
  parts_.controls.hide();
}

MoreTab::MoreTab(TabParts& parts, const Palette& palette, RecordLink& x10Link)
    : parts_(parts),
      palette_(palette),
      x10Link_(x10Link),
      lights_(parts.form, {"framex10"}),
      links_(parts.form, {"lblConnectStat"}) {}

void MoreTab::leave() {
  parts_.tabPicture(kMoreTab, u"more"_s, u"more"_s);
  lights_.hide();
  parts_.top.show();
  parts_.controls.show();
  links_.hide();
  parts_.form.find(u"lblCurrentPlayList")->visible = true;
}

void MoreTab::enter() {
  parts_.main.setBackground(u"more"_s);
  parts_.tabPicture(kMoreTab, u"more"_s, u"moreb"_s);
  parts_.hidePlaying();
  parts_.controls.hide();
  if (parts_.state.gPremise) parts_.state.gX10 = u"NO"_s;
  if (parts_.state.gX10 == "YES"_L1) openLights();
}

void MoreTab::openLights() {
  auto* units = dynamic_cast<Grid*>(parts_.form.find(u"ssX10"));
  std::vector<RowTable::Row> rows;
  for (int unit = 1; unit <= kUnits; ++unit) {
    const QString name = u'A' + QString::number(unit);
    const QString description = parts_.settings.readSetting(u"X10", name + u'D');
    if (description == "NO"_L1) continue;
    rows.push_back(
        {{description, parts_.settings.readSetting(u"X10", name + u"DIM"_s)}, false, false});
  }
  units->columns = std::vector<Grid::Column>{{u"Light"_s}, {QString(), 0, true}};
  units->fontSize = parts_.state.gGridFontSize;
  units->rowHeight = parts_.state.gGridHeight;
  units->colours = palette_.grid(u"X10GRIDBACK", u"MUSICGridSelected", u"X10GRIDBACK");
  units->setRows(std::move(rows));

  connectLights();
  parts_.form.find(u"lblX10")->caption = x10Link_.state() == Winsock::Connected
                                             ? u"X10 listener Active"_s
                                             : u"X10 listener DISCONNECTED"_s;
  static constexpr const char* colours[] = {"X10ON", "X10OFF", "X10DIM", "X10BRIGHT"};
  for (int i = 0; i < 4; ++i)
    parts_.form.find(u"cmdX10", i)->colours = palette_.button(QString::fromLatin1(colours[i]));
  lights_.show();
}

void MoreTab::connectLights() {
  const QString& ip = parts_.state.gX10IP;
  if (ip.isEmpty() || ip == "NO"_L1) return;
  if (x10Link_.connect()) x10Link_.letStand(kConnectWaitMs);
}

}  // namespace korvane

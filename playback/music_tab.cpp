#include "playback/music_tab.h"

namespace korvane {

MusicTab::MusicTab(TabParts& parts, Browsing& browsing, PlaylistEditor& editor,
                   Transport& transport, MusicConnection& connection, MediaPlayer& player)
    : parts_(parts),
      panel_(parts.form),
      browsing_(browsing),
      editor_(editor),
      transport_(transport),
      connection_(connection),
      player_(player),
      favourite_(parts.form, {"cmdFavoriateAdd", "cmdPlayLists"}),
      types_(parts.form, {"lblMusicType"}),
      roles_(parts.form, {"lblMusicPlay"}),
      modes_(parts.form, {"optMode"}),
      cover_(parts.form, {"coverArt"}) {}

void MusicTab::leave() {
  panel_.mute->setPicture(u"music"_s, panel_.mute->tag().startsWith(u'1') ? u"muteb"_s : u"mute"_s);
  favourite_.hide();
  types_.hide();
  roles_.hide();
  if (parts_.state.playListEditing) editor_.hide();
  parts_.tabPicture(kMusicTab, u"music"_s, u"music"_s);
  parts_.listPaging.hide();
  modes_.hide();
  cover_.hide();
}

void MusicTab::enter() {
  AppState& state = parts_.state;
  parts_.main.setBackground(u"music"_s);
  favourite_.show();
  types_.show();
  parts_.main.showPlayState(state.gPlayMode);
  showStatus();
  roles_.show(state.gLocalServer);
  parts_.status.show();
  parts_.showSound();
  if (state.playListEditing)
    editor_.show();
  else
    modes_.show();
  cover_.show(panel_.coverArt->tag() == "TRUE"_L1);
  parts_.tabPicture(kMusicTab, u"music"_s, u"musicb"_s);
  parts_.top.show();
  parts_.controls.show();
  if (state.jukeboxMode) {
    panel_.cmdControls[at(TransportButton::Previous)]->visible = false;
    panel_.cmdControls[at(TransportButton::Continue)]->visible = false;
  }
  showLists();
  askListener();
}

void MusicTab::showStatus() {
  const bool cd = parts_.state.gMusicType == MusicSource::Cd;
  if (parts_.state.gPlayMode != PlayMode::Stopped) return;
  panel_.lblCurrentPlay->caption = cd ? u"CD Stopped"_s : u"Status: Idle"_s;
  panel_.TxtTime->caption = u"--:--:--"_s;
  panel_.Slider1->text = u"--:--:--"_s;
}

void MusicTab::showLists() {
  if (!parts_.state.gMusicTabVisited) {
    firstVisit();
    return;
  }
  browsing_.showGrid(parts_.state.gMusicType == MusicSource::Cd ? 7 : parts_.state.gridMode);
}

void MusicTab::firstVisit() {
  parts_.state.gMusicTabVisited = true;
  if (parts_.state.gLocalListener) player_.prepare();
  const QString last = parts_.settings.raw(key::LASTSONGPLAYED);
  if (last != "NO"_L1 && !last.isEmpty() && browsing_.openAt(last)) return;
  browsing_.showGrid(0);
  parts_.main.markTop(0);
}

void MusicTab::askListener() {
  if (!parts_.state.gLocalListener) connection_.ConnectionMP3Connect();
  connection_.ConnectionMP3Send(u"MUSIC"_s, u"STATUS"_s);
}

}  // namespace korvane

#include "playback/music_tab.h"

namespace korvane {

MusicTab::MusicTab(Uses uses)
    : uses_(uses),
      parts_(uses.parts),
      panel_(uses.parts.form),
      favourite_(uses.parts.form, {"cmdFavoriateAdd", "cmdPlayLists"}),
      types_(uses.parts.form, {"lblMusicType"}),
      roles_(uses.parts.form, {"lblMusicPlay"}),
      modes_(uses.parts.form, {"optMode"}),
      cover_(uses.parts.form, {"coverArt"}) {}

Player& MusicTab::music() const {
  if (parts_.state.playsDiscAudio()) return uses_.disc;
  return uses_.transport;
}

void MusicTab::leave() {
  panel_.mute->setPicture(u"music"_s, panel_.mute->tag().startsWith(u'1') ? u"muteb"_s : u"mute"_s);
  favourite_.hide();
  types_.hide();
  roles_.hide();
  if (parts_.state.playListEditing) uses_.editor.hide();
  parts_.tabPicture(kMusicTab, u"music"_s, u"music"_s);
  parts_.paging.hide();
  modes_.hide();
  uses_.cover.shrink();
  cover_.hide();
}

void MusicTab::enter() {
  const AppState& state = parts_.state;
  parts_.main.setBackground(u"music"_s);
  favourite_.show();
  types_.show();
  parts_.main.showPlayState(state.gPlayMode);
  showStatus();
  roles_.show(state.gLocalServer);
  parts_.status.show();
  parts_.showSound();
  if (state.playListEditing)
    uses_.editor.show();
  else
    modes_.show();
  cover_.show(panel_.coverArt->tag() == "TRUE"_L1);
  parts_.tabPicture(kMusicTab, u"music"_s, u"musicb"_s);
  parts_.top.show();
  parts_.controls.show();
  if (state.jukeboxMode) panel_.previous->visible = panel_.continueOn->visible = false;
  showLists();
  askListener();
}

void MusicTab::showStatus() {
  if (uses_.players.heard()) return;
  const bool cd = parts_.state.gMusicType == MusicSource::Cd;
  panel_.lblCurrentPlay->caption = cd ? u"CD Stopped"_s : u"Status: Idle"_s;
  panel_.TxtTime->caption = u"--:--:--"_s;
  panel_.Slider1->text = u"--:--:--"_s;
}

void MusicTab::showLists() {
  if (!parts_.state.gMusicTabVisited) return firstVisit();
  const bool cd = parts_.state.gMusicType == MusicSource::Cd;
  uses_.browsing.showGrid(cd ? MusicList::DiscTracks : parts_.state.gridMode);
}

void MusicTab::firstVisit() {
  parts_.state.gMusicTabVisited = true;
  if (parts_.state.gLocalListener) uses_.player.prepare();
  const QString last = parts_.settings.raw(key::LASTSONGPLAYED);
  if (last != "NO"_L1 && !last.isEmpty() && uses_.browsing.openAt(last)) return;
  uses_.browsing.showGrid(MusicList::Artists);
  parts_.main.markTop(static_cast<int>(PageCommand::Artists));
}

void MusicTab::askListener() {
  if (!parts_.state.gLocalListener) uses_.connection.ConnectionMP3Connect();
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"STATUS"_s);
}

}  // namespace korvane

#include "playback/playback_side.h"

namespace korvane {

PlaybackSide::PlaybackSide(Desk& d, LibrarySide& library, ListenerSide& listener)
    : transport(d.frmMain, {d.main, d.state, d.settings, d.screen, d.tabs, d.players,
                            library.database, library.browsing, listener.music, d.system.chance}),
      jukebox(d.frmMain, {d.main, d.state, d.palette, library.database, library.browsing, transport,
                          d.system.pump, d.system.chance}),
      listUndo(d.frmMain,
               {d.state, d.settings, listener.music, transport, library.browsing, d.system.pump}),
      cd(d.frmMain,
         {d.main, d.state, d.screen, d.settings, d.messages, d.log, d.system.pump, d.system.disc,
          library.database, library.browsing, listener.music, transport, d.players}),
      cover(d.frmMain, library.browsing),
      quick({d, library.browsing, transport, listUndo}),
      musicTab({d.parts, library.browsing, library.editor, transport, cd, cover, listener.music,
                d.system.player, d.players}),
      volume(d.frmMain, {d.state, d.settings, d.players, transport, d.paging, listener.music,
                         listener.level, d.system.mixer, d.log, d.system.pump}) {
  library.browsing.setSongs(transport);
  transport.setQueue(jukebox);
  listener.music.setNews(&transport);
  listener.music.volumeTold = [this] { volume.volumeTold(transport); };
  d.system.mixer.watch([this] { volume.mixerChanged(); });
  d.mixerOpened = [this](bool there) { volume.mixerOpened(there); };
  d.players.add(transport);
  d.players.add(cd);
  d.tabs.setTab(kMusicTab, musicTab);
  listener.music.shows = [this, &d] {
    return d.players.shows(transport) || cd.mode() != PlayMode::Stopped;
  };
  d.tabs.entered.push_back([this, &d] { showHeard(d); });
  d.steps.at(Step::SetUpLists, [this] { jukebox.setUpQueue(); });
  d.steps.at(Step::StopDisc, [this] { cd.stopCd(); });
  d.onTabPress.push_back([this] { listUndo.hide(); });
  connectTransport(d);
  connectLists(d);
  connectSound(d);
  addListWords(d);
  addPlayWords(d);
}

void PlaybackSide::connectTransport(Desk& desk) {
  const auto number = [](TransportButton button) { return static_cast<int>(button); };
  desk.guard(desk.frmMain, u"cmdControls", Event::Click,
             {number(TransportButton::Stop), number(TransportButton::Next),
              number(TransportButton::Repeat)});
  desk.on(u"optMode", Event::Click, [this](int i) { jukebox.optMode_Click(i); });
  desk.guard(desk.frmMain, u"optMode", Event::Click);
  desk.frmMain.around(u"optMode", Event::Click, [&desk](auto&, auto&, const auto& go) {
    if (!desk.screen.busy()) go();  // before it asks for a password
  });
  desk.on(u"lblCurrentPlay", Event::DblClick, [this](int) { transport.lblCurrentPlay_DblClick(); });
  desk.on(u"lblMusicType", Event::Click, [this](int i) { cd.lblMusicType_Click(i); });
  desk.guard(desk.frmMain, u"lblMusicType", Event::Click);
  desk.on(u"MusicTimer", Event::Tick, [this](int) { cd.MusicTimer_Timer(); });
  desk.on(u"coverArt", Event::Click, [this](int) { cover.coverArt_Click(); });
}

// On the tabs of other players, which have shown how theirs stand.
void PlaybackSide::showHeard(Desk& desk) {
  volume.showLevel();
  const Player* heard = desk.players.heard();
  if (!heard || !desk.settings.flag(key::FollowSound)) return;
  volume.showMute();
  if (desk.tabs.open(kMusicTab)) return;
  desk.main.showPlayState(heard->mode());
  if (desk.tabs.open(kMoviesTab)) desk.main.showSteps();
}

void PlaybackSide::connectLists(Desk& desk) {
  // A press in the lists may put another list in the place of the one that runs.
  const auto undo = [this](auto&, auto&, const auto& go) { listUndo.around(go); };
  desk.frmMain.around(u"cmdTop", Event::Click, undo);
  desk.frmMain.around(u"Grid", Event::Click, undo);
  desk.frmMain.around(u"Grid", Event::DblClick, undo);
  desk.on(u"cmdListUndo", Event::Click, [this](int) { listUndo.cmdListUndo_Click(); });
  desk.on(u"ListUndoTimer", Event::Tick, [this](int) { listUndo.hide(); });
}

void PlaybackSide::connectSound(Desk& desk) {
  desk.on(u"scrollVolume", Event::Change, [this](int) { volume.scrollVolume_Change(); });
  desk.on(u"scrollVolume", Event::Scroll, [this](int) { volume.scrollVolume_Change(); });
  for (const auto& [name, by] : {std::pair{u"ScrollVolumeUp", +1}, {u"ScrollVolumeDN", -1}}) {
    desk.on(name, Event::Press, [this, by = by](int) { volume.scrollVolumeButton_Press(by); });
    desk.on(name, Event::Release, [this](int) { volume.scrollVolumeButton_Release(); });
    desk.guard(desk.frmMain, name, Event::Press);
  }
  desk.on(u"lblMusicPlay", Event::Click, [this](int) { volume.holdCeiling(); });
  desk.on(u"mute", Event::Click, [this](int) { volume.mute_Click(); });
  desk.guard(desk.frmMain, u"mute", Event::Click);
}

void PlaybackSide::addListWords(Desk& desk) {
  const auto add = [&](PageCommand list, const QString& word, const QString& meaning) {
    desk.words.add(
        {word, u"btn"_s + word.toLower(), meaning, [this, list] { quick.openList(list); }});
  };
  add(PageCommand::Favourites, u"FAVOURITES"_s, u"the favourite songs"_s);
  add(PageCommand::Playlists, u"PLAYLISTS"_s, u"the playlists"_s);
  add(PageCommand::Artists, u"ARTISTS"_s, u"the artists"_s);
  add(PageCommand::Albums, u"ALBUMS"_s, u"the albums"_s);
  add(PageCommand::AllSongs, u"SONGS"_s, u"all songs"_s);
  desk.words.add({u"SEARCH"_s, u"btnsearch"_s, u"search the music"_s, [this] {
                    quick.openList(PageCommand::AllSongs);
                    quick.openList(PageCommand::Search);
                  }});
  desk.addTabWord(kMusicTab, u"MUSIC"_s, u"btnmusic"_s, u"open the Music tab"_s);
}

void PlaybackSide::addPlayWords(Desk& desk) {
  constexpr int kDisc = 0, kJukebox = 1;
  desk.words.add({u"SHUFFLE"_s, u"btnshuffle"_s, u"play all songs in any order"_s,
                  desk.guarded([this] { quick.shuffle(); })});
  desk.words.add({u"PLAYPAUSE"_s, u"btnplaypause"_s, u"play or pause the music"_s,
                  [this] { quick.playPause(musicTab.music()); }});
  desk.words.add({u"JUKEBOX"_s, u"btnjukebox"_s, u"turn the jukebox on"_s, [this, &desk] {
                    desk.openTab(kMusicTab);
                    if (desk.admits()) jukebox.optMode_Click(kJukebox);
                  }});
  desk.words.add({u"CD"_s, u"btncd"_s, u"play the CD"_s, [this, &desk] {
                    desk.openTab(kMusicTab);
                    if (desk.admits()) cd.lblMusicType_Click(kDisc);
                  }});
  desk.words.add({u"MUTE"_s, u"btnmute"_s, u"turn the sound off and on"_s,
                  desk.guarded([this] { volume.muteMusic(); })});
}

}  // namespace korvane

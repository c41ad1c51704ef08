// Which control's event goes to which handler.
#include "app/console.h"
#include "app/screens.h"

namespace korvane {

void Console::wire() {
  wireMusic();
  wireNetwork();
  wireSound();
  wirePlaylists();
  wireWindow();
  wireHome();
}

void Console::wireMusic() {
  Form& form = frmMain;
  const auto onIndex = [&form](QStringView name, Event::Type type, auto handler) {
    form.on(name, type, [handler](Control& control, const Event&) { handler(control.index); });
  };
  onIndex(u"cmdTop", Event::Click,
          [this](int i) { listUndo.around([&] { browsing.cmdTop_Click(i); }); });
  onIndex(u"cmdControls", Event::Click, [this](int i) {
    enum { Stop = 3, Next = 4, Delete = 5 };
    const bool guarded = i == Stop || i == Next || i == Delete;
    if (!guarded || guestLock.admits()) transport.cmdControls_Click(i);
  });
  onIndex(u"optMode", Event::Click, [this](int i) {
    if (screen.busy() || !guestLock.admits()) return;
    jukebox.optMode_Click(i);
  });
  onIndex(u"cmdOneSong", Event::Press, [this](int i) { browsing.cmdOneSong_Press(i); });
  onIndex(u"cmdOneSong", Event::Release, [this](int) { browsing.cmdOneSong_Release(); });
  onIndex(u"VscrollAllSongs", Event::Change, [this](int) { browsing.VscrollAllSongs_Change(); });
  onIndex(u"VscrollAllSongs", Event::Scroll, [this](int) { browsing.VscrollAllSongs_Scroll(); });
  onIndex(u"VscrollAllSongs", Event::Release, [this](int) { browsing.VscrollAllSongs_Release(); });
  onIndex(u"Slider1", Event::Press, [this](int) { transport.Slider1_Press(); });
  onIndex(u"Slider1", Event::Scroll, [this](int) { transport.Slider1_Scroll(); });
  onIndex(u"Slider1", Event::Release, [this](int) { transport.Slider1_Release(); });
  onIndex(u"lblCurrentPlay", Event::DblClick, [this](int) { transport.lblCurrentPlay_DblClick(); });
  onIndex(u"RepeatTimer", Event::Tick, [this](int) {
    browsing.RepeatTimer_Tick();
    volume.RepeatTimer_Tick();
  });
  onIndex(u"lblMusicType", Event::Click, [this](int i) {
    if (guestLock.admits()) cd.lblMusicType_Click(i);
  });
  onIndex(u"MusicTimer", Event::Tick, [this](int) { cd.MusicTimer_Timer(); });
  onIndex(u"KeyboardTimer", Event::Tick, [this](int) { browsing.KeyboardTimer_Tick(); });

  form.on(u"Grid", Event::Click, [this](Control& grid, const Event& event) {
    listUndo.around([&] { browsing.Grid_Click(grid.index, event.column, event.row); });
  });
  form.on(u"Grid", Event::DblClick, [this](Control& grid, const Event& event) {
    // Where one tap plays, a tap that chooses a song for the list being edited must not.
    if (state.playListEditing && settings.flag(key::SinglePress)) return;
    listUndo.around([&] { browsing.Grid_DblClick(grid.index, event.column, event.row); });
  });
  form.on(u"Grid", Event::ButtonClicked, [this](Control& grid, const Event& event) {
    browsing.Grid_ButtonClicked(grid.index, event.column, event.row);
  });
  form.on(Event::KeyDown,
          [this](Control&, const Event& event) { browsing.Form_KeyDown(event.key); });
  form.on(Event::KeyPress,
          [this](Control&, const Event& event) { browsing.Form_KeyPress(event.text); });
}

void Console::wireNetwork() {
  master.networkAsked = [this](const QList<ListenerEntry>& list) { network.loadit(list); };
  master.listHeard = [this](const QList<ListenerEntry>& list, bool all) {
    links.listHeard(list, all);
  };
  network.choiceCleared = [this](const QString& type) {
    if (type == "MUSIC"_L1) music.ConnectionMP3Close();
    if (type == "MOVIES"_L1) connectionMovie->Close();
    if (type == "X10"_L1) x10Control->Close();
    links.look();
  };
}

void Console::wireSound() {
  const auto on = [this](QStringView name, Event::Type type, std::function<void()> handler) {
    frmMain.on(name, type, [handler = std::move(handler)](Control&, const Event&) { handler(); });
  };
  on(u"scrollVolume", Event::Change, [this] { volume.scrollVolume_Change(); });
  on(u"scrollVolume", Event::Scroll, [this] { volume.scrollVolume_Change(); });
  for (const auto& [name, by] : {std::pair{u"ScrollVolumeUp", +1}, {u"ScrollVolumeDN", -1}}) {
    on(name, Event::Press, [this, by = by] {
      if (guestLock.admits()) volume.scrollVolumeButton_Press(by);
    });
    on(name, Event::Release, [this] { volume.scrollVolumeButton_Release(); });
  }
  on(u"mute", Event::Click, [this] {
    if (guestLock.admits()) volume.mute_Click();
  });
}

void Console::wirePlaylists() {
  Form& form = frmMain;
  const auto on = [&form](QStringView name, Event::Type type, auto handler) {
    form.on(name, type,
            [handler](Control& control, const Event& event) { handler(control.index, event.row); });
  };
  on(u"cmdFavoriateAdd", Event::Click, [this](int, int) { favourites.cmdFavoriateAdd_Click(); });
  on(u"cmdPlayLists", Event::Click, [this](int, int) { screens->cmdPlayLists_Click(); });
  on(u"cmdPlayListCommands", Event::Click,
     [this](int i, int) { editor.cmdPlayListCommands_Click(i); });
  on(u"cmdPlayListChoices", Event::Click,
     [this](int i, int) { editor.cmdPlayListChoices_Click(i); });
  on(u"cmdOneSong", Event::Press, [this](int i, int) { editor.cmdOneSong_Press(i); });
  on(u"playlistslider", Event::Change, [this](int, int) { editor.playlistslider_Change(); });
  on(u"playlistslider", Event::Scroll, [this](int, int) { editor.playlistslider_Change(); });
  on(u"gridPlayListSongs", Event::Click,
     [this](int, int row) { editor.gridPlayListSongs_Click(row); });
  on(u"txtSearch", Event::Change, [this](int, int) { editor.searchPanel().txtSearch_Change(); });
  on(u"txtSearch", Event::Click, [this](int, int) { editor.searchPanel().txtSearch_Click(); });
  on(u"cmdSearchKind", Event::Click,
     [this](int i, int) { editor.searchPanel().cmdSearchKind_Click(i); });
  on(u"gridSearch", Event::Click,
     [this](int, int row) { editor.searchPanel().gridSearch_Click(row); });
  on(u"cmdListUndo", Event::Click, [this](int, int) { listUndo.cmdListUndo_Click(); });
  on(u"ListUndoTimer", Event::Tick, [this](int, int) { listUndo.hide(); });
}

void Console::wireWindow() {
  const auto press = [this](QStringView name, std::function<void(int)> handler) {
    frmMain.on(name, Event::Click, [handler = std::move(handler)](Control& control, const Event&) {
      handler(control.index);
    });
  };
  // What a guest of a locked jukebox may not press.
  const auto guarded = [&](QStringView name, std::function<void(int)> handler) {
    press(name, [this, handler = std::move(handler)](int i) {
      if (guestLock.admits()) handler(i);
    });
  };
  press(u"imgTabs", [this](int i) {
    listUndo.hide();
    screens->newKeyboard.hide();
    if (!state.loadingForm) tabs.imgTabs_Click(i);
    links.look();
  });
  press(u"lblMoviesPlay", [this](int i) { moviesTab.lblMoviesPlay_Click(i); });
  guarded(u"cmdSetup", [this](int) {
    if (!buttonEditor.isOpen()) return screens->cmdSetup_Click();
    messages.say(u"You need to finish the custom buttons before proceeding to setup."_s);
  });
  guarded(u"imgExit", [this](int) { window.imgExit_Click(); });
  guarded(u"cmdMinimize", [this](int) { window.cmdMinimize_Click(); });
}

void Console::wireHome() {
  const auto on = [this](QStringView name, Event::Type type, std::function<void(int)> handler) {
    frmMain.on(name, type, [handler = std::move(handler)](Control& control, const Event&) {
      handler(control.index);
    });
  };
  on(u"cmdbutton", Event::Click, [this](int i) {
    if (!buttonEditor.isOpen()) buttons.cmdbutton_Click(i);
  });
  on(u"cmdbutton", Event::Press, [this](int i) { buttonEditor.cmdbutton_MouseDown(i); });
  on(u"cmdbutton", Event::Release, [this](int i) { buttonEditor.cmdbutton_MouseUp(i); });
  on(u"frameButtons", Event::Release, [this](int) { buttonEditor.frameButtons_MouseUp(); });
  on(u"cmdButtonAdd", Event::Click, [this](int) { buttonEditor.cmdButtonAdd_Click(); });
  on(u"cmdButtonLabel", Event::Click, [this](int) { buttonEditor.cmdButtonLabel_Click(); });
  on(u"cmdButtonAction", Event::Click, [this](int) { buttonEditor.cmdButtonAction_Click(); });
  on(u"cmdButtonApplyAttr", Event::Click, [this](int) { buttonEditor.cmdButtonApplyAttr_Click(); });
  on(u"cmdButtonKeyboard", Event::Click, [this](int) { buttonEditor.cmdButtonKeyboard_Click(); });
  on(u"cmdButtonDel", Event::Click, [this](int) { buttonEditor.cmdButtonDel_Click(); });
  on(u"cmdButtonDone", Event::Click, [this](int) { buttonEditor.cmdButtonDone_Click(); });
  on(u"cmdButtonCancel", Event::Click, [this](int) { buttonEditor.cmdButtonCancel_Click(); });
  for (const char* name : {"txtButtonWide", "txtButtonHigh", "txtButtonFontSize"})
    frmMain.on(QString::fromLatin1(name), Event::Click, [this](Control& box, const Event&) {
      buttonEditor.txtButton_Click(dynamic_cast<TextBox&>(box));
    });
  on(u"ButtonTimer", Event::Tick, [this](int) { buttons.ButtonTimer_Timer(); });
  on(u"HomeTimer", Event::Tick, [this](int) { homePanel.HomeTimer_Timer(); });
  on(u"cmdHome", Event::Click, [this](int i) {
    enum { Previous, PlayPause, Next };
    if (i != Next || guestLock.admits()) homePanel.cmdHome_Click(i);
  });
  for (const char* name : {"picHomeCover", "lblHomeTitle", "lblHomeArtist"})
    on(QString::fromLatin1(name), Event::Click, [this](int) { homePanel.showSong(); });

  buttonEditor.showKeyboard = [this](TextBox* box) {
    if (box)
      screens->newKeyboard.showFor(*box);
    else
      screens->newKeyboard.hide();
  };
  buttonEditor.editing = [this](bool edits) { homePanel.editing(edits); };
  buttons.act = [this](ButtonAction action) { doAction(action); };
  buttons.programShown = [this] { window.showAlwaysOnTop(); };
  buttons.programsEnded = [this] { window.closeAlwaysOnTop(); };
  homePanel.pressTransport = [this](int i) { transport.cmdControls_Click(i); };
  homePanel.playPause = [this] { playPause(); };
  homePanel.showSong = [this] { transport.lblCurrentPlay_DblClick(); };
  homePanel.artist = [this] {
    const Transport::Running& started = transport.started();
    return state.playsDiscAudio() ? QString() : started.songs.value(started.record - 1).Artist;
  };
}

}  // namespace korvane

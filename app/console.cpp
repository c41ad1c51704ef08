#include "app/console.h"

#include "app/screens.h"
#include "library/tags/any_cover.h"
#include "library/tags/cover_art.h"

namespace korvane {

Console::Console(System& doors, const MakeHost& makeHost, QString home, std::function<void()> end)
    : system(doors),
      settings(system.files, system.pump, state, home),
      log(system.files, system.clock, home),
      graphics(system.files, state, home),
      ownHost(makeHost(graphics)),
      host(*ownHost),
      palette(settings),
      frmMain(u"frmMain"_s, mainInventory()),
      frmSplash(u"frmSplash"_s, splashInventory()),
      messages(host, palette),
      main(frmMain, state),
      tabs({frmMain, state, screen, messages, log}),
      parts(main, state, settings),
      database(home),
      playlists({state, settings, system.files, system.pump, log, database}),
      connectionMP3(system.makeWinsock()),
      connectionMovie(system.makeWinsock()),
      connectionML(system.makeWinsock()),
      x10Control(system.makeWinsock()),
      master({state, settings, screen, messages, log, system.pump, *connectionML}),
      network({host, palette, state, messages}),
      listeners({host, palette, state, system.network, *connectionML}),
      music({frmMain, state, settings, messages, log, system.pump, system.files, system.player,
             system.mixer, *connectionMP3,
             [this](const QString& path) {
               const bool any = settings.upper(key::Tags) == "FULL"_L1;
               return any ? anyCoverArtBytes(path) : coverArtBytes(path);
             }}),
      links(frmMain, {state, settings, palette, system.clock, master, music}),
      transport(frmMain, {main, state, screen, tabs, database, music, system.pump, system.chance}),
      browsing(frmMain,
               {main, state, screen, messages, system.box, log, palette, database, playlists},
               transport),
      jukebox(frmMain,
              {main, state, palette, database, browsing, transport, system.pump, system.chance}),
      volume(frmMain, {state, settings, tabs, music, system.mixer, log, system.pump}),
      editor(frmMain,
             {main, state, screen, messages, palette, system.pump, database, playlists, browsing}),
      favourites(frmMain, {state, settings, system.files, system.pump, screen, messages, database,
                           playlists, browsing}),
      listUndo(frmMain, {state, settings, music, transport, browsing, system.pump}),
      cd(frmMain, {main, state, screen, settings, messages, log, system.pump, system.disc, database,
                   browsing, music, transport}),
      musicTab(parts, browsing, editor, transport, music, system.player),
      moviesTab(parts),
      photosTab(parts, system, messages),
      buttons(frmMain, {graphics, palette, system.files, log, screen, system.programs}),
      buttonEditor(frmMain, {buttons, palette, messages}),
      homePanel(frmMain, {state, settings, palette, system.clock}),
      mainTab(parts, tabs, musicTab, buttons, homePanel),
      mapsTab(parts, musicTab),
      moreTab(parts, system, palette, *x10Control, musicTab),
      startup({system, state, settings, graphics, palette, log, screen, main, tabs, host, frmSplash,
               *this}),
      window({frmMain, state, host, messages, startup, system.tray, system.session},
             std::move(end)),
      guestLock(frmMain, {state, settings, messages}) {
  browsing.setEditor(editor);
  transport.setBrowsing(browsing);
  transport.setQueue(jukebox);
  music.volumeTold = [this] { volume.volumeTold(); };
  system.mixer.watch([this] { volume.mixerChanged(); });
  jukebox.modeChanged = [this] { guestLock.lock(); };
  music.setNews(&transport);
  Tab* const byIndex[] = {&musicTab, &moviesTab, &photosTab, &mainTab, &mapsTab, &moreTab};
  for (int i = 0; i < 6; ++i) tabs.setTab(i, *byIndex[i]);
  screens = std::make_unique<Screens>(*this);
  tabs.closeAlwaysOnTop = [this] { window.closeAlwaysOnTop(); };
  wire();
}

Console::~Console() = default;

void Console::showMainForm() {
  host.show(frmMain);
}

void Console::fillArtists() {
  log.guard("Form_Load", "Form frmMain", [this] { browsing.fillArtists(); });
}
void Console::fillAlbums() {
  log.guard("Form_Load", "Form frmMain", [this] { browsing.fillAlbums(); });
}
void Console::fillSongs() {
  log.guard("Form_Load", "Form frmMain", [this] { browsing.fillSongs(); });
}

void Console::loadMovedControls() {
  const auto bytes = system.files.read(graphics.themeDirectory() + u"/positons.txt"_s);
  if (bytes) {
    for (const QString& line : QString::fromUtf8(*bytes).split(u'\n')) {
      const QStringList fields = line.trimmed().split(u"@@#"_s);
      if (fields.size() < 2) continue;
      Control* control = frmMain.find(fields[0], fields.size() == 4 ? fields[3].toInt() : -1);
      if (!control || control->tag().compare("NO"_L1, Qt::CaseInsensitive) == 0) continue;
      Rect place = control->rect();
      place.left = static_cast<int>(std::lround(val(fields[1])));
      if (fields.size() > 2) place.top = static_cast<int>(std::lround(val(fields[2])));
      control->rect = place;
    }
  }
  main.rememberGrids();
}

void Console::closeConnections() {
  connectionMovie->Close();
  x10Control->Close();
  master.close();
  music.ConnectionMP3Close();
  system.player.Stop();
}

}  // namespace korvane

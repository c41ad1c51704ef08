// What the built-in actions of the owner's buttons do.
#include "app/console.h"
#include "app/screens.h"

namespace korvane {
namespace {

enum TopCommand { kArtists, kAlbums, kPlaylists, kSongs, kSearch, kBack, kFavourites };
constexpr int kSongsList = 5, kDisc = 0, kJukebox = 1;

}  // namespace

void Console::openMusicList(int command) {
  screens->openMusic();
  listUndo.around([&] { browsing.cmdTop_Click(command); });
}

// All songs, in any order, from any of them on.
void Console::shuffle() {
  openMusicList(kSongs);
  auto& songs = dynamic_cast<Grid&>(*frmMain.find(u"Grid", kSongsList));
  if (songs.maxRows() == 0) {
    messages.say(
        u"There is no song in the library yet. Press setup, then Digital Music Setup, to add "
        "some."_s);
    return;
  }
  if (!frmMain.find(u"cmdControls", Transport::Random)->tagged() && !state.jukeboxMode)
    transport.cmdControls_Click(Transport::Random);
  const int row = 1 + static_cast<int>(system.chance.rnd() * static_cast<float>(songs.maxRows()));
  songs.SetActiveCell(1, row);
  listUndo.around([&] { browsing.Grid_DblClick(kSongsList, 1, songs.row()); });
}

// What is paused goes on, what was stopped begins again, and where nothing has played yet, any song
// does. The jukebox and the CD know their own beginning.
void Console::playPause() {
  if (state.gPlayMode == PlayMode::Playing)
    transport.cmdControls_Click(Transport::Pause);
  else if (state.gPlayMode == PlayMode::Paused || state.jukeboxMode || state.playsDiscAudio())
    transport.cmdControls_Click(Transport::Play);
  else if (const Transport::Running last = transport.started(); last.number > 0)
    transport.resume(last, true);
  else
    shuffle();
}

void Console::doAction(ButtonAction action) {
  switch (action) {
    case ButtonAction::None:
    case ButtonAction::Program:
      return;
    case ButtonAction::Ripper:
      if (openRipper) return openRipper();
      messages.say(
          u"This console cannot copy CDs yet. A CD can be played: press CD on the Music tab."_s);
      return;
    case ButtonAction::Restart:
    case ButtonAction::Shutdown:
      if (guestLock.admits()) window.askShutdown(action == ButtonAction::Restart);
      return;
    case ButtonAction::Connect:
      return master.mlreset();
    case ButtonAction::PictureEdit:
      tabs.imgTabs_Click(kPhotosTab);
      if (!frmMain.fire(*frmMain.find(u"cmdPhotoSetup"), {Event::Click}))
        messages.say(u"This console cannot change pictures yet."_s);
      return;
    case ButtonAction::Music:
      return tabs.imgTabs_Click(kMusicTab);
    case ButtonAction::Movies:
      return tabs.imgTabs_Click(kMoviesTab);
    case ButtonAction::Photos:
      return tabs.imgTabs_Click(kPhotosTab);
    case ButtonAction::Maps:
      return tabs.imgTabs_Click(kMapsTab);
    case ButtonAction::More:
      return tabs.imgTabs_Click(kMoreTab);
    case ButtonAction::Artists:
      return openMusicList(kArtists);
    case ButtonAction::Albums:
      return openMusicList(kAlbums);
    case ButtonAction::Songs:
      return openMusicList(kSongs);
    case ButtonAction::Search:
      openMusicList(kSongs);
      return openMusicList(kSearch);
    case ButtonAction::Playlists:
      return openMusicList(kPlaylists);
    case ButtonAction::Favourites:
      return openMusicList(kFavourites);
    case ButtonAction::Jukebox:
      screens->openMusic();
      if (guestLock.admits()) jukebox.optMode_Click(kJukebox);
      return;
    case ButtonAction::Shuffle:
      if (guestLock.admits()) shuffle();
      return;
    case ButtonAction::PlayPause:
      return playPause();
    case ButtonAction::Disc:
      screens->openMusic();
      if (guestLock.admits()) cd.lblMusicType_Click(kDisc);
      return;
    case ButtonAction::Mute:
      if (guestLock.admits()) volume.mute_Click();
      return;
    case ButtonAction::Setup:
      if (guestLock.admits()) screens->cmdSetup_Click();
      return;
    case ButtonAction::Minimise:
      if (guestLock.admits()) window.cmdMinimize_Click();
      return;
    case ButtonAction::Exit:
      if (guestLock.admits()) window.imgExit_Click();
      return;
  }
}

}  // namespace korvane

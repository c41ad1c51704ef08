#include "playback/quick_play.h"

#include "core/form/panel.h"

namespace korvane {
namespace {

constexpr int kAllSongs = static_cast<int>(MusicList::AllSongs);

}  // namespace

QuickPlay::QuickPlay(Desk& desk, Browsing& browsing, Transport& transport, ListUndo& listUndo)
    : desk_(desk),
      browsing_(browsing),
      transport_(transport),
      listUndo_(listUndo),
      allSongs_(&controlOf<Grid>(desk.frmMain, u"Grid", kAllSongs)),
      random_(&controlOf<Image>(desk.frmMain, u"cmdControls", Transport::Random)) {}

void QuickPlay::openList(PageCommand list) {
  desk_.openTab(kMusicTab);
  listUndo_.around([&] { browsing_.cmdTop_Click(static_cast<int>(list)); });
}

void QuickPlay::shuffle() {
  openList(PageCommand::AllSongs);
  const int count = allSongs_->maxRows();
  if (count == 0) {
    desk_.messages.say(
        u"There is no song in the library yet. Press setup, then Digital Music Setup, to add "
        "some."_s);
    return;
  }
  if (!random_->tagged() && !desk_.state.jukeboxMode)
    transport_.cmdControls_Click(Transport::Random);
  allSongs_->SetActiveCell(1, anyOf(count, desk_.system.chance.rnd()));
  listUndo_.around([&] { browsing_.Grid_DblClick(kAllSongs, 1, allSongs_->row()); });
}

void QuickPlay::playPause() {
  const AppState& state = desk_.state;
  if (state.gPlayMode == PlayMode::Playing)
    transport_.cmdControls_Click(Transport::Pause);
  else if (state.gPlayMode == PlayMode::Paused || state.jukeboxMode || state.playsDiscAudio())
    transport_.cmdControls_Click(Transport::Play);
  else if (const Transport::Running last = transport_.started(); last.number > 0)
    transport_.resume(last, true);
  else
    shuffle();
}

}  // namespace korvane

#include "playback/quick_play.h"

namespace korvane {

void QuickPlay::openList(PageCommand list) {
  uses_.desk.openTab(kMusicTab);
  uses_.listUndo.around([&] { uses_.browsing.cmdTop_Click(list); });
}

void QuickPlay::shuffle() {
  openList(PageCommand::AllSongs);
  const int count = uses_.browsing.page(MusicList::AllSongs).grid.maxRows();
  if (count == 0) {
    uses_.desk.messages.say(
        u"There is no song in the library yet. Press setup, then Digital Music Setup, to add "
        "some."_s);
    return;
  }
  Transport& transport = uses_.transport;
  if (!transport.lit(TransportButton::Random) && !uses_.desk.state.jukeboxMode)
    uses_.desk.players.press(transport, TransportButton::Random);
  const int row = anyOf(count, uses_.desk.system.chance.rnd());
  uses_.browsing.setActive(MusicList::AllSongs, row);
  uses_.listUndo.around([&] { uses_.browsing.Grid_DblClick(MusicList::AllSongs, 1, row); });
}

void QuickPlay::playPause(Player& music) {
  const AppState& state = uses_.desk.state;
  Players& players = uses_.desk.players;
  if (state.gPlayMode == PlayMode::Playing)
    players.press(music, TransportButton::Pause);
  else if (state.gPlayMode == PlayMode::Paused || state.jukeboxMode || state.playsDiscAudio())
    players.press(music, TransportButton::Play);
  else if (const Transport::Running last = uses_.transport.started(); last.number > 0)
    uses_.transport.resume(last, true);
  else
    shuffle();
}

}  // namespace korvane

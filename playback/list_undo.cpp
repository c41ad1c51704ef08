#include "playback/list_undo.h"

namespace korvane {
namespace {

constexpr int kOffered = 10'000;  // ms
constexpr int kFirstTime = 3000;  // ms until the player reports a time
constexpr MusicList kAllSongs = MusicList::AllSongs;

// All songs run by their own position, whatever becomes of the play list.
bool replaced(const Transport::Running& before, const Transport::Running& after) {
  if (before.list == kAllSongs && after.list == kAllSongs) return false;
  return before.list != after.list || before.songs != after.songs;
}

}  // namespace

ListUndo::ListUndo(Form& form, Uses uses) : uses_(uses), panel_(form) {
  panel_.ListUndoTimer->interval = kOffered;
}

void ListUndo::hide() {
  panel_.framListUndo->visible = false;
  panel_.ListUndoTimer->enabled = false;
}

void ListUndo::around(const std::function<void()>& press) {
  const bool running = uses_.state.gPlayMode != PlayMode::Stopped && !uses_.state.jukeboxMode;
  const Transport::Running started = uses_.transport.started(), list = uses_.transport.running();
  const double seconds = panel_.Slider1->value();
  const QString caption = panel_.lblCurrentPlayList->caption();
  press();
  if (!running || started.songs.isEmpty() || !uses_.settings.flag(key::ListUndo)) return;

  const Transport::Running now = uses_.transport.started();
  const bool otherSong = now.number != started.number;
  if (otherSong ? !replaced(started, now)
                : list.songs == uses_.transport.running().songs || started.list == kAllSongs ||
                      started.songs == uses_.transport.running().songs)
    return;
  if (!panel_.framListUndo->visible() || kept_.number != started.number) caption_ = caption;
  kept_ = started;
  seconds_ = seconds;
  QString name = caption_.section(u" = "_s, 1).section(u"  ("_s, 0, -2);
  if (name.isEmpty()) name = kept_.songs.value(std::max(kept_.record, 1) - 1).Album.trimmed();
  panel_.lblListUndo->caption = name + u" was replaced"_s;
  panel_.ListUndoTimer->enabled = false;  // counts anew
  panel_.ListUndoTimer->enabled = true;
  panel_.framListUndo->visible = true;
}

void ListUndo::cmdListUndo_Click() {
  hide();
  const bool again = uses_.transport.started().number != kept_.number;
  const Transport::Running back = kept_;
  const double seconds = seconds_;
  panel_.lblCurrentPlayList->caption = caption_;
  uses_.transport.resume(back, again);
  uses_.browsing.showRunning(back.list, back.list == kAllSongs ? back.allSongs : back.record,
                             back.songs, caption_);
  if (!again || seconds < 1) return;
  uses_.pump.wait(kFirstTime, [this] { return panel_.Slider1->value() > 0; });
  uses_.connection.ConnectionMP3Send(u"MUSIC"_s, u"CURRENTPOSITION"_s,
                                     numberText(std::floor(seconds)));
}

}  // namespace korvane

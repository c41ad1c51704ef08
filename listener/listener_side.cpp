#include "listener/listener_side.h"

#include "library/tags/any_cover.h"
#include "library/tags/cover_art.h"

namespace korvane {

ListenerSide::ListenerSide(Desk& d)
    : connectionMP3(d.system.makeWinsock()),
      connectionMovie(d.system.makeWinsock()),
      connectionML(d.system.makeWinsock()),
      master({d.state, d.settings, d.screen, d.messages, d.log, d.system.pump, d.system.clock,
              *connectionML}),
      network(d.dialogs, d.state),
      listeners(d.dialogs, {d.state, d.system.network, *connectionML}),
      music({d.frmMain, d.state, d.settings, d.messages, d.log, d.system.pump, d.system.files,
             d.system.player, d.system.mixer, *connectionMP3,
             [&d](const QString& path) {
               const bool any = d.settings.upper(key::Tags) == "FULL"_L1;
               return any ? anyCoverArtBytes(path) : coverArtBytes(path);
             }}),
      movies({d.frmMain, d.state, d.settings, d.messages, d.log, d.system.pump, *connectionMovie}),
      links(d.frmMain, {d.state, d.settings, d.palette, d.system.clock, master, music, movies}) {
  d.steps.at(Step::MasterListener, [this] { master.connectionMLConnect(); });
  d.steps.at(Step::CloseMovieLink, [this] { movies.ConnectionMovieClose(); });
  d.steps.at(Step::CloseMasterLink, [this] { master.close(); });
  d.steps.at(Step::CloseMusicLink, [this] { music.ConnectionMP3Close(); });
  d.setupDoors.add({"cmdListener", -1, [this] { listeners.open(); }});
  d.words.add({u"CONNECT"_s, u"btnconnect"_s, {}, [this] { master.mlreset(); }});
  d.words.add({u"RECONNECT"_s, u"btnconnect"_s, u"look for the Listeners again"_s,
               [this] { master.mlreset(); }});
  d.guard(d.frmMain, u"lblMusicPlay", Event::Click);
  d.guard(network.form(), u"cmdAble", Event::Click);
  connectMaster(d);
}

void ListenerSide::connectMaster(Desk& desk) {
  closesWith(u"MUSIC"_s, [this] { music.ConnectionMP3Close(); });
  closesWith(u"MOVIES"_s, [this] { movies.ConnectionMovieClose(); });
  master.networkAsked = [this](const QList<ListenerEntry>& list) { network.loadit(list); };
  master.listHeard = [this](const QList<ListenerEntry>& list, bool all) {
    links.listHeard(list, all);
  };
  network.choiceCleared = [this](const QString& type) {
    if (const auto closes = closers_.value(type)) closes();
    links.look();
  };
  // The page may have changed with the tab.
  desk.tabs.entered.push_back([this] { links.look(); });
}

}  // namespace korvane

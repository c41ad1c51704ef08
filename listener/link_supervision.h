// By key LinkSupervision: keeps the links to the Master, the Music and the Movie Listener up, and
// shows a lamp with its words for each, with a press that tries again at once.
#pragma once

#include "core/form/panel.h"
#include "core/palette.h"
#include "listener/link_watch.h"
#include "listener/master_listener.h"
#include "listener/movie_connection.h"
#include "listener/music_connection.h"
#include "platform/clock.h"

namespace korvane {

class LinkSupervision {
 public:
  // All of it outlives the supervision.
  struct Uses {
    AppState& state;
    const Settings& settings;
    const Palette& palette;
    const Clock& clock;
    MasterListener& master;
    MusicConnection& music;
    MovieConnection& movies;
  };
  // Hears the news of the links while it lives.
  LinkSupervision(Form& form, Uses uses);
  ~LinkSupervision();

  // Connects what is to be connected, and shows how the links stand; to be called whenever the page
  // or a role may have changed.
  void look();

  void cmdLink_Click();  // tries what does not stand

  // A list of the Master Listener: a Music or Movie Listener that has come back under another
  // address is followed there.
  void listHeard(const QList<ListenerEntry>& entries, bool all);

 private:
  // In the order of their labels.
  enum Peer { Master, Music, Movies };
  static constexpr size_t kPeers = 3;

  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* framLink = bind("framLink");
    std::array<Label*, kPeers> lblLink = bind("lblLink");
    Button* cmdLink = bind("cmdLink");
    Timer* LinkTimer = bind("LinkTimer");
    Image* musicTab = bind("imgTabs", 0);
    Image* moviesTab = bind("imgTabs", 1);
    Control* coverArt = bind("coverArt");
  };
  struct Link : LinkNews {
    LinkSupervision* of = nullptr;
    LinkWatch watch;
    void linkTries() override;
    void linkStands() override;
    void linkAsks() override;
    void linkHears() override;
    void linkEnds(const QString& why) override;
    void linkChanged() override;
  };

  qint64 now() const { return uses_.clock.monotonicMs(); }
  bool wanted(size_t peer) const;
  bool speaks(size_t peer) const;  // all the time, as while something plays
  Winsock::State socket(size_t peer) const;
  void connectAgain(size_t peer);
  bool inTrouble(size_t peer) const;
  void follow(Peer peer, QString& name, QString& ip, QString& port,
              const QList<ListenerEntry>& entries, bool all);

  void show();
  void showOnMusic();
  void showOnMovies();
  void write(Label& label, size_t peer, bool whole);

  Uses uses_;
  Panel panel_;
  std::array<Link, kPeers> links_;
  bool looking_ = false;
};

}  // namespace korvane

// By key LinkSupervision: keeps the links to the Master Listener and to the Music Listener up, and
// shows a lamp with its words for each, with a press that tries again at once.
#pragma once

#include "core/form/panel.h"
#include "core/palette.h"
#include "listener/link_watch.h"
#include "listener/master_listener.h"
#include "listener/music_connection.h"
#include "platform/clock.h"

namespace korvane {

class LinkSupervision {
 public:
  struct Uses {
    AppState& state;
    const Settings& settings;
    const Palette& palette;
    const Clock& clock;
    MasterListener& master;
    MusicConnection& music;
  };
  // Hears the news of both links while it lives.
  LinkSupervision(Form& form, Uses uses);
  ~LinkSupervision();

  // Connects what is to be connected, and shows how the links stand; to be called whenever the page
  // or the role may have changed.
  void look();

  void cmdLink_Click();  // tries what does not stand

  // A list of the Master Listener: a Music Listener that has come back under another address is
  // followed there.
  void listHeard(const QList<ListenerEntry>& entries, bool all);

  // How the link to the Music Listener, or else to the Master Listener, stands: "connected",
  // "Connection refused; again in 2 s"...
  QString words(bool music) const;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* framLink = bind("framLink");
    std::array<Label*, 2> lblLink = bind("lblLink");
    Button* cmdLink = bind("cmdLink");
    Timer* LinkTimer = bind("LinkTimer");
    Image* musicTab = bind("imgTabs", 0);
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
  bool masterWanted() const;
  bool musicWanted() const;
  bool musicSpeaks() const;
  void lookAtMaster();
  void lookAtMusic();
  void show();

  Uses uses_;
  Panel panel_;
  Link master_, music_;
  bool looking_ = false;
};

}  // namespace korvane

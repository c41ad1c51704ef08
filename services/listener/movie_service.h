// The movies of a Listener: plays on this machine's screen what consoles ask for, a file or a DVD,
// and tells all of them of each change. A failure goes to the one that asked.
#pragma once

#include "platform/movie_screen.h"
#include "platform/ticker.h"
#include "services/listener/listener_service.h"
#include "services/listener/media_paths.h"
#include "services/listener/stop_echo.h"

namespace korvane {

class MovieService : private ListenerPart, private VideoPlayer::Events, private DvdPlayer::Events {
 public:
  struct Settings {
    MediaRoots roots;
    QString dvd;        // what DVDP plays: a folder or a device; empty for the first drive
    int tickMs = 1000;  // between reports of the time
  };
  struct Uses {  // all must outlive the service
    ListenerService& listener;
    const FileSystem& files;
    VideoPlayer& video;
    DvdPlayer& dvd;
    MovieScreen& screen;
    Ticker& movieTimer;
    ServiceLog& log;
    Settings settings;
  };
  // It is a part of the Listener and hears the players and the timer until it ends.
  explicit MovieService(Uses uses);
  ~MovieService() override;

 private:
  using Command = ListenerCommand;
  struct Entry {
    QByteArrayView command;
    void (MovieService::*perform)(const Command&);
  };
  static const Entry kCommands[];
  enum class Source { None, File, Disc };  // of what plays or is paused
  enum class State { Stopped, Paused, Playing };

  bool takes(QByteArrayView target) const override;
  void status(Peer peer) override;
  void perform(const Command& command) override;
  void left(Peer peer) override;
  void fallSilent() override { end(0); }
  void setVolume(int level) override;
  void setMute(bool on) override;

  void play(const Command&);
  void stop(const Command&);
  void pause(const Command&);
  void duration(const Command&);
  void currentPosition(const Command&);
  void fullScreen(const Command&);
  void normalScreen(const Command&);
  void prevChapter(const Command&);
  void nextChapter(const Command&);
  void keyEnter(const Command&);
  void keyUpper(const Command&);
  void keyRight(const Command&);
  void keyLower(const Command&);
  void keyLeft(const Command&);

  void endOfMovie() override;
  void durationKnown(double seconds) override;
  void DVDNotify(DvdPlayer::Notice notice) override;
  void endOfDisc() override;
  void failed(const QString& description) override;

  void resume();
  void playFile(const Command& command, const QString& path);
  void playDisc(const Command& command, const QString& folder, const QString& title);
  void begun(const Command& command, const QString& title, const QString& path);
  bool end(Peer asker);
  void ended();
  void letGo();
  void setLarge(bool large);
  void arrow(DvdPlayer::Arrow towards);
  void tick();
  void tellPosition();
  void tellState() { tellAll({u"MOVIEPLAYERSTATE"_s, stateText()}); }
  void tell(Peer peer, std::initializer_list<QString> fields) { uses_.listener.tell(peer, fields); }
  void tellAll(std::initializer_list<QString> fields) { uses_.listener.tellAll(*this, fields); }

  State state() const;
  double length() const;
  QString stateText() const;
  bool discPlays() const { return source_ == Source::Disc; }

  Uses uses_;
  Source source_ = Source::None;
  QString title_;
  QString path_, nameAsked_;  // of what plays, and what a console calls it
  Peer owner_ = 0;            // who asked for it
  bool large_ = true;
  StopEcho echo_;
};

}  // namespace korvane

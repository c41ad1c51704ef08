// The music of a Listener: plays what consoles ask for and tells all of them of each change.
//
// A song belongs to the console that asked for it: its end, or that it cannot be played, goes to
// that one, which knows what comes next. The others hear of the next song or of silence.
#pragma once

#include "platform/media_player.h"
#include "platform/pump.h"
#include "platform/ticker.h"
#include "services/listener/listener_service.h"
#include "services/listener/media_paths.h"
#include "services/listener/stop_echo.h"

namespace korvane {

class MusicService : private ListenerPart, private MediaPlayer::Events {
 public:
  using CoverArt = std::function<std::optional<QByteArray>(const QString& path)>;
  struct Settings {
    MediaRoots roots;
    int tickMs = 1000;  // between MUSICTIMER records
  };
  struct Uses {  // all must outlive the service
    ListenerService& listener;
    const FileSystem& files;
    MediaPlayer& player;
    Ticker& musicTimer;
    Pump& pump;
    ServiceLog& log;
    CoverArt coverArtBytes;  // a song's own picture; called on another thread
    Settings settings;
  };
  // It is a part of the Listener and hears the player and the timer until it ends.
  explicit MusicService(Uses uses);
  ~MusicService() override;

 private:
  using Command = ListenerCommand;
  struct Entry {
    QByteArrayView command;
    void (MusicService::*perform)(const Command&);
  };
  static const Entry kCommands[];

  bool takes(QByteArrayView target) const override { return target == "MUSIC"; }
  void status(Peer peer) override;
  void perform(const Command& command) override;
  void left(Peer peer) override;
  void fallSilent() override;
  void setVolume(int level) override { uses_.player.setVolume(level); }
  void setMute(bool on) override { uses_.player.setMute(on); }

  void play(const Command&);
  void playFile(const Command&);
  void resume(const Command&);
  void stop(const Command&);
  void pause(const Command&);
  void duration(const Command&);
  void currentPosition(const Command&);

  void endOfStream() override;
  void durationKnown(double seconds) override;
  void failed(const QString& description) override;

  void tell(Peer peer, std::initializer_list<QString> fields) { uses_.listener.tell(peer, fields); }
  void tellAll(std::initializer_list<QString> fields) { uses_.listener.tellAll(*this, fields); }
  void tellState();
  void tellPosition();
  void tellSilence();
  bool end(Peer asker);
  void tick();
  void sendCover(const QString& path);
  QString stateText() const;

  Uses uses_;
  QString title_;
  QString path_, nameAsked_;  // of the file the player has, and what a console calls it
  Peer owner_ = 0;            // who asked for the song
  int song_ = 0;              // counts songs and stops
  int failuresInARow_ = 0;    // songs that could not be played since one sounded
  StopEcho echo_;
  int silenceDueMs_ = 0;  // left until an ended song that nobody follows counts as stopped
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

// A Music Listener: plays what consoles ask for and tells all of them of each change.
//
// A song belongs to the console that asked for it: its end, or that it cannot be played, goes to
// that one, which knows what comes next. The others hear of the next song or of silence.
#pragma once

#include "listener/player_level.h"
#include "platform/pump.h"
#include "services/listener/song_paths.h"
#include "services/server/record_server.h"

namespace korvane {

class MusicService : private RecordService, private MediaPlayer::Events {
 public:
  using CoverArt = std::function<std::optional<QByteArray>(const QString& path)>;
  struct Settings {
    SongRoots roots;
    WireText encoding = WireText::Windows1252;
    int tickMs = 1000;       // between MUSICTIMER records
    bool tellVolume = true;  // in the answer to STATUS
  };
  struct Uses {  // all must outlive the service
    RecordServer& server;
    const FileSystem& files;
    MediaPlayer& player;
    Mixer& mixer;
    Ticker& musicTimer;
    Pump& pump;
    ServiceLog& log;
    CoverArt coverArtBytes;  // a song's own picture; called on another thread
    Settings settings;
  };
  // It is the server's service and hears the player, the mixer and the timer until it ends.
  explicit MusicService(Uses uses);
  ~MusicService() override;

 private:
  struct Command {
    Peer peer;
    QString argument1, argument2;
  };
  struct Entry {
    QByteArrayView command;
    void (MusicService::*perform)(const Command&);
  };
  static const Entry kCommands[];

  void record(Peer peer, QByteArrayView bytes) override;
  void left(Peer peer) override;

  void status(const Command&);
  void play(const Command&);
  void playFile(const Command&);
  void resume(const Command&);
  void stop(const Command&);
  void pause(const Command&);
  void duration(const Command&);
  void muteOn(const Command&);
  void muteOff(const Command&);
  void volume(const Command&);
  void currentPosition(const Command&);

  void endOfStream() override;
  void durationKnown(double seconds) override;
  void failed(const QString& description) override;

  void tell(Peer peer, std::initializer_list<QString> fields);
  void tellAll(std::initializer_list<QString> fields);
  void tellState();
  void tellPosition();
  void tellSilence();
  void tick();
  void sendCover(const QString& path);
  void noteEcho(Peer asker);
  bool isEcho(Peer peer);
  QByteArray recordOf(std::initializer_list<QString> fields) const;
  QString stateText() const;
  QString withoutPath(QString description) const;

  Uses uses_;
  QString title_;
  QString path_, nameAsked_;  // of the file the player has, and what a console calls it
  Peer owner_ = 0;            // who asked for the song
  int song_ = 0;              // counts songs and stops
  int failuresInARow_ = 0;    // songs that could not be played since one sounded
  PlayerLevel level_;
  std::map<Peer, qint64> echoUntil_;  // consoles that may answer "stopped" with a STOP of their own
  int silenceDueMs_ = 0;  // left until an ended song that nobody follows counts as stopped
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

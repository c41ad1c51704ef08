// The local role: this console is its own Music Listener. Each command acts on the media player and
// answers with the records that a Listener would send.
#pragma once

#include <functional>

#include "core/app_state.h"
#include "core/form/control.h"
#include "core/settings.h"
#include "listener/player_level.h"
#include "platform/file_system.h"
#include "platform/media_player.h"

namespace korvane {

// A command of "MUSIC" as ConnectionMP3Send takes it, without blanks at its ends.
struct MusicCommand {
  QString command, argument1, argument2;
};

// Who reads the local role's answers.
class LocalReplies {
 public:
  virtual ~LocalReplies() = default;
  virtual void localReply(const QString& record) = 0;  // a whole record, handled before it returns
  virtual void localCover(const QByteArray* image) = 0;  // of the song to be played; null for none
  virtual void localSongFailed(const QString& description) = 0;  // after it seemed to play
  virtual void localEndOfStream() = 0;                           // of the song at hand. Yields.
};

class LocalMusic : private MediaPlayer::Events {
 public:
  using CoverArt = std::function<std::optional<QByteArray>(const QString& path)>;
  struct Uses {
    AppState& state;
    Settings& settings;
    FileSystem& files;
    MediaPlayer& player;
    PlayerLevel& level;
    Timer& MusicTimer;
    LocalReplies& replies;
    CoverArt coverArtBytes;  // a song's own picture
  };
  explicit LocalMusic(Uses uses);  // the player's events come here while it lives
  ~LocalMusic() override;

  void perform(const MusicCommand& command);  // unknown ones are ignored. Yields.
  void tellLevel();                           // it has been changed elsewhere
  void tick();                                // of MusicTimer

 private:
  using Action = void (LocalMusic::*)(const MusicCommand&);
  struct Entry {
    QLatin1StringView command;
    Action action;
  };
  static const Entry kCommands[];

  void status(const MusicCommand&);
  void play(const MusicCommand&);
  void playFile(const QString& path, const QString& title);
  void stop(const MusicCommand&);
  void pause(const MusicCommand&);
  void duration(const MusicCommand&);
  void muteOn(const MusicCommand&);
  void muteOff(const MusicCommand&);
  void volume(const MusicCommand&);
  void currentPosition(const MusicCommand&);

  void reply(std::initializer_list<QString> fields);
  void replyState();
  void replyVolume();

  void endOfStream() override;
  void durationKnown(double seconds) override;
  void failed(const QString& description) override;

  Uses uses_;
};

}  // namespace korvane

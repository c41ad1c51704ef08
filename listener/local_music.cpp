#include "listener/local_music.h"

#include "listener/listener_record.h"
#include "listener/song_finder.h"

namespace korvane {

const LocalMusic::Entry LocalMusic::kCommands[] = {
    {"STATUS"_L1, &LocalMusic::status},
    {"PLAY"_L1, &LocalMusic::play},
    {"STOP"_L1, &LocalMusic::stop},
    {"PAUSE"_L1, &LocalMusic::pause},
    {"DURATION"_L1, &LocalMusic::duration},
    {"MUTE=TRUE"_L1, &LocalMusic::muteOn},
    {"MUTE=FALSE"_L1, &LocalMusic::muteOff},
    {"VOLUME"_L1, &LocalMusic::volume},
    {"CURRENTPOSITION"_L1, &LocalMusic::currentPosition},
};

LocalMusic::LocalMusic(Uses uses)
    : uses_(std::move(uses)),
      level_([this](int level) { uses_.player.setVolume(level); }, uses_.mixer) {
  uses_.player.setEvents(this);
}

LocalMusic::~LocalMusic() {
  uses_.player.setEvents(nullptr);
}

void LocalMusic::perform(const MusicCommand& command) {
  for (const Entry& entry : kCommands)
    if (entry.command == command.command) return (this->*entry.action)(command);
}

void LocalMusic::tick() {
  const double position = uses_.player.CurrentPosition();
  reply({u"MUSICTIMER"_s, minutesAndSeconds(position), numberText(position)});
}

void LocalMusic::status(const MusicCommand&) {
  const MediaPlayer::PlayState now = uses_.player.playState();
  if (uses_.state.playsDiscAudio()) return replyVolume();  // of the rest the CD tells
  if (now == MediaPlayer::Paused || now == MediaPlayer::Playing) {
    reply({u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
    reply({u"SONGPLAYING"_s, uses_.state.gSongPlayingTitle});
  }
  replyState();
  replyVolume();
}

void LocalMusic::replyVolume() {
  if (!uses_.settings.flag(key::DisplayVolume)) return;
  reply({u"MAXVOLUME"_s, QString::number(level_.maximum())});
  reply({u"VOLUME"_s, QString::number(level_.now())});
}

void LocalMusic::levelChangedOutside() {
  level_.changedOutside();
  replyVolume();
}

void LocalMusic::play(const MusicCommand& command) {
  if (!command.argument1.isEmpty()) return playFile(command.argument1, command.argument2);
  uses_.player.Play();
  uses_.MusicTimer.enabled = true;
  reply({u"PAUSETOPLAY"_s});
}

// The setting is written behind the call of Play: a save waits for the disk, a listener does not.
void LocalMusic::playFile(const QString& asked, const QString& title) {
  const std::optional<QString> path = findSong(uses_.files, asked);
  if (!path) {
    uses_.replies.localCover(nullptr);
    return reply({u"ERROR"_s, u"File not found"_s});
  }
  uses_.player.setFileName(uses_.files.resolve(*path).value_or(*path));
  const std::optional<QByteArray> cover =
      uses_.coverArtBytes ? uses_.coverArtBytes(*path) : std::nullopt;
  uses_.replies.localCover(cover ? &*cover : nullptr);
  uses_.state.gSongPlayingTitle = title;
  if (uses_.player.HasError()) {
    reply({u"ERROR"_s, uses_.player.ErrorDescription()});
  } else {
    reply({u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
    reply({u"SONGPLAYING"_s, title});
    uses_.player.Play();
    uses_.MusicTimer.enabled = true;
    replyState();
  }
  uses_.settings.write(key::LASTSONGPLAYED, *path);
}

void LocalMusic::stop(const MusicCommand&) {
  uses_.player.Stop();
  replyState();
  uses_.MusicTimer.enabled = false;
}

void LocalMusic::pause(const MusicCommand&) {
  if (uses_.player.playState() != MediaPlayer::Playing) return;
  uses_.MusicTimer.enabled = false;
  uses_.player.Pause();
  replyState();
}

void LocalMusic::duration(const MusicCommand&) {
  reply({u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
}

void LocalMusic::muteOn(const MusicCommand&) {
  uses_.player.setMute(true);
}

void LocalMusic::muteOff(const MusicCommand&) {
  uses_.player.setMute(false);
}

void LocalMusic::volume(const MusicCommand& command) {
  if (const auto asked = numberOf(command.argument1.toLatin1())) level_.set(*asked);
  reply({u"VOLUME"_s, command.argument1});
}

void LocalMusic::currentPosition(const MusicCommand& command) {
  if (const auto seconds = numberOf(command.argument1.toLatin1()))
    uses_.player.setCurrentPosition(std::max(*seconds, 0.0));
}

void LocalMusic::reply(std::initializer_list<QString> fields) {
  uses_.replies.localReply(replyRecord(fields));
}

void LocalMusic::replyState() {
  reply({u"MEDIAPLAYERSTATE"_s, QString::number(uses_.player.playState())});
}

void LocalMusic::endOfStream() {
  if (uses_.state.playsDiscAudio()) return;
  uses_.replies.localEndOfStream();
}

void LocalMusic::durationKnown(double seconds) {
  if (uses_.state.playsDiscAudio()) return;
  reply({u"MUSICDURATION"_s, numberText(seconds)});
}

void LocalMusic::failed(const QString& description) {
  if (uses_.state.playsDiscAudio()) return;
  uses_.replies.localSongFailed(description);
}

}  // namespace korvane

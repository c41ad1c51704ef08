#include "services/listener/music_service.h"

namespace korvane {
namespace {

constexpr qsizetype kMostCover = 8 << 20;
// Of what one console sends and all are sent: a long one would fill their queues.
constexpr qsizetype kLongestTitle = 1000;
constexpr int kOwnerMs = 2000;    // for a console to follow its song with another
constexpr int kMostFailures = 3;  // songs that are passed over before a list is given up

}  // namespace

const MusicService::Entry MusicService::kCommands[] = {
    {"PLAY", &MusicService::play},
    {"STOP", &MusicService::stop},
    {"PAUSE", &MusicService::pause},
    {"DURATION", &MusicService::duration},
    {"CURRENTPOSITION", &MusicService::currentPosition},
};

MusicService::MusicService(Uses uses) : uses_(std::move(uses)) {
  uses_.listener.add(*this);
  uses_.player.setEvents(this);
  uses_.musicTimer.tick = [this] { tick(); };
  uses_.player.prepare();
}

MusicService::~MusicService() {
  uses_.musicTimer.stop();
  uses_.musicTimer.tick = nullptr;
  uses_.player.setEvents(nullptr);
  uses_.listener.remove(*this);
}

void MusicService::perform(const Command& command) {
  for (const Entry& entry : kCommands)
    if (entry.command == command.name) return (this->*entry.perform)(command);
}

void MusicService::left(Peer peer) {
  echo_.forget(peer);
  if (owner_ == peer) owner_ = 0;
}

void MusicService::status(Peer peer) {
  const MediaPlayer::PlayState now = uses_.player.playState();
  if (now == MediaPlayer::Paused || now == MediaPlayer::Playing) {
    tell(peer, {u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
    tell(peer, {u"SONGPLAYING"_s, title_});
  }
  tell(peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
}

void MusicService::play(const Command& command) {
  command.argument1.isEmpty() ? resume(command) : playFile(command);
}

void MusicService::resume(const Command& command) {
  if (song_ == 0) return tell(command.peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
  uses_.listener.starts(*this);
  uses_.player.Play();
  uses_.musicTimer.start(uses_.settings.tickMs);
  tellAll({u"PAUSETOPLAY"_s});
}

// The player is called before anything is sent or read besides: what is asked for sounds first.
void MusicService::playFile(const Command& command) {
  const std::optional<QString> path =
      findBelow(uses_.files, uses_.settings.roots, kSongEndings, command.argument1);
  if (!path) {
    uses_.log.warn(u"connection %1 asks for a song that is not here: %2"_s.arg(command.peer)
                       .arg(printable(command.argument1)));
    return tell(command.peer, {u"ERROR"_s, u"File not found"_s});
  }
  path_ = *path;
  nameAsked_ = FileSystem::slashed(command.argument1).section(u'/', -1);
  uses_.player.setFileName(path_);
  uses_.listener.dropPictures();
  if (uses_.player.HasError()) {
    const QString description = uses_.player.ErrorDescription();
    uses_.log.warn(description);
    return tell(command.peer, {u"ERROR"_s, withoutPath(description, path_, nameAsked_)});
  }
  uses_.listener.starts(*this);
  uses_.player.Play();
  ++song_;
  silenceDueMs_ = 0;
  owner_ = command.peer;
  title_ = command.argument2.left(kLongestTitle);
  tellAll({u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
  tellAll({u"SONGPLAYING"_s, title_});
  tellState();
  uses_.listener.lightPlay(*this, owner_);
  uses_.musicTimer.start(uses_.settings.tickMs);
  sendCover(*path);
  uses_.log.say(u"connection %1 plays %2"_s.arg(command.peer).arg(printable(*path)));
}

void MusicService::sendCover(const QString& path) {
  if (!uses_.coverArtBytes) return;
  const auto cover = std::make_shared<std::optional<QByteArray>>();
  const CoverArt read = uses_.coverArtBytes;
  uses_.pump.inBackground([cover, read, path] { *cover = read(path); },
                          [this, alive = std::weak_ptr<bool>(alive_), cover, song = song_] {
                            if (alive.expired() || song != song_ || !*cover) return;
                            const QByteArray& picture = **cover;
                            if (picture.isEmpty() || picture.size() > kMostCover) return;
                            uses_.listener.tellPicture(*this, picture);
                          });
}

void MusicService::stop(const Command& command) {
  const bool echo = echo_.take(command.peer, uses_.listener.nowMs()) &&
                    uses_.player.playState() == MediaPlayer::Playing && owner_ != command.peer;
  if (echo || !end(command.peer)) tell(command.peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
}

void MusicService::fallSilent() {
  end(0);
}

// False when nothing had played.
bool MusicService::end(Peer asker) {
  const bool change = uses_.player.playState() != MediaPlayer::Stopped || silenceDueMs_ > 0;
  uses_.player.Stop();
  uses_.musicTimer.stop();
  silenceDueMs_ = 0;
  if (!change) return false;
  ++song_;
  uses_.listener.dropPictures();
  echo_.note(uses_.listener.peers(*this), asker, uses_.listener.nowMs());
  tellState();
  return true;
}

void MusicService::pause(const Command&) {
  if (uses_.player.playState() != MediaPlayer::Playing) return;
  uses_.musicTimer.stop();
  uses_.player.Pause();
  tellState();
}

void MusicService::duration(const Command& command) {
  tell(command.peer, {u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
}

void MusicService::currentPosition(const Command& command) {
  const std::optional<double> seconds = numberIn(command.argument1);
  if (!seconds) return;
  uses_.player.setCurrentPosition(std::max(*seconds, 0.0));
  if (uses_.player.playState() == MediaPlayer::Paused) tellPosition();  // no tick will tell it
}

void MusicService::tick() {
  if (silenceDueMs_ > 0) {
    silenceDueMs_ -= uses_.settings.tickMs;
    if (silenceDueMs_ <= 0) tellSilence();
    return;
  }
  if (uses_.player.playState() != MediaPlayer::Playing) return uses_.musicTimer.stop();
  tellPosition();
}

void MusicService::tellPosition() {
  const double position = uses_.player.CurrentPosition();
  if (position > 0) failuresInARow_ = 0;
  tellAll({u"MUSICTIMER"_s, minutesAndSeconds(position), numberText(position)});
}

void MusicService::endOfStream() {
  if (!uses_.listener.has(owner_)) return tellSilence();
  silenceDueMs_ = kOwnerMs;
  tell(owner_, {u"ENDOFSTREAM"_s});
}

void MusicService::durationKnown(double seconds) {
  tellAll({u"MUSICDURATION"_s, numberText(seconds)});
}

void MusicService::failed(const QString& description) {
  uses_.log.warn(description);
  tell(owner_, {u"ERROR"_s, withoutPath(description, path_, nameAsked_)});
  if (++failuresInARow_ <= kMostFailures) return endOfStream();
  failuresInARow_ = 0;
  tellSilence();
}

void MusicService::tellSilence() {
  uses_.musicTimer.stop();
  silenceDueMs_ = 0;
  echo_.note(uses_.listener.peers(*this), 0, uses_.listener.nowMs());
  tellState();
}

void MusicService::tellState() {
  tellAll({u"MEDIAPLAYERSTATE"_s, stateText()});
}

QString MusicService::stateText() const {
  return QString::number(uses_.player.playState());
}

}  // namespace korvane

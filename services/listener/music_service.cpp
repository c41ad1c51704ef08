#include "services/listener/music_service.h"

namespace korvane {
namespace {

constexpr qsizetype kMostFields = 4;
constexpr qsizetype kMostCover = 8 << 20;
// Of what one console sends and all are sent: a long one would fill their queues.
constexpr qsizetype kLongestTitle = 1000, kLongestNumber = 32;
constexpr int kOwnerMs = 2000;  // for a console to follow its song with another
constexpr qint64 kEchoMs = 1500;
constexpr int kMostFailures = 3;  // songs that are passed over before a list is given up

std::optional<double> numberIn(const QString& text) {
  return text.size() <= kLongestNumber ? numberOf(text.toLatin1()) : std::nullopt;
}

}  // namespace

const MusicService::Entry MusicService::kCommands[] = {
    {"STATUS", &MusicService::status},
    {"PLAY", &MusicService::play},
    {"STOP", &MusicService::stop},
    {"PAUSE", &MusicService::pause},
    {"DURATION", &MusicService::duration},
    {"MUTE=TRUE", &MusicService::muteOn},
    {"MUTE=FALSE", &MusicService::muteOff},
    {"VOLUME", &MusicService::volume},
    {"CURRENTPOSITION", &MusicService::currentPosition},
};

MusicService::MusicService(Uses uses) : uses_(std::move(uses)), level_(uses_.player, uses_.mixer) {
  uses_.server.setService(this);
  uses_.player.setEvents(this);
  uses_.musicTimer.tick = [this] { tick(); };
  uses_.player.prepare();
  uses_.mixer.watch([this] {
    level_.changedOutside();
    tellAll({u"VOLUME"_s, QString::number(level_.now())});
  });
}

MusicService::~MusicService() {
  uses_.mixer.watch({});
  uses_.musicTimer.stop();
  uses_.musicTimer.tick = nullptr;
  uses_.player.setEvents(nullptr);
  uses_.server.setService(nullptr);
}

void MusicService::record(Peer peer, QByteArrayView bytes) {
  const QList<QByteArrayView> fields = fieldsOf(bytes, kMostFields);
  if (fields.size() < 2 || fields[0] != "MUSIC") return;
  const auto text = [&](qsizetype i) {
    return i < fields.size() ? decode(fields[i], uses_.settings.encoding) : QString();
  };
  for (const Entry& entry : kCommands) {
    if (entry.command != fields[1]) continue;
    uses_.server.keep(peer);
    return (this->*entry.perform)({peer, text(2), text(3)});
  }
}

void MusicService::left(Peer peer) {
  echoUntil_.erase(peer);
  if (owner_ == peer) owner_ = 0;
}

void MusicService::status(const Command& command) {
  const MediaPlayer::PlayState now = uses_.player.playState();
  if (now == MediaPlayer::Paused || now == MediaPlayer::Playing) {
    tell(command.peer, {u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
    tell(command.peer, {u"SONGPLAYING"_s, title_});
  }
  tell(command.peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
  if (!uses_.settings.tellVolume) return;
  tell(command.peer, {u"MAXVOLUME"_s, QString::number(level_.maximum())});
  tell(command.peer, {u"VOLUME"_s, QString::number(level_.now())});
}

void MusicService::play(const Command& command) {
  command.argument1.isEmpty() ? resume(command) : playFile(command);
}

void MusicService::resume(const Command& command) {
  if (song_ == 0) return tell(command.peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
  uses_.player.Play();
  uses_.musicTimer.start(uses_.settings.tickMs);
  tellAll({u"PAUSETOPLAY"_s});
}

// The player is called before anything is sent or read besides: what is asked for sounds first.
void MusicService::playFile(const Command& command) {
  const std::optional<QString> path =
      findSongBelow(uses_.files, uses_.settings.roots, command.argument1);
  if (!path) {
    uses_.log.warn(u"connection %1 asks for a song that is not here: %2"_s.arg(command.peer)
                       .arg(printable(command.argument1)));
    return tell(command.peer, {u"ERROR"_s, u"File not found"_s});
  }
  path_ = *path;
  nameAsked_ = FileSystem::slashed(command.argument1).section(u'/', -1);
  uses_.player.setFileName(path_);
  uses_.server.dropPictures();
  if (uses_.player.HasError()) {
    uses_.log.warn(uses_.player.ErrorDescription());
    return tell(command.peer, {u"ERROR"_s, withoutPath(uses_.player.ErrorDescription())});
  }
  uses_.player.Play();
  ++song_;
  silenceDueMs_ = 0;
  owner_ = command.peer;
  title_ = command.argument2.left(kLongestTitle);
  tellAll({u"MUSICDURATION"_s, numberText(uses_.player.Duration())});
  tellAll({u"SONGPLAYING"_s, title_});
  tellState();
  // The state alone does not light a console's play button; the one that asked has lit its own.
  for (const Peer peer : uses_.server.peers())
    if (peer != owner_) tell(peer, {u"PAUSETOPLAY"_s});
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
                            uses_.server.sendAllPicture(
                                recordOf({u"RECEIVEJPG"_s, QString::number(picture.size())}),
                                picture);
                          });
}

// A console that hears "stopped" stops its own transport, which sends STOP. By then another console
// may have begun a song, which that late echo must not end.
void MusicService::noteEcho(Peer asker) {
  const qint64 until = uses_.server.nowMs() + kEchoMs;
  for (const Peer peer : uses_.server.peers())
    if (peer != asker) echoUntil_[peer] = until;
}

bool MusicService::isEcho(Peer peer) {
  const auto noted = echoUntil_.find(peer);
  if (noted == echoUntil_.end()) return false;
  const bool late = uses_.server.nowMs() <= noted->second;
  echoUntil_.erase(noted);
  return late && uses_.player.playState() == MediaPlayer::Playing && owner_ != peer;
}

void MusicService::stop(const Command& command) {
  if (isEcho(command.peer)) return tell(command.peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
  const bool change = uses_.player.playState() != MediaPlayer::Stopped || silenceDueMs_ > 0;
  uses_.player.Stop();
  uses_.musicTimer.stop();
  silenceDueMs_ = 0;
  if (!change) return tell(command.peer, {u"MEDIAPLAYERSTATE"_s, stateText()});
  ++song_;
  uses_.server.dropPictures();
  noteEcho(command.peer);
  tellState();
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

void MusicService::muteOn(const Command&) {
  uses_.player.setMute(true);
}

void MusicService::muteOff(const Command&) {
  uses_.player.setMute(false);
}

void MusicService::volume(const Command& command) {
  const std::optional<double> asked = numberIn(command.argument1);
  if (!asked) return tell(command.peer, {u"VOLUME"_s, command.argument1});
  level_.set(*asked);
  tellAll({u"VOLUME"_s, command.argument1});
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
  if (!uses_.server.has(owner_)) return tellSilence();
  silenceDueMs_ = kOwnerMs;
  tell(owner_, {u"ENDOFSTREAM"_s});
}

void MusicService::durationKnown(double seconds) {
  tellAll({u"MUSICDURATION"_s, numberText(seconds)});
}

void MusicService::failed(const QString& description) {
  uses_.log.warn(description);
  tell(owner_, {u"ERROR"_s, withoutPath(description)});
  if (++failuresInARow_ <= kMostFailures) return endOfStream();
  failuresInARow_ = 0;
  tellSilence();
}

void MusicService::tellSilence() {
  uses_.musicTimer.stop();
  silenceDueMs_ = 0;
  noteEcho(0);
  tellState();
}

void MusicService::tell(Peer peer, std::initializer_list<QString> fields) {
  uses_.server.send(peer, recordOf(fields));
}

void MusicService::tellAll(std::initializer_list<QString> fields) {
  uses_.server.sendAll(recordOf(fields));
}

void MusicService::tellState() {
  tellAll({u"MEDIAPLAYERSTATE"_s, stateText()});
}

QByteArray MusicService::recordOf(std::initializer_list<QString> fields) const {
  return encode(replyRecord(fields), uses_.settings.encoding);
}

QString MusicService::stateText() const {
  return QString::number(uses_.player.playState());
}

// What a player says of a file names its place on this machine, which is no console's business.
QString MusicService::withoutPath(QString description) const {
  if (!path_.isEmpty()) description.replace(path_, nameAsked_);
  return description.contains(u'/') ? u"Cannot play %1"_s.arg(nameAsked_) : description;
}

}  // namespace korvane

#include "listener/music_connection.h"

#include <QScopedValueRollback>

namespace korvane {
namespace {

constexpr int kConnectingWaitMs = 3000, kClosingWaitMs = 300;

// Blanks only, as commands have always been trimmed: a title may begin with a tab.
QString blanksTrimmed(const QString& text) {
  qsizetype from = 0, to = text.size();
  while (from < to && text[from] == u' ') ++from;
  while (to > from && text[to - 1] == u' ') --to;
  return text.mid(from, to - from);
}

// Whether a Listener always has something to say to it.
bool isAnswered(const QString& command) {
  return command == "STATUS"_L1 || command == "PLAY"_L1 || command == "STOP"_L1 ||
         command == "DURATION"_L1;
}

}  // namespace

MusicConnection::MusicConnection(Uses uses)
    : uses_(std::move(uses)),
      panel_(uses_.form),
      local_({uses_.state, uses_.settings, uses_.files, uses_.player, uses_.mixer,
              *panel_.MusicTimer, *this, uses_.coverArtBytes}),
      cover_(uses_.files, uses_.settings.home()),
      trouble_(uses_.messages, uses_.pump) {
  uses_.connectionMP3.setEvents(this);
  uses_.form.on(u"lblMusicPlay", Event::Click, [this](auto&, auto&) { lblMusicPlay_Click(); });
  uses_.form.on(u"MusicTimer", Event::Tick, [this](auto&, auto&) { MusicTimer_Timer(); });
}

MusicConnection::~MusicConnection() {
  uses_.connectionMP3.setEvents(nullptr);
}

void MusicConnection::ConnectionMP3Send(QString target, QString command, QString argument1,
                                        QString argument2) {
  uses_.log.guard("ConnectionMP3Send", "Form frmMain", [&] {
    const MusicCommand wanted{blanksTrimmed(command), blanksTrimmed(argument1),
                              blanksTrimmed(argument2)};
    note(wanted);
    if (uses_.state.gLocalListener)
      local_.perform(wanted);
    else
      sendRecord(blanksTrimmed(target).toUpper(), wanted);
    if (!takingNext_) uses_.pump.doEvents();
  });
}

void MusicConnection::note(const MusicCommand& command) {
  const bool song = command.command == "PLAY"_L1 && !command.argument1.isEmpty();
  const bool stop = command.command == "STOP"_L1;
  if (!song && !stop) return;
  ++songNumber_;
  songAwaited_ = song;
  if (stop) failuresInARow_ = 0;
}

// The setting is written behind the sending: a save waits for the disk, a listener does not.
void MusicConnection::sendRecord(const QString& target, const MusicCommand& command) {
  const bool play = command.command == "PLAY"_L1;
  if (play) hideCover();
  const QString record =
      commandRecord(target, command.command, command.argument1, command.argument2);
  letConnect();
  if (connectionState() == Winsock::Connected)
    uses_.connectionMP3.SendData(encode(record, wireText_));
  if (linkNews_ && isAnswered(command.command)) linkNews_->linkAsks();
  if (play) uses_.settings.write(key::LASTSONGPLAYED, command.argument1);
}

void MusicConnection::letConnect() {
  if (connectionState() != Winsock::ConnectionPending || uses_.state.gMusicListenerIP.isEmpty())
    return;
  uses_.pump.doEvents();
  uses_.pump.wait(kConnectingWaitMs,
                  [this] { return connectionState() != Winsock::ConnectionPending; });
  uses_.pump.doEvents();
}

void MusicConnection::ConnectionMP3Connect() {
  uses_.log.guard("connectionmp3Connect", "Form frmMain", [this] { connectNow(); });
}

void MusicConnection::connectNow() {
  if (connectionState() == Winsock::Connected) return;
  ConnectionMP3Close();
  bool isPort = false;
  uses_.state.gMusicListenerPort.trimmed().toUShort(&isPort);
  if (!isPort) {
    uses_.log.error(13, u"Type mismatch"_s, "connectionmp3Connect", "Form frmMain");
    return;
  }
  if (!uses_.state.gMusicListenerIP.isEmpty())
    uses_.pump.wait(kClosingWaitMs, [this] { return connectionState() == Winsock::Closed; });
  connectAgain();
  panel_.lblCurrentPlay->caption = u"Status:Idle"_s;
  uses_.pump.doEvents();
}

// A link that stood may come back to its song; only when the first try gets nowhere is that gone.
void MusicConnection::connectAgain() {
  const bool stood = stood_, stands = connectionState() == Winsock::Connected;
  ConnectionMP3Close();
  if (stood && !stands) listenerGone();
  stood_ = stood && stands;
  wireText_ = wireTextOf(uses_.settings.upper(key::ListenerEncoding));
  uses_.connectionMP3.RemotePort = uses_.state.gMusicListenerPort.trimmed().toUShort();
  uses_.connectionMP3.RemoteHost = uses_.state.gMusicListenerIP;
  uses_.connectionMP3.Connect();
  if (linkNews_) linkNews_->linkTries();
}

void MusicConnection::ConnectionMP3Close() {
  stood_ = false;
  cover_.cancel();
  uses_.connectionMP3.Close();
}

void MusicConnection::Connect() {
  stood_ = true;
  cover_.cancel();
  if (linkNews_) linkNews_->linkStands();
  ConnectionMP3Send(u"MUSIC"_s, u"STATUS"_s);
}

void MusicConnection::Close() {
  listenerGone();
  ConnectionMP3Close();
  if (linkNews_) linkNews_->linkEnds(u"it ended the connection"_s);
}

void MusicConnection::Error(const QString& description) {
  if (uses_.state.gMusicType != MusicSource::Digital) return;
  uses_.log.logIt(u"Error in connectionMP3 "_s + description);
  const bool stood = stood_;
  ConnectionMP3Close();
  if (stood) listenerGone();
  if (linkNews_) linkNews_->linkEnds(description);
}

// What a Listener played is out of reach: the front end stops, and both roles can be chosen again.
void MusicConnection::listenerGone() {
  if (uses_.state.gLocalListener) return;
  if (news_) news_->playerStopped();
  uses_.state.gPlayMode = PlayMode::Stopped;
  panel_.Slider1->value = 0;
  songAwaited_ = false;
}

void MusicConnection::lblMusicPlay_Click() {
  if (panel_.Slider1->value() != 0) return;
  const bool local = !uses_.state.gLocalListener;
  uses_.state.gLocalListener = local;
  panel_.lblMusicPlay[0]->setPicture(u"music"_s, local ? u"AtSeaton"_s : u"AtSeatOff"_s);
  panel_.lblMusicPlay[1]->setPicture(u"music"_s, local ? u"InCabinOff"_s : u"InCabinOn"_s);
  uses_.settings.SaveSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s,
                             local ? u"LOCAL"_s : u"SERVER"_s);
  if (!local) ConnectionMP3Connect();
  if (linkNews_) linkNews_->linkChanged();
}

void MusicConnection::MusicTimer_Timer() {
  if (uses_.state.gLocalListener && !uses_.state.playsDiscAudio()) local_.tick();
}

void MusicConnection::DisplayDuration(double seconds) {
  panel_.lblDuration->caption = minutesAndSeconds(seconds);
}

void MusicConnection::ShowSliderTimes() {
  const double now = panel_.Slider1->value(), end = panel_.Slider1->maximum();
  panel_.Slider1->text =
      u"Current= "_s + minutesAndSeconds(now) + u" -- Remaining= "_s + minutesAndSeconds(end - now);
  panel_.TxtTime->caption = minutesAndSeconds(now);
}

void MusicConnection::hideCover() {
  panel_.coverArt->visible = false;
  panel_.coverArt->tag = u"FALSE"_s;
}

void MusicConnection::showCover(const QByteArray& image) {
  panel_.coverArt->picture = Picture{{}, {}, std::make_shared<const QByteArray>(image)};
  if (panel_.musicTab->tagged()) panel_.coverArt->visible = true;
  panel_.coverArt->tag = u"TRUE"_s;
}

void MusicConnection::localReply(const QString& record) {
  localListenerReply_ = record.toUtf8();
  DataArrival(-1);
}

void MusicConnection::localCover(const QByteArray* image) {
  hideCover();
  if (image) showCover(*image);
}

void MusicConnection::localSongFailed(const QString& description) {
  if (!uses_.state.gLocalListener) return;
  songAwaited_ = true;
  localReply(replyRecord({u"ERROR"_s, description}));
}

void MusicConnection::localEndOfStream() {
  if (uses_.state.gLocalListener) songEnded();
}

void MusicConnection::songEnded() {
  failuresInARow_ = 0;
  if (news_) news_->endOfStream();
}

// In a later turn: the failure may be the answer to a press that is still at work, and a list of
// missing files must not be walked on the stack.
void MusicConnection::takeNextSong() {
  uses_.pump.later(
      [this, alive = std::weak_ptr<bool>(alive_), song = songNumber_, inARow = ++failuresInARow_] {
        if (alive.expired() || song != songNumber_ || !news_) return;
        const QScopedValueRollback taking(takingNext_, true);
        news_->songFailed(inARow);
      });
}

}  // namespace korvane

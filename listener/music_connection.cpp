#include "listener/music_connection.h"

namespace korvane {

MusicConnection::MusicConnection(Uses uses)
    : uses_(std::move(uses)),
      presenter_(uses_.form),
      songs_(uses_.pump),
      records_({uses_.state, presenter_, *this, songs_, uses_.messages, uses_.pump, uses_.files,
                uses_.settings.home()}),
      local_({uses_.state, uses_.settings, uses_.files, uses_.player, uses_.mixer,
              presenter_.MusicTimer(), *this, uses_.coverArtBytes}),
      link_({uses_.connectionMP3, uses_.pump, uses_.settings, uses_.log,
             uses_.state.gMusicListenerIP, uses_.state.gMusicListenerPort, "connectionmp3Connect"},
            this) {
  uses_.form.on(u"lblMusicPlay", Event::Click, [this](auto&, auto&) { lblMusicPlay_Click(); });
  uses_.form.on(u"MusicTimer", Event::Tick, [this](auto&, auto&) { MusicTimer_Timer(); });
}

void MusicConnection::setNews(TransportNews* news) {
  songs_.setNews(news);
  records_.setNews(news);
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
    if (!songs_.takingNext()) uses_.pump.doEvents();
  });
}

void MusicConnection::note(const MusicCommand& command) {
  if (command.command == "PLAY"_L1 && !command.argument1.isEmpty()) songs_.asked();
  if (command.command == "STOP"_L1) songs_.stopped();
}

// The setting is written behind the sending: a save waits for the disk, a listener does not.
void MusicConnection::sendRecord(const QString& target, const MusicCommand& command) {
  // A link asks for it by itself as soon as it stands.
  if (command.command == "STATUS"_L1 && link_.beingMade()) return;
  const bool play = command.command == "PLAY"_L1;
  if (play) presenter_.hideCover();
  link_.send(commandRecord(target, command.command, command.argument1, command.argument2),
             isAnswered(command.command));
  if (play) uses_.settings.write(key::LASTSONGPLAYED, command.argument1);
}

void MusicConnection::ConnectionMP3Connect() {
  if (connectionState() == Winsock::Connected) return;
  stood_ = false;
  records_.connectionEnds();
  if (!link_.connect()) return;
  if (shows()) presenter_.showConnecting();
  uses_.pump.doEvents();
}

// A link that stood may come back to its song; only when the first try gets nowhere is that gone.
void MusicConnection::connectAgain() {
  if (stood_ && connectionState() != Winsock::Connected) {
    link_.close();  // the stop that follows must not wait for it
    connectionEnded();
  }
  records_.connectionEnds();
  link_.connectAgain();
}

void MusicConnection::ConnectionMP3Close() {
  stood_ = false;
  records_.connectionEnds();
  link_.close();
}

void MusicConnection::linkStands() {
  stood_ = true;
  records_.connectionEnds();
  ConnectionMP3Send(u"MUSIC"_s, u"STATUS"_s);
}

void MusicConnection::linkDelivers(const QByteArray& block) {
  if (records_.isAnswer(block)) link_.heard();  // half a record is none
  if (uses_.state.gLocalListener) return;       // of a Listener that nobody listens to
  records_.deliver(block, link_.wireText());
}

void MusicConnection::linkCloses() {
  connectionEnded();
}

void MusicConnection::linkFails(const QString& description) {
  uses_.log.logIt(u"Error in connectionMP3 "_s + description);
  connectionEnded();
}

void MusicConnection::connectionEnded() {
  records_.connectionEnds();
  if (std::exchange(stood_, false) && !uses_.state.gLocalListener) records_.listenerGone();
}

void MusicConnection::lblMusicPlay_Click() {
  if (!presenter_.atStart()) {
    uses_.messages.say(u"Stop the music first, then choose where it plays."_s);
    return;
  }
  const bool local = !uses_.state.gLocalListener;
  uses_.state.gLocalListener = local;
  presenter_.showPlace(local);
  uses_.settings.SaveSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s,
                             local ? u"LOCAL"_s : u"SERVER"_s);
  if (!local) ConnectionMP3Connect();
  link_.wantedChanged();
}

void MusicConnection::MusicTimer_Timer() {
  if (uses_.state.gLocalListener && !uses_.state.playsDiscAudio()) local_.tick();
}

// In UTF-8, whatever the encoding on the wire.
void MusicConnection::localReply(const QString& record) {
  records_.handle(record.toUtf8(), WireText::Utf8);
}

void MusicConnection::localCover(const QByteArray* image) {
  presenter_.hideCover();
  if (image) presenter_.showCover(*image);
}

void MusicConnection::localSongFailed(const QString& description) {
  if (!uses_.state.gLocalListener) return;
  songs_.broke();
  localReply(replyRecord({u"ERROR"_s, description}));
}

void MusicConnection::localEndOfStream() {
  if (uses_.state.gLocalListener) songs_.ended();
}

}  // namespace korvane

#include "listener/movie_connection.h"

namespace korvane {

MovieConnection::MovieConnection(Uses uses)
    : uses_(uses),
      presenter_(uses_.form),
      records_({uses_.state, presenter_, *this}),
      trouble_(uses_.messages, uses_.pump),
      link_(
          {uses_.connectionMovie, uses_.pump, uses_.settings, uses_.log,
           uses_.state.gMovieListenerIP, uses_.state.gMovieListenerPort, "connectionMovieConnect"},
          this) {}

void MovieConnection::ConnectionMovieSend(QString target, QString command, QString argument1,
                                          QString argument2) {
  uses_.log.guard("ConnectionMovieSend", "Form frmMain", [&] {
    const MovieCommand wanted{blanksTrimmed(target).toUpper(), blanksTrimmed(command),
                              blanksTrimmed(argument1), blanksTrimmed(argument2)};
    if (wanted.command == "PLAY"_L1 || wanted.command == "STOP"_L1 || wanted.command == "PAUSE"_L1)
      records_.commanded();
    if (uses_.state.gMovieListener)
      sendRecord(wanted);
    else if (seat_)
      seat_->perform(wanted);
    uses_.pump.doEvents();
  });
}

void MovieConnection::sendRecord(const MovieCommand& command) {
  // A link asks for it by itself as soon as it stands.
  if (command.command == "STATUS"_L1 && link_.beingMade()) return;
  if (uses_.state.gMovieType == MovieType::ListenerDvd && !standsForDvd()) {
    if (shows()) presenter_.showStatus(u"Status: Movie Listener not connected"_s);
    return;
  }
  link_.send(commandRecord(command.target, command.command, command.argument1, command.argument2),
             isAnswered(command.command));
}

bool MovieConnection::standsForDvd() {
  if (!link_.beingMade()) ConnectionMovieConnect();
  return link_.letStand();
}

void MovieConnection::ConnectionMovieConnect() {
  if (uses_.state.gMovieListenerPort.isEmpty() || connectionState() == Winsock::Connected) return;
  stood_ = false;
  if (!link_.connect()) return;
  if (shows()) presenter_.showConnecting();
  uses_.pump.doEvents();
}

// A link that stood may come back to its movie; only when the first try gets nowhere is that gone.
void MovieConnection::connectAgain() {
  if (stood_ && connectionState() != Winsock::Connected) {
    link_.close();  // the stop that follows must not wait for it
    connectionEnded();
  }
  link_.connectAgain();
}

void MovieConnection::ConnectionMovieClose() {
  stood_ = false;
  link_.close();
}

bool MovieConnection::playsThere() const {
  return uses_.state.gMovieListener && shows() && uses_.state.gMusicState == MusicState::Play;
}

void MovieConnection::localListenerReply(const QString& record) {
  records_.handle(record.toUtf8(), WireText::Utf8);
}

void MovieConnection::linkStands() {
  stood_ = true;
  const bool dvd = uses_.state.gMovieType == MovieType::ListenerDvd;
  ConnectionMovieSend(dvd ? u"DVDP"_s : u"MOVIE"_s, u"STATUS"_s);
}

void MovieConnection::linkDelivers(const QByteArray& block) {
  if (block.contains(kRecordEnd)) link_.heard();  // half a record is none
  if (!uses_.state.gMovieListener) return;        // of a Listener that nobody watches
  records_.handle(block, link_.wireText());
}

void MovieConnection::linkCloses() {
  connectionEnded();
}

void MovieConnection::linkFails(const QString& description) {
  uses_.log.logIt(u"Error in Movie Connection  "_s + description);
  connectionEnded();
}

void MovieConnection::connectionEnded() {
  if (std::exchange(stood_, false) && uses_.state.gMovieListener) records_.listenerGone();
}

}  // namespace korvane

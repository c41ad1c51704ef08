#include "tests/fakes/test_listener.h"

namespace korvane {

TestListener::TestListener() {
  if (!server_.listen(QHostAddress::LocalHost))
    throw std::runtime_error("the test Listener finds no port");
  QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { accept(); });
  QObject::connect(&timer_, &QTimer::timeout, &server_, [this] { tick(); });
}

void TestListener::accept() {
  if (peer_) peer_->deleteLater();
  peer_ = server_.nextPendingConnection();
  peer_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  unfinished_.clear();
  QObject::connect(peer_, &QTcpSocket::readyRead, &server_, [this] { read(); });
}

void TestListener::read() {
  unfinished_ += peer_->readAll();
  for (qsizetype end; (end = unfinished_.indexOf('\1')) >= 0;) {
    const QByteArray record = unfinished_.left(end + 1);
    unfinished_.remove(0, end + 1);
    received << record;
    if (onRecord) onRecord(record);
    if (!silent) answer(record.chopped(1).split('\0'));
  }
}

void TestListener::answer(const QByteArrayList& fields) {
  const QByteArray command = fields.value(1);
  const QString argument = QString::fromLatin1(fields.value(2));
  if (command == "STATUS") {
    sendSong();
    send({u"MAXVOLUME"_s, u"100"_s});
    send({u"VOLUME"_s, volume_});
  } else if (command == "PLAY" && !argument.isEmpty()) {
    position_ = 0;
    title_ = QString::fromLatin1(fields.value(3));
    state_ = 2;
    sendSong();
    timer_.start(1000);
  } else if (command == "PLAY") {
    state_ = 2;
    timer_.start(1000);
    send({u"PAUSETOPLAY"_s});
  } else if (command == "STOP" || (command == "PAUSE" && state_ == 2)) {
    timer_.stop();
    state_ = command == "STOP" ? 0 : 1;
    sendState();
  } else if (command == "DURATION") {
    send({u"MUSICDURATION"_s, QString::number(songSeconds)});
  } else if (command == "VOLUME") {
    volume_ = argument;
    send({u"VOLUME"_s, volume_});
  } else if (command == "CURRENTPOSITION") {
    position_ = argument.toDouble();
  }
}

void TestListener::sendSong() {
  if (state_ != 0) {
    send({u"MUSICDURATION"_s, QString::number(songSeconds)});
    send({u"SONGPLAYING"_s, title_});
  }
  sendState();
}

void TestListener::tick() {
  position_ += speed;
  if (position_ >= songSeconds) {
    timer_.stop();
    state_ = 0;
    return send({u"ENDOFSTREAM"_s});
  }
  const int whole = static_cast<int>(position_);
  send({u"MUSICTIMER"_s, u"%1:%2"_s.arg(whole / 60).arg(whole % 60, 2, 10, QChar(u'0')),
        QString::number(position_)});
}

void TestListener::sendState() {
  send({u"MEDIAPLAYERSTATE"_s, QString::number(state_)});
}

void TestListener::send(const QStringList& fields) {
  send(fields.join(QChar(u'\0')).toLatin1() + '\1');
}

void TestListener::send(const QByteArray& bytes) {
  if (!connected()) return;
  peer_->write(bytes);
  peer_->flush();
}

void TestListener::vanish() {
  timer_.stop();
  if (peer_) peer_->abort();
}

QByteArray TestListener::escaped(const QByteArray& bytes) {
  QByteArray text;
  for (const char c : bytes) {
    const auto byte = static_cast<uchar>(c);
    if (byte < 8)
      text += '\\' + QByteArray::number(byte);
    else if (byte < 0x20 || byte >= 0x7F)
      text += "\\x" + QByteArray::number(byte, 16).rightJustified(2, '0');
    else
      text += c == '\\' ? QByteArray("\\\\") : QByteArray(1, c);
  }
  return text;
}

}  // namespace korvane

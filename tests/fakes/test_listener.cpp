#include "tests/fakes/test_listener.h"

#include <QThread>

namespace korvane {

TestListener::TestListener(quint16 port) {
  if (!server_.listen(QHostAddress::LocalHost, port))
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
    if (state_ != 0) {
      send({u"MUSICDURATION"_s, QString::number(songSeconds)});
      send({u"SONGPLAYING"_s, title_});
    }
    sendState();
    if (!displayVolume) return;
    send({u"MAXVOLUME"_s, QString::number(maxVolume)});
    send({u"VOLUME"_s, QString::number(volume)});
  } else if (command == "PLAY" && !argument.isEmpty()) {
    play(argument, QString::fromLatin1(fields.value(3)));
  } else if (command == "PLAY") {
    state_ = 2;
    timer_.start(tickMs);
    send({u"PAUSETOPLAY"_s});
  } else if (command == "STOP") {
    timer_.stop();
    state_ = 0;
    sendState();
  } else if (command == "PAUSE" && state_ == 2) {
    timer_.stop();
    state_ = 1;
    sendState();
  } else if (command == "DURATION") {
    send({u"MUSICDURATION"_s, QString::number(songSeconds)});
  } else if (command == "VOLUME") {
    volume = argument.toInt();
    send({u"VOLUME"_s, argument});
  } else if (command == "CURRENTPOSITION") {
    position_ = argument.toDouble();
  }
}

void TestListener::play(const QString& path, const QString& title) {
  timer_.stop();
  if (!plays(path)) return send({u"ERROR"_s, u"File not found"_s});
  position_ = 0;
  title_ = title;
  state_ = 2;
  send({u"MUSICDURATION"_s, QString::number(songSeconds)});
  send({u"SONGPLAYING"_s, title_});
  sendState();
  timer_.start(tickMs);
  if (cover.isEmpty()) return;
  send({u"RECEIVEJPG"_s, QString::number(cover.size())});
  QTimer::singleShot(30, &server_, [this] { send(cover); });  // a delivery of its own
}

void TestListener::tick() {
  position_ += speed * tickMs / 1000;
  if (position_ >= songSeconds) return endSong();
  const int whole = static_cast<int>(position_);
  send({u"MUSICTIMER"_s, u"%1:%2"_s.arg(whole / 60).arg(whole % 60, 2, 10, QChar(u'0')),
        QString::number(position_)});
}

void TestListener::endSong() {
  timer_.stop();
  state_ = 0;
  send({u"ENDOFSTREAM"_s});
}

void TestListener::sendState() {
  send({u"MEDIAPLAYERSTATE"_s, QString::number(state_)});
}

void TestListener::send(const QStringList& fields) {
  send(fields.join(QChar(u'\0')).toLatin1() + '\1');
}

void TestListener::send(const QByteArray& bytes) {
  if (!connected()) return;
  const qsizetype piece = pieceBytes > 0 ? pieceBytes : bytes.size();
  for (qsizetype from = 0; from < bytes.size(); from += piece) {
    peer_->write(bytes.mid(from, piece));
    peer_->flush();
    if (pieceBytes > 0) QThread::msleep(2);
  }
}

void TestListener::vanish() {
  timer_.stop();
  if (peer_) peer_->abort();
}

void TestListener::flood(int records) {
  QByteArray bytes;
  for (int i = 0; i < records; ++i)
    bytes += "MUSICTIMER" + QByteArray(1, '\0') + "0:01" + QByteArray(1, '\0') + "1\1";
  send(bytes);
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

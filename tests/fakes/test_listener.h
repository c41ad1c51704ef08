// A Music Listener over real TCP for tests: it answers each command as a faithful service does,
// with songs that play silently for a set time.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include "platform/text.h"

namespace korvane {

class TestListener {
 public:
  TestListener();  // on this machine only, at any free port
  quint16 port() const { return server_.serverPort(); }
  bool connected() const { return peer_ && peer_->state() == QAbstractSocket::ConnectedState; }

  double songSeconds = 3;
  double speed = 1;     // seconds of song in a second
  bool silent = false;  // records are taken and never answered

  void send(const QByteArray& bytes);  // one write
  void vanish();                       // drops the connection without a word

  QByteArrayList received;  // whole records with their 0x01, in order
  std::function<void(const QByteArray& record)> onRecord;

  static QByteArray escaped(const QByteArray& bytes);  // in printable text: \0, \1, \xNN, \\.

 private:
  void accept();
  void read();
  void answer(const QByteArrayList& fields);
  void sendSong();
  void send(const QStringList& fields);
  void sendState();
  void tick();

  QTcpServer server_;
  QTcpSocket* peer_ = nullptr;  // owned by server_
  QByteArray unfinished_;
  QTimer timer_;
  int state_ = 0;
  double position_ = 0;
  QString title_, volume_ = u"50"_s;
};

}  // namespace korvane

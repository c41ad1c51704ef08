// A Music Listener over real TCP for tests: it answers each command as a faithful service does,
// with songs that play silently for a set time, and misbehaves when told to.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include "platform/text.h"

namespace korvane {

class TestListener {
 public:
  explicit TestListener(quint16 port = 0);  // on this machine only; 0 takes any free port
  quint16 port() const { return server_.serverPort(); }
  bool connected() const { return peer_ && peer_->state() == QAbstractSocket::ConnectedState; }

  // How it behaves.
  double songSeconds = 3;
  int tickMs = 1000;    // between MUSICTIMER records
  double speed = 1;     // seconds of song in a second
  QByteArray cover;     // sent at each song, when not empty
  int pieceBytes = 0;   // deliveries are cut into pieces of so many bytes
  bool silent = false;  // records are taken and never answered
  std::function<bool(const QString&)> plays = [](const QString&) { return true; };
  int volume = 50, maxVolume = 100;
  bool displayVolume = true;

  // What it does at once.
  void send(const QByteArray& bytes);  // one write
  void send(const QStringList& fields);
  void vanish();  // drops the connection without a word
  void flood(int records);
  void endSong();

  QByteArrayList received;  // whole records with their 0x01, in order
  std::function<void(const QByteArray& record)> onRecord;

  static QByteArray escaped(const QByteArray& bytes);  // in printable text: \0, \1, \xNN, \\.

 private:
  void accept();
  void read();
  void answer(const QByteArrayList& fields);
  void play(const QString& path, const QString& title);
  void sendState();
  void tick();

  QTcpServer server_;
  QTcpSocket* peer_ = nullptr;  // owned by server_
  QByteArray unfinished_;
  QTimer timer_;
  int state_ = 0;
  double position_ = 0;
  QString title_;
};

}  // namespace korvane

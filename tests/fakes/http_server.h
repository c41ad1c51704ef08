// A web server on the loopback whose answers a test writes byte for byte.
#pragma once

#include <gtest/gtest.h>

#include <QHash>
#include <QTimer>

#include "platform/net/tcp_server_qt.h"

namespace korvane {

class HttpServer : TcpServer::Events {
 public:
  struct Reply {
    QByteArray bytes;   // none: it stays silent
    bool ends = false;  // ends the connection after them
    int afterMs = 0;    // that they are sent
  };
  // Of a request's target, as "/path?query".
  std::function<Reply(const QByteArray& target)> reply;
  QByteArrayList asked;  // targets, as they came
  int connections = 0;   // that stand

  HttpServer() {
    QString error;
    server_.setEvents(this);
    EXPECT_TRUE(server_.listen(u"127.0.0.1"_s, 0, &error)) << error.toStdString();
  }
  QString address() const { return u"127.0.0.1:%1"_s.arg(server_.port()); }
  // A whole answer, "HTTP/1.1 200 OK" with that body.
  static QByteArray page(const QByteArray& body, const QByteArray& status = "200 OK") {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\n\r\n" + body;
  }

 private:
  bool joined(TcpServer::Peer, const QString&) override { return ++connections > 0; }
  void arrived(TcpServer::Peer peer, const QByteArray& bytes) override {
    QByteArray& head = heads_[peer];
    head += bytes;
    if (!head.contains("\r\n\r\n")) return;
    asked << head.split(' ').value(1);
    head.clear();
    const Reply now = reply(asked.last());
    ends_[peer] = now.ends;
    QTimer::singleShot(now.afterMs, &later_, [this, peer, now] {
      server_.send(peer, now.bytes);
      if (now.bytes.isEmpty()) took(peer);
    });
  }
  void took(TcpServer::Peer peer) override {
    if (!ends_.value(peer) || server_.unsent(peer) > 0) return;
    server_.drop(peer);
    left(peer);
  }
  void left(TcpServer::Peer) override { --connections; }

  QHash<TcpServer::Peer, QByteArray> heads_;
  QHash<TcpServer::Peer, bool> ends_;
  TcpServerQt server_;
  QObject later_;
};

}  // namespace korvane

// TcpServer over QTcpServer. What a peer sends is read in pieces of 64 KiB, one a turn of the event
// loop, so that no peer keeps the others waiting.
#pragma once

#include <memory>

#include "platform/tcp_server.h"

namespace korvane {

class TcpServerQt final : public TcpServer {
 public:
  TcpServerQt();
  ~TcpServerQt() override;  // ends all connections

  void setEvents(Events* events) override;
  bool listen(const QString& address, quint16 port, QString* error) override;
  quint16 port() const override;
  void send(Peer peer, const QByteArray& bytes) override;
  qint64 unsent(Peer peer) const override;
  void drop(Peer peer) override;
  void hold(Peer peer, bool held) override;

 private:
  class Body;
  std::unique_ptr<Body> body_;
};

}  // namespace korvane

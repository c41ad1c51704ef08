// Winsock over QTcpSocket.
//
// Events are handed over from the event loop in a turn of their own, so an owner may yield inside
// one and still hear the next. At most 1 MiB waits unread; beyond that the peer has to wait.
#pragma once

#include <memory>

#include "platform/winsock.h"

namespace korvane {

class WinsockQt final : public Winsock {
 public:
  // An attempt to connect ends with Error after that time; the control's own is about 20 s.
  explicit WinsockQt(int connectTimeoutMs = 20000);
  ~WinsockQt() override;

  void setEvents(Events* events) override;
  void Connect() override;
  void Close() override;
  State state() const override;
  void SendData(const QByteArray& bytes) override;
  QByteArray GetData(qint64 count) override;
  QString LocalIP() const override;

 private:
  class Body;
  std::unique_ptr<Body> body_;
};

}  // namespace korvane

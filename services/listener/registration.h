// Keeps a service in the table of a Master Listener: connects, registers, and connects anew when
// the connection is lost, at first soon and then ever less often.
#pragma once

#include "listener/listener_record.h"
#include "platform/ticker.h"
#include "platform/winsock.h"
#include "services/server/service_log.h"

namespace korvane {

class Registration : private Winsock::Events {
 public:
  static constexpr int kFirstWaitMs = 500, kLongestWaitMs = 30'000;
  struct Entry {
    QString name;
    QString address;  // that consoles connect to; empty for that of the connection
    quint16 port = 0;
    QString type;  // "MUSIC", "MOVIES" or "X10"
    WireText encoding = WireText::Windows1252;
  };

  // `socket` has its RemoteHost and RemotePort set. Hears it and `ticker` until it ends; all of
  // them must outlive it.
  Registration(Winsock& socket, Ticker& ticker, ServiceLog& log, Entry entry);
  ~Registration() override;
  void start();  // once; from then on it keeps trying

 private:
  void Connect() override;
  void Close() override;
  void DataArrival(qint64 bytesTotal) override;
  void Error(const QString& description) override;
  void again(const QString& why);

  Winsock& socket_;
  Ticker& ticker_;
  ServiceLog& log_;
  const Entry entry_;
  int waitMs_ = kFirstWaitMs;
};

}  // namespace korvane

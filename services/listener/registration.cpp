#include "services/listener/registration.h"

namespace korvane {

Registration::Registration(Winsock& socket, Ticker& ticker, ServiceLog& log, Entry entry)
    : socket_(socket), ticker_(ticker), log_(log), entry_(std::move(entry)) {
  socket_.setEvents(this);
  ticker_.tick = [this] {
    ticker_.stop();
    socket_.Connect();
  };
}

Registration::~Registration() {
  ticker_.stop();
  ticker_.tick = nullptr;
  socket_.setEvents(nullptr);
}

void Registration::start() {
  socket_.Connect();
}

void Registration::Connect() {
  waitMs_ = kFirstWaitMs;
  const QString address = entry_.address.isEmpty() ? socket_.LocalIP() : entry_.address;
  socket_.SendData(encode(replyRecord({u"ML"_s, u"REG"_s, entry_.name, address,
                                       QString::number(entry_.port), entry_.type, entry_.type}),
                          entry_.encoding));
  log_.say(u"registered with the Master Listener at %1 port %2 as %3 \"%4\", %5 port %6"_s
               .arg(socket_.RemoteHost)
               .arg(socket_.RemotePort)
               .arg(entry_.type, entry_.name, address)
               .arg(entry_.port));
}

void Registration::Close() {
  again(u"it ended the connection"_s);
}

void Registration::DataArrival(qint64 bytesTotal) {
  socket_.GetData(bytesTotal);  // news of others
}

void Registration::Error(const QString& description) {
  again(description);
}

void Registration::again(const QString& why) {
  socket_.Close();
  log_.warn(u"no Master Listener at %1 port %2 (%3); again in %4 s"_s.arg(socket_.RemoteHost)
                .arg(socket_.RemotePort)
                .arg(why)
                .arg(waitMs_ / 1000.0));
  ticker_.start(waitMs_);
  waitMs_ = std::min(waitMs_ * 2, kLongestWaitMs);
}

}  // namespace korvane

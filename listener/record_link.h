// A link that carries records over TCP: to the Music, the Movie or the Master Listener, or to the
// lights. It reads its address from texts that others keep, lets a command wait for a link that is
// being made, and tells the supervision how it stands. What the records mean is its owner's matter.
#pragma once

#include <vector>

#include "core/log.h"
#include "core/settings.h"
#include "listener/link_news.h"
#include "listener/listener_record.h"
#include "platform/pump.h"
#include "platform/winsock.h"

namespace korvane {

class RecordLink : private Winsock::Events {
 public:
  static constexpr int kMakingWaitMs = 3000;  // for a link that is being made

  // What the link is for. Heard from the event loop, never from inside a call of the link. One that
  // only sends overrides nothing.
  class Owner {
   public:
    virtual ~Owner() = default;
    virtual void linkStands() {}  // what it sends now goes before what has waited for the link
    virtual void linkDelivers(const QByteArray&) {}  // bytes, as they came
    virtual void linkCloses() {}                     // the peer ended it; it is closed by now
    // It broke, or could not be made; it is closed by now.
    virtual void linkFails(const QString& /*description*/) {}
    // While it does not, a failure is not heard of and leaves the socket as it is.
    virtual bool heedsFailures() const { return true; }
  };

  // All of it outlives the link. `host` and `port` are read at each try.
  struct Uses {
    Winsock& socket;
    Pump& pump;
    const Settings& settings;
    const Log& log;
    const QString& host;
    const QString& port;    // decimal text
    const char* procedure;  // that the log names for a failure to connect
  };
  explicit RecordLink(Uses uses, Owner* owner = nullptr);  // the owner is not owned
  ~RecordLink() override;

  // Whether `port` is the number of one.
  bool hasPort() const { return portNumber().has_value(); }

  // Closes what there is, waits until that is done, 300 ms at most, and tries. False when it stands
  // already, or when the port is no number, which is logged as "Type mismatch". Yields.
  bool connect();
  // Tries at once, also in the place of a link that stands; what waits to be sent goes on waiting.
  // Whether it gets anywhere becomes known by the owner's news.
  void connectAgain();
  void close();  // without a report; what waits to be sent is dropped

  // Sends. A record waits for a link that is being made, up to 3 s, and those that come meanwhile
  // are sent behind it; without a connection it is dropped. `answered`: the peer always answers it,
  // so that a silence is noticed. Yields while it waits.
  void send(const QString& record, bool answered = false);

  // Waits until a link that is being made stands or has failed. True when it stands. Yields.
  bool letStand(int milliseconds = kMakingWaitMs);

  Winsock::State state() const { return uses_.socket.state(); }
  bool beingMade() const;
  QString localIP() const { return uses_.socket.LocalIP(); }
  WireText wireText() const { return wireText_; }  // read from the settings at each try

  void setNews(LinkNews* news) { news_ = news; }  // not owned
  void heard();                                   // by the owner: the peer has answered something
  void wantedChanged();                           // by the owner: whether there is to be a link

 private:
  struct Waiting {
    QString record;
    bool answered;
  };

  void Connect() override;
  void Close() override;
  void DataArrival(qint64 bytesTotal) override;
  void Error(const QString& description) override;

  std::optional<quint16> portNumber() const;
  QString chosenAddress() const;
  void write(const Waiting& record);
  void ended(const QString& why);

  const Uses uses_;
  Owner nobody_;
  Owner& owner_;
  LinkNews* news_ = nullptr;
  WireText wireText_ = WireText::Windows1252;
  std::vector<Waiting> waiting_;  // for the link that is being made
};

}  // namespace korvane

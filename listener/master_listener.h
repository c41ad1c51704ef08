// The link to the Master Listener, the cabin's table of services. Its list is the one place that
// the addresses of the Music and the Movie Listener come from, but for the key "MusicListener".
#pragma once

#include "core/log.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "listener/link_news.h"
#include "listener/listener_list.h"
#include "platform/pump.h"
#include "platform/winsock.h"

namespace korvane {

class MasterListener : private Winsock::Events {
 public:
  struct Uses {
    AppState& state;
    Settings& settings;
    Screen& screen;
    Messages& messages;
    const Log& log;
    Pump& pump;
    Winsock& connectionML;
  };
  explicit MasterListener(Uses uses);
  ~MasterListener() override;

  // Whether the settings name a Master Listener.
  bool isNamed() const;
  Winsock::State connectionState() const { return uses_.connectionML.state(); }

  void connectionMLConnect();  // nothing while connected. Yields.
  void connectAgain();         // without a wait; it becomes known by the news
  void close();

  // Asks for the list of the network, which opens frmNetwork when it comes. Yields.
  void mlreset();

  // Takes IP, port and description of the first entry of each type that has no choice yet.
  void applyListenerList(const QList<ListenerEntry>& entries);

  std::function<void(const QList<ListenerEntry>&)> networkAsked;  // the answer to mlreset. Yields.
  // The whole list (`all`) or a newcomer has come and been applied.
  std::function<void(const QList<ListenerEntry>&, bool all)> listHeard;
  void setLinkNews(LinkNews* news) { news_ = news; }  // not owned

 private:
  void Connect() override;
  void Close() override;
  void DataArrival(qint64 bytesTotal) override;
  void Error(const QString& description) override;

  void connectNow();
  void send(std::initializer_list<QString> fields);
  bool handle(QByteArrayView record);
  void ended(const QString& why);

  Uses uses_;
  LinkNews* news_ = nullptr;
  WireText wireText_ = WireText::Windows1252;
  QByteArray unfinished_;  // the record that the last delivery cut, where links are supervised
};

}  // namespace korvane

// The link to the Master Listener, the cabin's table of services. Its list is the one place that
// the addresses of the Music and the Movie Listener come from, but for the key "MusicListener".
#pragma once

#include "core/prompt.h"
#include "core/screen.h"
#include "listener/listener_list.h"
#include "listener/record_link.h"
#include "platform/clock.h"

namespace korvane {

class MasterListener : private RecordLink::Owner {
 public:
  struct Uses {
    AppState& state;
    Settings& settings;
    Screen& screen;
    Messages& messages;
    const Log& log;
    Pump& pump;
    const Clock& clock;
    Winsock& connectionML;
  };
  explicit MasterListener(Uses uses);

  // Whether the settings name a Master Listener.
  bool isNamed() const;
  Winsock::State connectionState() const { return link_.state(); }

  void connectionMLConnect();  // nothing while connected. Yields.
  void connectAgain();         // without a wait; it becomes known by the news
  void close();                // without a report

  // Asks for the list of the network, which opens frmNetwork when it comes; says so when no Master
  // Listener can be reached within 3 s. Yields.
  void mlreset();

  // Takes IP, port and description of the first entry of each type that has no choice yet.
  void applyListenerList(const QList<ListenerEntry>& entries);

  // A list of the network is to be shown: the answer to mlreset, or one that nobody has asked for,
  // which is heard once in a minute at most, counted from the end of the last. Yields.
  std::function<void(const QList<ListenerEntry>&)> networkAsked;
  // The whole list (`all`) or a newcomer has come and been applied.
  std::function<void(const QList<ListenerEntry>&, bool all)> listHeard;
  void setLinkNews(LinkNews* news) { link_.setNews(news); }  // not owned

 private:
  void linkStands() override;
  void linkDelivers(const QByteArray& block) override;
  void linkCloses() override;
  void linkFails(const QString& description) override;

  void send(std::initializer_list<QString> fields, bool answered = false);
  void handle(QByteArrayView record);
  void showNetwork(const QList<ListenerEntry>& entries);
  void forget();

  const Uses uses_;
  RecordLink link_;
  QByteArray unfinished_;   // the record that the last delivery cut, where links are supervised
  bool listAsked_ = false;  // by mlreset, and not answered
  std::optional<qint64> shownMs_;  // when a list was shown last
  QString failure_;                // as it was logged last
};

}  // namespace korvane

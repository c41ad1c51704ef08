// The control socket: a local socket that only the user may open. One JSON object a line, one
// answer a line, in their order; a command is run when the one before it is answered.
#pragma once

#include <QLocalServer>
#include <QPointer>
#include <deque>

#include "view/remote/control_commands.h"

class QLocalSocket;

namespace korvane {

class ControlServer {
 public:
  explicit ControlServer(WindowHost& host);

  // Listens on the socket at `path` (mode 0600); a socket that nobody serves any more is replaced.
  // False with `error` in words.
  bool listen(const QString& path, QString* error);

  ControlCommands& commands() { return commands_; }

 private:
  struct Client {
    QByteArray read;               // an unfinished line
    std::deque<QByteArray> lines;  // not run yet
    bool running = false;
  };

  void connected();
  void arrived(QLocalSocket* socket, const std::shared_ptr<Client>& client);
  void runNext(const QPointer<QLocalSocket>& socket, const std::shared_ptr<Client>& client);

  ControlCommands commands_;
  QLocalServer server_;
};

}  // namespace korvane

#include "view/remote/control_server.h"

#include <QFile>
#include <QJsonDocument>
#include <QLocalSocket>

#include <sys/stat.h>

namespace korvane {
namespace {

constexpr qsizetype kLongestLine = 1 << 20;
constexpr size_t kMostLines = 1000;

bool isSocket(const QString& path) {
  struct stat status {};
  return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISSOCK(status.st_mode);
}

bool served(const QString& path) {
  QLocalSocket probe;
  probe.connectToServer(path);
  return probe.waitForConnected(200);
}

QByteArray line(const QJsonObject& object) {
  return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject refused(const QString& error) {
  return {{u"ok"_s, false}, {u"error"_s, error}};
}

}  // namespace

ControlServer::ControlServer(WindowHost& host) : commands_(host) {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { connected(); });
}

bool ControlServer::listen(const QString& path, QString* error) {
  if (QFile::exists(path) && served(path)) {
    *error = u"the control socket %1 is served by another console"_s.arg(path);
    return false;
  }
  if (QFile::exists(path) && !isSocket(path)) {
    *error = u"%1 is no socket and stays as it is"_s.arg(path);
    return false;
  }
  QLocalServer::removeServer(path);
  if (!server_.listen(path)) {
    *error = u"cannot open the control socket %1: %2"_s.arg(path, server_.errorString());
    return false;
  }
  QFile::setPermissions(server_.fullServerName(), QFile::ReadOwner | QFile::WriteOwner);
  return true;
}

void ControlServer::connected() {
  while (QLocalSocket* socket = server_.nextPendingConnection()) {
    const auto client = std::make_shared<Client>();
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, socket,
                     [this, socket, client] { arrived(socket, client); });
  }
}

void ControlServer::arrived(QLocalSocket* socket, const std::shared_ptr<Client>& client) {
  client->read += socket->readAll();
  for (qsizetype end; (end = client->read.indexOf('\n')) >= 0; client->read.remove(0, end + 1)) {
    const QByteArray one = client->read.first(end).trimmed();
    if (!one.isEmpty()) client->lines.push_back(one);
  }
  if (client->read.size() > kLongestLine || client->lines.size() > kMostLines) {
    socket->write(line(refused(u"too long"_s)));
    socket->disconnectFromServer();
    return;
  }
  runNext(socket, client);
}

// From the event loop, never inside the socket's own notice, which could not come again while a
// handler holds it.
void ControlServer::runNext(const QPointer<QLocalSocket>& socket,
                            const std::shared_ptr<Client>& client) {
  if (!socket || client->running || client->lines.empty()) return;
  client->running = true;
  QMetaObject::invokeMethod(
      &server_,
      [this, socket, client] {
        const QByteArray text = client->lines.front();
        client->lines.pop_front();
        const auto answer = [this, socket, client](const QJsonObject& with) {
          if (socket) {
            socket->write(line(with));
            socket->flush();
          }
          client->running = false;
          runNext(socket, client);
        };
        QJsonParseError fault;
        const QJsonDocument parsed = QJsonDocument::fromJson(text, &fault);
        if (!parsed.isObject()) {
          answer(refused(
              u"not a JSON object: %1"_s.arg(fault.error ? fault.errorString() : u"other"_s)));
        } else {
          commands_.run(parsed.object(), answer);
        }
      },
      Qt::QueuedConnection);
}

}  // namespace korvane

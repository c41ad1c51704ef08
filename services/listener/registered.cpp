#include "services/listener/registered.h"

#include <QSysInfo>

namespace korvane {
namespace {

constexpr quint16 kMasterPort = 7410;

QString advertised(const Options& options, const QString& bind) {
  const bool any = bind == "0.0.0.0"_L1 || bind == "::"_L1;
  return options.value("advertise", any ? QString() : bind);
}

}  // namespace

std::optional<HostPort> hostPortOf(const Options& options, const char* name, quint16 otherwise,
                                   QString* error) {
  const QString text = options.value(name);
  const bool bare = text.count(u':') > 1 && !text.startsWith(u'[');
  const qsizetype colon = bare ? -1 : text.indexOf(u':', text.indexOf(u']') + 1);
  HostPort found{text.first(colon < 0 ? text.size() : colon).remove(u'[').remove(u']'), otherwise};
  bool isPort = true;
  if (colon >= 0) found.port = text.mid(colon + 1).toUShort(&isPort);
  if (isPort && found.port > 0 && !found.host.isEmpty()) return found;
  *error = u"--%1 takes HOST or HOST:PORT, not %2"_s.arg(QLatin1StringView(name), text);
  return std::nullopt;
}

std::optional<HostPort> masterOf(const Options& options, QString* error) {
  return hostPortOf(options, "master", kMasterPort, error);
}

Registered::Registered(const Options& options, const ServerOptions& chosen, const HostPort& master,
                       quint16 port, const QString& type, ServiceLog& log)
    : registration_(toMaster_, timer_, log,
                    {options.value("name", QSysInfo::machineHostName()),
                     advertised(options, chosen.bind), port, type, chosen.encoding}) {
  toMaster_.RemoteHost = master.host;
  toMaster_.RemotePort = master.port;
  registration_.start();
}

}  // namespace korvane

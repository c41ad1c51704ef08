// What the services that register with a Master Listener have in common: the options of it, and the
// connection that keeps them in its table.
#pragma once

#include <optional>

#include "platform/machine/ticker_qt.h"
#include "platform/net/winsock_qt.h"
#include "services/listener/registration.h"
#include "services/server/options.h"

namespace korvane {

inline constexpr Option kMasterOption{"master", "HOST[:PORT]",
                                      "registers with that Master Listener; port 7410 by default"};
inline constexpr Option kNameOption{"name", "TEXT",
                                    "its name in the lists of consoles; the machine's by default"};
inline constexpr Option kAdvertiseOption{
    "advertise", "ADDRESS",
    "where consoles find it; the address of --bind, else the one that\n"
    "reaches the Master Listener"};

struct HostPort {
  QString host;
  quint16 port = 0;
};
// HOST, HOST:PORT or [ADDRESS]:PORT of that option. Nothing with `error` for anything else.
std::optional<HostPort> hostPortOf(const Options& options, const char* name, quint16 otherwise,
                                   QString* error);
// The same of --master.
std::optional<HostPort> masterOf(const Options& options, QString* error);

// Keeps one type of service in the table of a Master Listener from now on.
class Registered {
 public:
  // `port` is where the service listens; all but `options` must outlive this.
  Registered(const Options& options, const ServerOptions& chosen, const HostPort& master,
             quint16 port, const QString& type, ServiceLog& log);

 private:
  WinsockQt toMaster_{5000};
  TickerQt timer_;
  Registration registration_;
};

}  // namespace korvane

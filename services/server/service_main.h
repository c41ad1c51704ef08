// The frame of a service's main(): command line, help, no root, an event loop until SIGTERM.
#pragma once

#include "platform/machine/end_signal.h"
#include "platform/machine/service_pump.h"
#include "platform/machine/system_clock.h"
#include "platform/machine/ticker_qt.h"
#include "platform/net/tcp_server_qt.h"
#include "services/server/options.h"

namespace korvane {

// What a service is, for its command line and its help.
struct ServiceFrame {
  const char* program;
  const char* what;                 // the first line of its help
  std::span<const Option> options;  // its own, besides kServerOptions
  int port;                         // where it listens by default
};

// The parts every service is made of. One at a time; it wants a QCoreApplication.
struct ServiceParts {
  ServiceParts(const char* program, ServerOptions chosen);  // `program` must outlive it

  bool listen(QString* error);  // and logs where; false with `error` when it cannot
  int run();                    // until SIGTERM or SIGINT; the exit code

  const EndSignal signal;  // first: threads begun later leave the signals to it
  const ServerOptions chosen;
  ServicePump pump;
  SystemClock clock;
  ServiceLog log;
  TcpServerQt tcp;
  TickerQt ticker, turns;
  RecordServer server;
};

// As serviceMain(), where there is a QCoreApplication already; `arguments` are those behind the
// program's name.
int serviceRun(
    const ServiceFrame& frame, const QStringList& arguments,
    const std::function<int(const Options&, const ServerOptions&, QString* error)>& serve);

// Parses the command line, answers --help and --version, and else calls `serve`, which returns the
// exit code; with `error` set that is said on standard error and the code is 1.
int serviceMain(
    int argc, char** argv, const ServiceFrame& frame,
    const std::function<int(const Options&, const ServerOptions&, QString* error)>& serve);

}  // namespace korvane

// The command line of a service: "--name VALUE" or "--name=VALUE", of the options in a table.
#pragma once

#include <optional>
#include <span>

#include "services/server/record_server.h"

namespace korvane {

// An option of a command line.
struct Option {
  const char* name;     // without the two lines
  const char* operand;  // what the help calls its value; null for an option without one
  const char* help;     // lines of the help, with "\n" between
};

// What a command line gave. Only names that stand in the table it was parsed with may be asked for.
class Options {
 public:
  // Nothing with `error` in words for what the table does not hold.
  static std::optional<Options> parse(std::span<const Option> table, const QStringList& arguments,
                                      QString* error);
  // The text of --help: usage, `what` the program does, a line or more for each option.
  static QString help(const char* program, const char* what, std::span<const Option> table);

  bool has(const char* name) const { return values_.contains(QLatin1StringView(name)); }
  QString value(const char* name, const QString& otherwise = {}) const;  // the last one given
  QStringList values(const char* name) const;                            // in their order
  // Nothing with `error` when it is given and no whole number of that range.
  std::optional<int> number(const char* name, int low, int high, int otherwise,
                            QString* error) const;

 private:
  QHash<QString, QStringList> values_;
};

// What every service takes.
struct ServerOptions {
  QString bind = u"127.0.0.1"_s;  // not looked at until the service listens
  int port = 0;
  AllowList allow;
  ServerLimits limits;
  WireText encoding = WireText::Windows1252;
};
inline constexpr Option kServerOptions[] = {
    {"bind", "ADDRESS",
     "the address of this machine to listen at, 127.0.0.1 by default;\n"
     "0.0.0.0 is all of them"},
    {"port", "N",
     "the port to listen at, by default 7410 for the Master Listener, 7411 for a\n"
     "Listener and 7412 for the lights; 0 takes any free one"},
    {"allow", "LIST",
     "who may connect besides this machine: addresses and networks with\n"
     "commas between, as 192.168.1.0/24,10.0.0.5; may be given more than once"},
    {"connections", "N", "how many at a time, 128 by default"},
    {"connections-per-address", "N", "how many of them from one address, 16 by default"},
    {"record-bytes", "N", "the longest record that is taken, 8192 by default"},
    {"encoding", "NAME",
     "of texts in records: Windows-1252 by default, or UTF-8; as the consoles'\n"
     "setting ListenerEncoding"},
    {"as-root", nullptr, "runs even when started by root"},
    {"version", nullptr, "prints the version"},
    {"help", nullptr, "prints this"},
};
// Of a service that listens at `port` by default. Nothing with `error` in words for a value that is
// none.
std::optional<ServerOptions> serverOptions(const Options& options, int port, QString* error);

}  // namespace korvane

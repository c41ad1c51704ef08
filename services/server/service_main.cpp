#include "services/server/service_main.h"

#include <unistd.h>

#include <QCoreApplication>
#include <cstdio>

namespace korvane {
namespace {

int complain(const ServiceFrame& frame, const QString& error) {
  std::fprintf(stderr, "%s: %s\n", frame.program, qUtf8Printable(error));
  return 1;
}

}  // namespace

ServiceParts::ServiceParts(const char* program, ServerOptions options)
    : signal([] { QCoreApplication::exit(0); }),
      chosen(std::move(options)),
      log(clock, program),
      server({tcp, ticker, turns, clock, log, chosen.allow, chosen.limits}) {}

bool ServiceParts::listen(QString* error) {
  if (!tcp.listen(chosen.bind, static_cast<quint16>(chosen.port), error)) return false;
  log.say(u"listening at %1 port %2"_s.arg(chosen.bind).arg(tcp.port()));
  AllowList self;
  if (!self.admits(chosen.bind) && chosen.allow.empty())
    log.warn(u"without --allow only this machine may connect"_s);
  return true;
}

int ServiceParts::run() {
  const int code = QCoreApplication::exec();
  log.say(u"ended"_s);
  return code;
}

int serviceMain(int argc, char** argv, const ServiceFrame& frame,
                const std::function<int(const Options&, const ServerOptions&, QString*)>& serve) {
  const QCoreApplication application(argc, argv);
  return serviceRun(frame, QCoreApplication::arguments().mid(1), serve);
}

int serviceRun(const ServiceFrame& frame, const QStringList& arguments,
               const std::function<int(const Options&, const ServerOptions&, QString*)>& serve) {
  std::vector<Option> table(frame.options.begin(), frame.options.end());
  table.insert(table.end(), std::begin(kServerOptions), std::end(kServerOptions));
  QString error;
  const auto options = Options::parse(table, arguments, &error);
  if (!options) return complain(frame, error);
  if (options->has("help") || options->has("version")) {
    const QString text = options->has("help")
                             ? Options::help(frame.program, frame.what, table)
                             : QLatin1StringView(frame.program) + u" " KORVANE_VERSION "\n"_s;
    std::printf("%s", qUtf8Printable(text));
    return 0;
  }
  if (geteuid() == 0 && !options->has("as-root"))
    return complain(frame, u"started by root; start it as another user, or say --as-root"_s);
  const auto chosen = serverOptions(*options, frame.port, &error);
  if (!chosen) return complain(frame, error);
  const int code = serve(*options, *chosen, &error);
  return error.isEmpty() ? code : complain(frame, error);
}

}  // namespace korvane

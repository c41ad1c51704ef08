// korvane-master: the Master Listener of a cabin's network.
#include "services/master/master_service.h"
#include "services/server/service_main.h"

namespace {

using namespace korvane;

constexpr Option kOptions[] = {
    {"allow-advertise", "LIST",
     "addresses and networks that any peer may register in place of its own;\n"
     "may be given more than once"},
};

constexpr ServiceFrame kFrame{
    "korvane-master", "Tells the consoles of a cabin which Listeners there are, and each other.",
    kOptions, 7410};

bool isOwn(const QString& text) {
  const std::optional<IpAddress> address = ipAddressOf(text);
  return address && isOfThisMachine(*address);
}

int serve(const Options& options, const ServerOptions& chosen, QString* error) {
  AllowList advertise;
  for (const QString& list : options.values("allow-advertise"))
    if (!advertise.add(list, error)) return 1;
  ServiceParts parts(kFrame.program, chosen);
  const MasterService service({parts.server, parts.log, chosen.encoding, advertise, &isOwn});
  return parts.listen(error) ? parts.run() : 1;
}

}  // namespace

int main(int argc, char** argv) {
  return serviceMain(argc, argv, kFrame, serve);
}

// korvane-master: the Master Listener of a cabin's network.
#include "services/master/master_service.h"
#include "services/server/service_main.h"

namespace {

using namespace korvane;

constexpr ServiceFrame kFrame{
    "korvane-master",
    "Tells the consoles of a cabin which Listeners there are, and each other.",
    {},
    7410};

int serve(const Options&, const ServerOptions& chosen, QString* error) {
  ServiceParts parts(kFrame.program, chosen);
  const MasterService service(parts.server, parts.log, chosen.encoding);
  return parts.listen(error) ? parts.run() : 1;
}

}  // namespace

int main(int argc, char** argv) {
  return serviceMain(argc, argv, kFrame, serve);
}

// HTTP by libcurl, each request on a thread that nobody waits for. At most three redirections are
// followed, to http and https alone; a proxy is what the environment names (http_proxy and the
// like, see curl(1)), and no file of the user's home is read.
#pragma once

#include "platform/http.h"
#include "platform/pump.h"

namespace korvane {

class HttpCurl final : public Http {
 public:
  explicit HttpCurl(Pump& pump);  // not owned; must outlive this
  // Ends what is under way; 1 s at most, even when a name server hangs.
  ~HttpCurl() override;
  HttpCurl(const HttpCurl&) = delete;

  std::unique_ptr<Running> get(const Request& request,
                               std::function<void(const Answer&)> done) override;

 private:
  class Transfer;
  class Handle;
  struct Threads;

  Pump& pump_;
  const std::shared_ptr<Threads> threads_;
};

}  // namespace korvane

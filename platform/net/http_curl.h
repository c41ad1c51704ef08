// HTTP by libcurl, each request on a thread that nobody waits for.
#pragma once

#include "platform/http.h"
#include "platform/pump.h"

namespace korvane {

class HttpCurl final : public Http {
 public:
  explicit HttpCurl(Pump& pump) : pump_(pump) {}  // not owned; must outlive this
  std::unique_ptr<Running> get(const Request& request,
                               std::function<void(const Answer&)> done) override;

 private:
  Pump& pump_;
};

}  // namespace korvane

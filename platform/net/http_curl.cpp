#include "platform/net/http_curl.h"

namespace korvane {

std::unique_ptr<Http::Running> HttpCurl::get(const Request&,
                                             std::function<void(const Answer&)> done) {
  pump_.later([done = std::move(done)] { done({0, {}, u"There is no connection."_s}); });
  return std::make_unique<Running>();
}

}  // namespace korvane

// What is fetched over HTTP. Called, and answering, on the event loop's thread.
#pragma once

#include <functional>
#include <memory>

#include "platform/text.h"

namespace korvane {

class Http {
 public:
  struct Request {
    QString url;  // http or https
    QByteArray agent;
    double seconds = 5;       // for all of it
    int mostBytes = 1 << 20;  // a longer body is a failure
  };
  struct Answer {
    int status = 0;  // of HTTP; 0 when none came
    QByteArray body;
    QString trouble;  // in words, where there is no whole answer; else empty
  };
  // A request under way. It ends with this, and is not heard of any more.
  class Running {
   public:
    virtual ~Running() = default;
  };

  virtual ~Http() = default;
  // `done` comes once, from the event loop and never from inside the call.
  [[nodiscard]] virtual std::unique_ptr<Running> get(const Request& request,
                                                     std::function<void(const Answer&)> done) = 0;
};

}  // namespace korvane

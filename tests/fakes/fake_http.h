// A network of answers that come when a test says so.
#pragma once

#include "platform/http.h"

namespace korvane {

class FakeHttp : public Http {
 public:
  struct Asked {
    Request request;
    std::function<void(const Answer&)> done;
    bool given = false, cancelled = false;
  };
  std::vector<std::shared_ptr<Asked>> asked;

  std::unique_ptr<Running> get(const Request& request,
                               std::function<void(const Answer&)> done) override {
    asked.push_back(std::make_shared<Asked>(Asked{request, std::move(done), false, false}));
    return std::make_unique<Handle>(asked.back());
  }
  // Answers the oldest request that waits; false when there is none.
  bool answer(const Answer& answer) {
    for (const auto& one : asked) {
      if (one->given || one->cancelled) continue;
      one->given = true;
      const auto keep = one;
      keep->done(answer);
      return true;
    }
    return false;
  }

 private:
  struct Handle : Running {
    explicit Handle(std::shared_ptr<Asked> of) : asked(std::move(of)) {}
    ~Handle() override { asked->cancelled = !asked->given; }
    std::shared_ptr<Asked> asked;
  };
};

}  // namespace korvane

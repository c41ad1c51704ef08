// Other machines that answer as a test says, and when it says so.
#pragma once

#include <map>

#include "platform/network.h"

namespace korvane {

class FakeNetwork : public Network {
 public:
  void ping(const QString& address, int timeoutMs,
            std::function<void(EchoStatus)> answered) override {
    asked << u"%1 within %2 ms"_s.arg(address).arg(timeoutMs);
    status_ = address.isEmpty() ? InvalidAddress : status[address];
    answered_ = std::move(answered);
  }
  void cancelPing() override { answered_ = nullptr; }
  QStringList localIPAddresses() const override { return addresses; }

  // The answer to the ping that waits; false when none does.
  bool answer() {
    const auto answered = std::exchange(answered_, nullptr);
    if (answered) answered(status_);
    return answered != nullptr;
  }

  std::map<QString, EchoStatus> status;  // Reachable unless set
  QStringList asked, addresses;

 private:
  std::function<void(EchoStatus)> answered_;
  EchoStatus status_ = Reachable;
};

}  // namespace korvane

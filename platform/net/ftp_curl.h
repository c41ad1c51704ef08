// FTP by libcurl, each connection on a thread of its own, so that no server and no disk keeps the
// owner waiting.
#pragma once

#include "platform/ftp_client.h"

namespace korvane {

class FtpCurl final : public FtpClient {
 public:
  FtpCurl();
  ~FtpCurl() override;  // leaves the goodbye to the thread, which ends by itself

  void begin(Order order) override;
  bool wait(int milliseconds) override;
  qint64 moved() const override;
  Result result() override;
  void cancel() override;

 private:
  struct Shared;  // with the thread
  static void work(const std::shared_ptr<Shared>& shared);
  std::shared_ptr<Shared> shared_;
};

}  // namespace korvane

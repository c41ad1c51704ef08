// A session with an FTP server by libcurl, which keeps its control connection between orders. Used
// by one thread; wake() from any.
#pragma once

#include <atomic>

#include "platform/ftp_client.h"
#include "platform/net/ftp_replies.h"

namespace korvane {

class FtpSession {
 public:
  // `cancelled` is looked at while an order runs, `moved` counts the bytes of its file; both must
  // outlive this.
  FtpSession(const std::atomic<bool>& cancelled, std::atomic<qint64>& moved);
  ~FtpSession();  // says goodbye to the server, which may take seconds
  FtpSession(const FtpSession&) = delete;

  FtpClient::Result perform(const FtpClient::Order& order);  // blocks
  void wake();  // has an order that runs look whether it was cancelled

 private:
  struct Transfer;
  FtpClient::Result once(const FtpClient::Order& order, bool facts);
  void prepare(Transfer& transfer);
  void prepareWhat(Transfer& transfer);
  void prepareConnection();
  int run();
  void conclude(Transfer& transfer, int number);
  template <class Value>
  void set(int option, Value value);

  const std::atomic<bool>& cancelled_;
  std::atomic<qint64>& moved_;
  void* multi_ = nullptr;  // CURLM
  void* easy_ = nullptr;   // CURL
  FtpClient::Login login_;
  QByteArray address_;
  QByteArray folderUrl_;  // of the folder that the connection is in
  bool open_ = false;
  bool encrypted_ = false;  // the server has taken AUTH TLS
  bool facts_ = false;      // the server lists by MLSD
};

}  // namespace korvane

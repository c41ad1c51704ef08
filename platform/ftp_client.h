// A connection to an FTP server (RFC 959; IPv6 by RFC 2428, MLSD and SIZE by RFC 3659, TLS by RFC
// 4217), of whoever makes it.
//
// One order at a time: begin() returns at once, wait() says when the order has ended. The control
// connection stays between orders; one that the server has closed is made again by the next order.
// Everything is called on the owner's thread, but for FtpSink and FtpSource.
#pragma once

#include <memory>

#include "platform/text.h"

namespace korvane {

// Where a download goes. Called on the connection's own thread, until the order has ended.
class FtpSink {
 public:
  virtual ~FtpSink() = default;
  virtual bool put(QByteArrayView bytes) = 0;  // false ends the transfer
};

// Where an upload comes from. Called as a sink is.
class FtpSource {
 public:
  virtual ~FtpSource() = default;
  // At most `most` bytes; 0 at the end, -1 ends the transfer.
  virtual qint64 take(char* bytes, qint64 most) = 0;
};

class FtpClient {
 public:
  struct Login {
    QString server;    // "host", "host:port", an IPv6 address; an "ftp://" before it is allowed
    QString user;      // empty for an anonymous guest
    QString password;  // never kept outside the memory
    bool passive = false;
    bool tls = false;  // where the server offers it; its certificate is not looked at
  };

  struct Order {
    enum What {
      Open,   // connects and logs in; gives the folder that the server begins in
      Enter,  // changes to `path`; gives the folder as the server calls it
      MakeFolder,
      RemoveFolder,  // an empty one
      Delete,
      Rename,  // `path` to `to`
      Size,    // of a file; -1 where the server does not tell sizes
      List,    // gives the listing of the folder `path` as it came
      Download,
      Upload,  // in place of the file, or behind it where `from` is not 0
    };
    What what = Open;
    QByteArray path, to;  // from the server's root; any bytes but NUL, CR and LF
    Login login{};        // of Open
    bool ascii = false;   // line ends become those of the receiver
    qint64 from = 0;      // bytes of the file that are there already
    qint64 size = -1;     // of a file whose size is known
    std::shared_ptr<FtpSink> sink{};
    std::shared_ptr<FtpSource> source{};
  };

  struct Result {
    int number = 0;      // of libcurl (CURLcode); 0 is success
    QString text;        // libcurl's for that number
    QString said;        // the words of a server that refused, else empty
    bool began = false;  // a transfer had been agreed on
    QByteArray bytes;    // a folder or a listing
    bool facts = false;  // the listing is one of MLSD
    qint64 size = -1;
    bool good() const { return number == 0; }
  };
  enum Number { kNotConnected = 7, kNotFound = 78, kCancelled = 42 };

  virtual ~FtpClient() = default;  // cancels what is under way, and waits for nothing

  virtual void begin(Order order) = 0;
  // Blocks until the order has ended, but no longer than that; whether it has.
  virtual bool wait(int milliseconds) = 0;
  virtual qint64 moved() const = 0;  // bytes of the order's file that have gone over the wire
  virtual Result result() = 0;       // of an order that has ended; its bytes are moved out
  virtual void cancel() = 0;         // the order ends soon, with kCancelled unless it was through
};

}  // namespace korvane

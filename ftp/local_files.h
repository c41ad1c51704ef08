// The files of this machine that a transfer reads and writes. Made and finished on the owner's
// thread; between the two a transfer uses them from its connection's.
#pragma once

#include "platform/files/file_calls.h"
#include "platform/ftp_client.h"

namespace korvane {

// Where a download goes.
class LocalTarget : public FtpSink {
 public:
  enum Kind {
    InPlace,  // written from its first byte on, as far as was wanted; a longer file keeps its tail
    Emptied,  // an emptied file, for all that comes
    Partial,  // beside it, and in its place when whole: until then the old file stands
  };
  // `identity` tells a partial file what it is part of: one that an earlier transfer of the same
  // has left is gone on with, any other is removed.
  LocalTarget(FileCalls& calls, const QString& path, Kind kind, const QByteArray& identity = {});
  ~LocalTarget() override;  // what is not finished stays as far as it came
  LocalTarget(const LocalTarget&) = delete;

  bool open(qint64 wanted);            // so many bytes; a partial file that is longer begins anew
  qint64 had() const { return had_; }  // bytes of a partial file that is gone on with
  bool put(QByteArrayView bytes) override;
  // Gives the file its name. `safely`: on the disk first, and the name too.
  bool finish(bool safely);
  void discard();           // a partial file that nobody will go on with
  QString trouble() const;  // in words; empty where there was none

 private:
  bool check(bool succeeded);

  FileCalls& calls_;
  const QString path_;
  const Kind kind_;
  QByteArray target_, written_;  // paths
  int file_ = -1;
  qint64 had_ = 0;
  qint64 wanted_ = 0;  // bytes that are still to be written in place
  int failure_ = 0;    // errno
};

// Where an upload comes from.
class LocalSource : public FtpSource {
 public:
  explicit LocalSource(const QString& path);
  ~LocalSource() override;
  LocalSource(const LocalSource&) = delete;

  bool open(qint64 from = 0);  // begins behind that many bytes
  qint64 size() const { return size_; }
  qint64 modified() const { return modified_; }  // seconds since 1970
  qint64 take(char* bytes, qint64 most) override;
  QString trouble() const;  // as a target's

 private:
  const QString path_;
  int file_ = -1;
  qint64 size_ = 0, modified_ = 0;
  int failure_ = 0;
};

}  // namespace korvane

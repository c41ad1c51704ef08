// cFTP: a connection to an FTP server as the owner's screen works it. Each operation runs the order
// of an FtpClient to its end and yields meanwhile, so the screen lives; one at a time.
#pragma once

#include <functional>
#include <optional>

#include "ftp/dir_list.h"
#include "platform/clock.h"
#include "platform/files/file_calls.h"
#include "platform/ftp_client.h"
#include "platform/pump.h"

namespace korvane {

class cFTP {
 public:
  // Bytes of a block: each block raises one event and pays one yield.
  static constexpr qint64 kBlock = 255;

  struct Uses {
    Pump& pump;
    Clock& clock;
    std::function<std::unique_ptr<FtpClient>()> makeClient;
    std::function<bool()> safe;  // FtpSafe
    FileCalls& calls = FileCalls::posix();
  };
  explicit cFTP(Uses uses) : uses_(std::move(uses)) {}

  // Raised for each block and once at the end.
  std::function<void(qint64 bytesSoFar, qint64 fileSize)> FileTransferProgress = [](qint64,
                                                                                    qint64) {};

  // Unless it says otherwise an operation is true on success, and leaves GetLastErrorMessage on a
  // failure. All but the setters yield.
  bool OpenConnection(const QString& server, const QString& user, const QString& password);
  void CloseConnection();  // does not yield; what is under way ends with a failure
  bool SimpleFTPPutFile(const QString& local, const QString& remote);
  bool SimpleFTPGetFile(const QString& local, const QString& remote);
  bool RenameFTPFile(const QString& oldName, const QString& newName);
  bool CreateFTPDirectory(const QString& name);
  bool RemoveFTPDirectory(const QString& name);
  bool DeleteFTPFile(const QString& name);
  // In blocks. Names without a path stand in the server's present folder.
  bool FTPUploadFile(const QString& local, const QString& remote);
  bool FTPDownloadFile(const QString& local, const QString& remote);
  QString GetFTPDirectory();
  bool SetFTPDirectory(const QString& name);
  // The low 32 bits; -1 for what is not there, -2 for another failure.
  qint32 GetFTPFileSize(const QString& remote);
  std::shared_ptr<cDirList> GetDirectoryListing(const QString& filter);

  void SetTransferASCII() { ascii_ = true; }
  void SetTransferBinary() { ascii_ = false; }
  void SetModeActive() { passive_ = false; }  // from the next connection on
  void SetModePassive() { passive_ = true; }
  std::shared_ptr<cDirList> Directory();
  const QString& GetLastErrorMessage() const { return lastErrorMessage_; }

  // For whole folders. Paths are the server's bytes, from its root.
  QByteArray pathOf(const QString& name) const;  // of a name in the present folder
  std::optional<cDirList> listOf(const QByteArray& folder);
  bool makeFolder(const QByteArray& folder);
  // A file of a known size (-1: unknown), which is not brought to the disk at once.
  bool fetch(const QString& local, const QByteArray& remote, qint64 size, const QString& date);
  bool send(const QString& local, const QByteArray& remote);

  void cancel();  // what is under way ends with a failure
  bool cancelled() const { return cancelled_; }
  bool busy() const { return busy_; }
  bool connected() const { return client_ != nullptr; }
  QString badTime;  // the first of the last listing that no calendar knows

 private:
  struct Job;  // a transfer
  struct Broken {
    QString local;
    qint64 size = 0, modified = 0;  // of the local file
    qint64 sent = 0;
  };

  using Order = FtpClient::Order;
  FtpClient::Result run(Order order, const std::function<void()>& meanwhile = {});
  bool command(Order::What what, const QString& name, const char* label, const QString& to = {});
  bool failed(const FtpClient::Result& result, const QString& label);
  bool refused(const QString& why);
  bool transfer(Job& job, Order order);
  qint64 sizeOf(const QByteArray& remote);  // all bits; else as GetFTPFileSize
  qint64 sizeByListing(const QByteArray& remote);
  bool receive(const QString& local, const QByteArray& remote, qint64 size, const QString& date,
               bool single);
  bool uploadTo(const QString& local, const QByteArray& remote);
  qint64 wentThrough(const QByteArray& remote, const Broken& now);

  Uses uses_;
  std::shared_ptr<FtpClient> client_;
  QString server_;
  QByteArray folder_;  // the server's present one
  std::shared_ptr<cDirList> directory_;
  QString lastErrorMessage_;
  bool ascii_ = true, passive_ = false;
  bool busy_ = false, cancelled_ = false;
  QHash<QByteArray, Broken> broken_;  // uploads that failed, by their path on the server
};

}  // namespace korvane

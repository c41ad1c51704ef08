// Whole folders, up and down: what there is is listed first, so that the count is known, then each
// file goes by itself. Links are not followed.
#pragma once

#include "ftp/ftp.h"

namespace korvane {

class FolderTransfer {
 public:
  // Hears of each file before it goes, and while the folders are listed (`count` 0).
  using News = std::function<void(int number, int count, const QString& name)>;
  FolderTransfer(cFTP& ftp, News news) : ftp_(ftp), news_(std::move(news)) {}

  // The server's folder into the local one of that path, and the other way. False where it could
  // not begin, was cancelled or a file failed: what went before stays, and why is ftp's last error.
  // Yields.
  bool download(const QByteArray& remote, const QString& local);
  bool upload(const QString& local, const QByteArray& remote);

  int files() const { return done_; }
  // Names that may not become files here, each with a sentence.
  const QStringList& refusals() const { return refusals_; }

 private:
  struct File {
    QString local;
    QByteArray remote;
    qint64 size;
    QString date;
  };
  bool gather(const QByteArray& remote, const QString& local, int depth);
  bool gatherHere(const QString& local, const QByteArray& remote, int depth);

  cFTP& ftp_;
  News news_;
  std::vector<File> found_;
  QStringList localFolders_;
  QList<QByteArray> remoteFolders_;
  QStringList refusals_;
  int done_ = 0;
};

}  // namespace korvane

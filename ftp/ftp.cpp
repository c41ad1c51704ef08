#include "ftp/ftp.h"

#include "core/conversions.h"
#include "ftp/listing.h"
#include "ftp/local_files.h"
#include "platform/net/ftp_replies.h"

namespace korvane {
namespace {

constexpr int kLookMs = 4;  // at an order under way, between two yields
constexpr int kPartialFile = 18, kInitFailed = 2;
constexpr qsizetype kMostPath = 1024;  // characters

class Mark {
 public:
  explicit Mark(bool& flag) : flag_(flag) { flag_ = true; }
  ~Mark() { flag_ = false; }
  Mark(const Mark&) = delete;

 private:
  bool& flag_;
};

QByteArray below(const QByteArray& folder, const QByteArray& name) {
  return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

}  // namespace

// A transfer: what its failures are called, and how far its events are.
struct cFTP::Job {
  const char *opening, *block, *lastBlock;
  qint64 size = 0;  // of the whole file
  qint64 from = 0;  // was there before
  FtpClient::Result result{};
  qint64 done = 0;  // bytes of the file that are there

  const char* label() const {
    if (!result.began) return opening;
    return done < size / kBlock * kBlock ? block : lastBlock;
  }
};

FtpClient::Result cFTP::run(Order order, const std::function<void()>& meanwhile) {
  FtpClient::Result result;
  result.number = FtpClient::kNotConnected;
  result.text = client_ ? u"Another transfer is under way."_s : u"There is no connection."_s;
  if (!client_ || busy_) return result;
  const Mark working(busy_);
  const std::shared_ptr<FtpClient> client = client_;  // a yield may close the connection
  cancelled_ = false;
  client->begin(std::move(order));
  while (!client->wait(kLookMs)) {
    if (meanwhile) meanwhile();
    uses_.pump.doEvents();
  }
  return client->result();
}

bool cFTP::failed(const FtpClient::Result& result, const QString& label) {
  if (!result.said.isEmpty()) return refused(result.said);
  return refused(
      u"%1 error code: %2 Message: %3"_s.arg(label, QString::number(result.number), result.text));
}

bool cFTP::refused(const QString& why) {
  lastErrorMessage_ = why;
  return false;
}

bool cFTP::OpenConnection(const QString& server, const QString& user, const QString& password) {
  if (client_) CloseConnection();
  if (busy_) return refused(u"Another transfer is under way."_s);
  client_ = uses_.makeClient();
  Order order;
  order.what = Order::Open;
  order.login = {server, user, password, passive_, uses_.safe()};
  const FtpClient::Result result = run(std::move(order));
  if (!result.good()) {
    client_.reset();
    return failed(result, result.number == kInitFailed ? u"InternetOpen"_s : u"InternetConnect"_s);
  }
  server_ = server;
  folder_ = result.bytes;
  return client_ != nullptr;
}

void cFTP::CloseConnection() {
  cancel();
  client_.reset();
}

void cFTP::cancel() {
  if (!busy_ || !client_) return;
  cancelled_ = true;
  client_->cancel();
}

QByteArray cFTP::pathOf(const QString& name) const {
  if (name.startsWith(u'/')) return name.toUtf8();
  const cDirItem* item = directory_ ? directory_->item(name) : nullptr;
  return below(folder_, item ? item->bytes : name.toUtf8());
}

bool cFTP::command(Order::What what, const QString& name, const char* label, const QString& to) {
  Order order;
  order.what = what;
  order.path = pathOf(name);
  if (!to.isEmpty()) order.to = pathOf(to);
  const FtpClient::Result result = run(std::move(order));
  return result.good() || failed(result, QString::fromLatin1(label));
}

bool cFTP::RenameFTPFile(const QString& oldName, const QString& newName) {
  return command(Order::Rename, oldName, "RenameFTPFile", newName);
}
bool cFTP::CreateFTPDirectory(const QString& name) {
  return command(Order::MakeFolder, name, "CreateFTPDirectory");
}
bool cFTP::RemoveFTPDirectory(const QString& name) {
  return command(Order::RemoveFolder, name, "RemoveFTPDirectory");
}
bool cFTP::DeleteFTPFile(const QString& name) {
  return command(Order::Delete, name, "DeleteFTPFile");
}

QString cFTP::GetFTPDirectory() {
  Order order;
  order.what = Order::Enter;
  order.path = folder_;
  const FtpClient::Result result = run(std::move(order));
  if (!result.good()) {
    failed(result, u"FtpGetCurrentDirectory"_s);
    return {};
  }
  const QString text = ftpText(result.bytes).left(kMostPath);
  return text.left(text.indexOf(QChar(0)) < 0 ? text.size() : text.indexOf(QChar(0)));
}

bool cFTP::SetFTPDirectory(const QString& name) {
  Order order;
  order.what = Order::Enter;
  order.path = pathOf(name);
  const FtpClient::Result result = run(std::move(order));
  if (!result.good()) return failed(result, u"FtpSetCurrentDirectory"_s);
  folder_ = result.bytes;
  return true;
}

std::shared_ptr<cDirList> cFTP::Directory() {
  if (!directory_) directory_ = std::make_shared<cDirList>();
  return directory_;
}

std::optional<cDirList> cFTP::listOf(const QByteArray& folder) {
  Order order;
  order.what = Order::List;
  order.path = folder;
  const FtpClient::Result result = run(std::move(order));
  if (!result.good()) {
    failed(result, result.began ? u"InternetFindNextFile"_s : u"FtpFindFirstFile"_s);
    return std::nullopt;
  }
  Listing listing = parseListing(result.bytes, result.facts, uses_.clock.now());
  badTime = listing.badTime;
  cDirList list;
  for (cDirItem& item : listing.items) list.Add(std::move(item));
  return list;
}

std::shared_ptr<cDirList> cFTP::GetDirectoryListing(const QString& filter) {
  directory_ = std::make_shared<cDirList>();
  if (const std::optional<cDirList> list = listOf(folder_))
    for (const cDirItem& item : *list)
      if (fitsFilter(item.fileName, filter)) directory_->Add(item);
  return directory_;
}

bool cFTP::makeFolder(const QByteArray& folder) {
  Order order;
  order.what = Order::MakeFolder;
  order.path = folder;
  const FtpClient::Result result = run(std::move(order));
  return result.good() || failed(result, u"CreateFTPDirectory"_s);
}

qint32 cFTP::GetFTPFileSize(const QString& remote) {
  return static_cast<qint32>(sizeOf(pathOf(remote)));
}

qint64 cFTP::sizeOf(const QByteArray& remote) {
  Order order;
  order.what = Order::Size;
  order.path = remote;
  const FtpClient::Result result = run(std::move(order));
  if (result.good() && result.size >= 0) return result.size;
  if (result.good()) return sizeByListing(remote);
  if (result.number == FtpClient::kNotFound) return -1;
  failed(result, u"FtpFindFirstFile"_s);
  return -2;
}

// Of a server that tells sizes in its listings alone. Blanks are "?", as a pattern holds none.
qint64 cFTP::sizeByListing(const QByteArray& remote) {
  const qsizetype slash = remote.lastIndexOf('/');
  const std::optional<cDirList> list = listOf(remote.left(std::max<qsizetype>(slash, 1)));
  if (!list) return -2;
  const QString pattern = ftpText(remote.mid(slash + 1)).replace(u' ', u'?');
  for (const cDirItem& item : *list)
    if (fitsFilter(item.fileName, pattern)) return item.size;
  return -1;
}

// Runs the order and raises the events of its blocks: whole ones while it runs, the rest behind it.
bool cFTP::transfer(Job& job, Order order) {
  const std::shared_ptr<FtpClient> client = client_;
  qint64 raised = job.from / kBlock * kBlock;
  bool raising = false;
  const auto raise = [&] {
    if (raising) return;  // a block's own yield has come here again
    const Mark one(raising);
    job.done = job.from + client->moved();
    const qint64 whole = std::min(job.done, job.size);
    while (raised + kBlock <= whole) {
      raised += kBlock;
      FileTransferProgress(raised, job.size);
      uses_.pump.breathe();
    }
  };
  job.result = run(std::move(order), raise);
  if (!client || busy_) return false;
  const Mark working(busy_);
  raise();
  return job.result.good();
}

bool cFTP::FTPDownloadFile(const QString& local, const QString& remote) {
  const QString to = trimBlanks(local), name = trimBlanks(remote);
  if (to.isEmpty() || name.isEmpty()) return false;
  const QByteArray path = pathOf(name);
  const bool safe = uses_.safe();
  const qint64 size = safe ? sizeOf(path) : static_cast<qint32>(sizeOf(path));
  if (size < 0 || (size == 0 && !safe)) {
    if (size != -2) refused(u"%1 is empty, or it is not on the server any more."_s.arg(name));
    return false;
  }
  const cDirItem* item = directory_ ? directory_->item(name) : nullptr;
  return receive(to, path, size, item ? item->modified.toString(Qt::ISODate) : QString(), true);
}

bool cFTP::fetch(const QString& local, const QByteArray& remote, qint64 size, const QString& date) {
  return receive(local, remote, size, date, false);
}

bool cFTP::receive(const QString& local, const QByteArray& remote, qint64 size, const QString& date,
                   bool single) {
  const bool safe = uses_.safe();
  const QStringList identity = {server_, QString::fromLatin1(remote.toHex()), QString::number(size),
                                date};
  const auto target = std::make_shared<LocalTarget>(
      uses_.calls, local, safe ? LocalTarget::Partial : LocalTarget::InPlace,
      identity.join(u'\n').toUtf8());
  if (!target->open(safe && ascii_ ? 0 : size)) return refused(target->trouble());
  Job job{"FtpOpenFile:GetFile", "InternetReadFile", "InternetReadFile2", size, target->had()};
  job.done = job.from;
  if (job.from == 0 || job.from < size) {
    Order order;
    order.what = Order::Download;
    order.path = remote;
    order.ascii = ascii_;
    order.from = job.from;
    order.size = size;
    order.sink = target;
    if (!transfer(job, std::move(order))) {
      if (!target->trouble().isEmpty()) return refused(target->trouble());
      if (cancelled_)
        return refused(u"The download was cancelled. Start it again to go on with it."_s);
      return failed(job.result, QString::fromLatin1(job.label()));
    }
  }
  if (!ascii_ && job.done < size) {
    job.result.number = kPartialFile;
    job.result.text = u"Transferred a partial file"_s;
    return failed(job.result, QString::fromLatin1(job.label()));
  }
  if (safe && !ascii_ && job.done > size) {
    target->discard();
    return refused(
        u"The server announced %1 bytes and sent %2. Nothing was changed here: refresh the list "
        u"and "
        "try again."_s.arg(QString::number(size), QString::number(job.done)));
  }
  if (!target->finish(safe && single)) return refused(target->trouble());
  const Mark working(busy_);  // for who hears the last event as well
  FileTransferProgress(size, size);
  return true;
}

bool cFTP::FTPUploadFile(const QString& local, const QString& remote) {
  const QString from = trimBlanks(local), name = trimBlanks(remote);
  if (from.isEmpty() || name.isEmpty()) return false;
  return uploadTo(from, pathOf(name));
}

bool cFTP::send(const QString& local, const QByteArray& remote) {
  return uploadTo(local, remote);
}

bool cFTP::uploadTo(const QString& local, const QByteArray& remote) {
  const auto source = std::make_shared<LocalSource>(local);
  if (!source->open()) return refused(source->trouble());
  Broken now{local, source->size(), source->modified(), 0};
  const bool safe = uses_.safe() && !ascii_;
  Job job{"FtpOpenFile:PutFile", "InternetWriteFile", "InternetWriteFile2", source->size(),
          safe ? wentThrough(remote, now) : 0};
  if (job.from > 0 && !source->open(job.from)) return refused(source->trouble());
  Order order;
  order.what = Order::Upload;
  order.path = remote;
  order.ascii = ascii_;
  order.from = job.from;
  order.size = source->size();
  order.source = source;
  const bool good = transfer(job, std::move(order));
  if (good) {
    broken_.remove(remote);
    const Mark working(busy_);
    FileTransferProgress(job.size, job.size);
    return true;
  }
  now.sent = job.done;
  if (safe && job.result.began) broken_.insert(remote, now);
  if (!source->trouble().isEmpty()) return refused(source->trouble());
  if (cancelled_) return refused(u"The upload was cancelled. Start it again to go on with it."_s);
  return failed(job.result, QString::fromLatin1(job.label()));
}

// How much of this very file an upload that broke has left on the server.
qint64 cFTP::wentThrough(const QByteArray& remote, const Broken& now) {
  const auto before = broken_.constFind(remote);
  if (before == broken_.constEnd() || before->local != now.local || before->size != now.size ||
      before->modified != now.modified)
    return 0;
  const qint64 sent = before->sent, there = sizeOf(remote);
  return there > 0 && there <= sent && there < now.size ? there : 0;
}

bool cFTP::SimpleFTPGetFile(const QString& local, const QString& remote) {
  const auto target =
      std::make_shared<LocalTarget>(uses_.calls, local, LocalTarget::Emptied, QByteArray());
  if (!target->open(0)) return refused(target->trouble());
  Order order;
  order.what = Order::Download;
  order.path = pathOf(remote);
  order.ascii = ascii_;
  order.sink = target;
  const FtpClient::Result result = run(std::move(order));
  if (!target->trouble().isEmpty()) return refused(target->trouble());
  if (!result.good()) return failed(result, u"SimpleFtpGetFile"_s);
  return target->finish(false) || refused(target->trouble());
}

bool cFTP::SimpleFTPPutFile(const QString& local, const QString& remote) {
  const auto source = std::make_shared<LocalSource>(local);
  if (!source->open()) return refused(source->trouble());
  Order order;
  order.what = Order::Upload;
  order.path = pathOf(remote);
  order.ascii = ascii_;
  order.size = source->size();
  order.source = source;
  const FtpClient::Result result = run(std::move(order));
  if (!source->trouble().isEmpty()) return refused(source->trouble());
  return result.good() || failed(result, u"SimpleFtpPutFile"_s);
}

}  // namespace korvane

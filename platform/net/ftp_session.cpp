#include "platform/net/ftp_session.h"

#include <curl/curl.h>

#include <mutex>

#include "platform/net/ftp_url.h"

namespace korvane {
namespace {

using Order = FtpClient::Order;
using Result = FtpClient::Result;

constexpr long kConnectMs = 20'000, kAnswerSeconds = 30, kStandstillSeconds = 30;
// Between looks while nothing comes. A reply that came with the one before it wakes libcurl 7.88
// only then.
constexpr int kLookMs = 10;
constexpr long kBlock = 256 << 10;
constexpr qsizetype kMostListing = 256 << 20;  // bytes

QByteArray verb(const char* name, const QByteArray& path) {
  // The star: libcurl goes on after a refusal, and so keeps the connection.
  return QByteArray("*") + name + ' ' + path;
}

std::vector<QByteArray> commandsOf(const Order& order) {
  switch (order.what) {
    case Order::MakeFolder:
      return {verb("MKD", order.path)};
    case Order::RemoveFolder:
      return {verb("RMD", order.path)};
    case Order::Delete:
      return {verb("DELE", order.path)};
    case Order::Rename:
      return {verb("RNFR", order.path), verb("RNTO", order.to)};
    case Order::Open:
    case Order::Enter:
    case Order::Size:
    case Order::List:
    case Order::Download:
    case Order::Upload:
      return {};
  }
  return {};
}

// A line end would begin a command of its own.
bool sendable(const QByteArray& path) {
  return std::ranges::none_of(path, [](char c) { return c == '\0' || c == '\r' || c == '\n'; });
}

Result failure(int number, QString text = {}) {
  Result result;
  result.number = number;
  result.text = text.isEmpty()
                    ? QString::fromUtf8(curl_easy_strerror(static_cast<CURLcode>(number)))
                    : std::move(text);
  return result;
}

}  // namespace

// One order on the wire: what libcurl's callbacks are given.
struct FtpSession::Transfer {
  const Order& order;
  std::atomic<qint64>& moved;
  bool facts = false;
  Result result{};
  FtpReplies replies{};
  curl_slist* before = nullptr;
  curl_slist* after = nullptr;

  Transfer(const Order& of, std::atomic<qint64>& counter, bool withFacts)
      : order(of), moved(counter), facts(withFacts) {}
  ~Transfer() {
    curl_slist_free_all(before);
    curl_slist_free_all(after);
  }
  Transfer(const Transfer&) = delete;

  static size_t write(const char* bytes, size_t size, size_t count, void* to) {
    auto& me = *static_cast<Transfer*>(to);
    const QByteArrayView view(bytes, static_cast<qsizetype>(size * count));
    if (me.order.sink) {
      if (!me.order.sink->put(view)) return 0;
      me.moved += view.size();
    } else if (me.order.what == Order::List) {
      if (me.result.bytes.size() + view.size() > kMostListing) return 0;
      me.result.bytes += view.toByteArray();
    }
    return size * count;
  }
  static size_t read(char* bytes, size_t size, size_t count, void* from) {
    auto& me = *static_cast<Transfer*>(from);
    const qint64 got =
        me.order.source ? me.order.source->take(bytes, static_cast<qint64>(size * count)) : 0;
    if (got < 0) return CURL_READFUNC_ABORT;
    me.moved += got;
    return static_cast<size_t>(got);
  }
  static size_t header(const char* bytes, size_t size, size_t count, void* to) {
    static_cast<Transfer*>(to)->replies.line({bytes, static_cast<qsizetype>(size * count)});
    return size * count;
  }
  static int debug(CURL*, curl_infotype type, char* bytes, size_t size, void* to) {
    if (type == CURLINFO_HEADER_OUT)
      static_cast<Transfer*>(to)->replies.sent({bytes, static_cast<qsizetype>(size)});
    return 0;
  }
};

FtpSession::FtpSession(const std::atomic<bool>& cancelled, std::atomic<qint64>& moved)
    : cancelled_(cancelled), moved_(moved) {
  static std::once_flag begun;
  std::call_once(begun, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
  multi_ = curl_multi_init();
  easy_ = curl_easy_init();
}

FtpSession::~FtpSession() {
  curl_easy_cleanup(easy_);
  curl_multi_cleanup(multi_);
}

void FtpSession::wake() {
  curl_multi_wakeup(multi_);
}

template <class Value>
void FtpSession::set(int option, Value value) {
  curl_easy_setopt(easy_, static_cast<CURLoption>(option), value);
}

Result FtpSession::perform(const Order& order) {
  if (!multi_ || !easy_) return failure(CURLE_FAILED_INIT);
  if (order.what == Order::Open) {
    login_ = order.login;
    address_ = ftpAddress(login_.server);
    open_ = encrypted_ = false;
    if (address_.isEmpty())
      return failure(CURLE_URL_MALFORMAT,
                     u"“%1” is no address of an FTP server; other protocols, as SFTP, are not "
                     "spoken here."_s.arg(login_.server));
  } else if (!open_) {
    return failure(CURLE_COULDNT_CONNECT, u"There is no connection."_s);
  }
  if (!sendable(order.path) || !sendable(order.to))
    return failure(CURLE_URL_MALFORMAT, u"A name may not hold a line end."_s);
  Result result = once(order, facts_ && order.what == Order::List);
  if (order.what == Order::List && result.facts && !result.good() && !result.began &&
      result.number != CURLE_ABORTED_BY_CALLBACK) {
    facts_ = false;
    result = once(order, false);
  }
  if (order.what == Order::Open) open_ = result.good();
  return result;
}

Result FtpSession::once(const Order& order, bool facts) {
  Transfer transfer(order, moved_, facts);
  curl_easy_reset(easy_);
  prepare(transfer);
  const int number = run();
  conclude(transfer, number);
  return std::move(transfer.result);
}

void FtpSession::prepare(Transfer& transfer) {
  const Order& order = transfer.order;
  const bool file =
      order.what == Order::Size || order.what == Order::Download || order.what == Order::Upload;
  const bool folder = order.what == Order::Enter || order.what == Order::List;
  if (order.what == Order::Open) folderUrl_ = ftpFolderUrl(address_, {});
  if (folder) folderUrl_ = ftpFolderUrl(address_, order.path);
  if (file) folderUrl_ = ftpFolderUrl(address_, order.path.left(order.path.lastIndexOf('/') + 1));
  // A command stays where the connection is: that saves a change of the folder.
  const QByteArray url = file ? ftpFileUrl(address_, order.path) : folderUrl_;
  set(CURLOPT_URL, url.constData());
  set(CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_SINGLECWD));
  set(CURLOPT_HEADERFUNCTION, &Transfer::header);
  set(CURLOPT_HEADERDATA, &transfer);
  set(CURLOPT_WRITEFUNCTION, &Transfer::write);
  set(CURLOPT_WRITEDATA, &transfer);
  set(CURLOPT_READFUNCTION, &Transfer::read);
  set(CURLOPT_READDATA, &transfer);
  prepareConnection();
  prepareWhat(transfer);
}

void FtpSession::prepareConnection() {
  set(CURLOPT_PROTOCOLS_STR, "ftp");
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_QUICK_EXIT, 1L);
  set(CURLOPT_PROXY, "");
  if (!login_.user.isEmpty()) {
    set(CURLOPT_USERNAME, login_.user.toUtf8().constData());
    set(CURLOPT_PASSWORD, login_.password.toUtf8().constData());
  }
  // Encrypted, the server would have to begin the encryption of a connection that it makes itself:
  // uploads break at that.
  if (!login_.passive && !encrypted_) set(CURLOPT_FTPPORT, "-");
  if (login_.tls) {
    // Where plain text would do, a certificate that nobody vouches for is no worse.
    set(CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
    set(CURLOPT_SSL_VERIFYPEER, 0L);
    set(CURLOPT_SSL_VERIFYHOST, 0L);
    // By 1.3 a server sends tickets on the data connection that libcurl leaves unread when it
    // closes: the reset that follows takes the end of an upload with it (seen with vsftpd).
    set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_MAX_TLSv1_2));
  }
  set(CURLOPT_CONNECTTIMEOUT_MS, kConnectMs);
  set(CURLOPT_ACCEPTTIMEOUT_MS, kConnectMs);
  set(CURLOPT_SERVER_RESPONSE_TIMEOUT, kAnswerSeconds);
  set(CURLOPT_LOW_SPEED_LIMIT, 1L);
  set(CURLOPT_LOW_SPEED_TIME, kStandstillSeconds);
  set(CURLOPT_TCP_KEEPALIVE, 1L);
  set(CURLOPT_BUFFERSIZE, kBlock);
  set(CURLOPT_UPLOAD_BUFFERSIZE, kBlock);
}

void FtpSession::prepareWhat(Transfer& transfer) {
  const Order& order = transfer.order;
  switch (order.what) {
    case Order::List:
      if (transfer.facts) set(CURLOPT_CUSTOMREQUEST, "MLSD");
      transfer.result.facts = transfer.facts;
      return;
    case Order::Download:
      set(CURLOPT_TRANSFERTEXT, order.ascii ? 1L : 0L);
      // Who knows the size needs no question for it; but libcurl resumes with that question alone.
      if (order.from > 0)
        set(CURLOPT_RESUME_FROM_LARGE, static_cast<curl_off_t>(order.from));
      else if (order.size >= 0)
        set(CURLOPT_IGNORE_CONTENT_LENGTH, 1L);
      return;
    case Order::Upload:
      set(CURLOPT_UPLOAD, 1L);
      set(CURLOPT_TRANSFERTEXT, order.ascii ? 1L : 0L);
      if (order.ascii) set(CURLOPT_CRLF, 1L);
      if (order.from > 0) set(CURLOPT_APPEND, 1L);
      if (order.size >= 0 && !order.ascii)
        set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(order.size - order.from));
      return;
    case Order::Open:
      transfer.after = curl_slist_append(nullptr, "*FEAT");
      break;
    case Order::Enter:
      transfer.after = curl_slist_append(nullptr, "PWD");
      break;
    case Order::Size:
    case Order::MakeFolder:
    case Order::RemoveFolder:
    case Order::Delete:
    case Order::Rename:
      for (const QByteArray& command : commandsOf(order))
        transfer.before = curl_slist_append(transfer.before, command.constData());
      set(CURLOPT_VERBOSE, 1L);  // which tells what was sent
      set(CURLOPT_DEBUGFUNCTION, &Transfer::debug);
      set(CURLOPT_DEBUGDATA, &transfer);
      break;
  }
  set(CURLOPT_NOBODY, 1L);
  set(CURLOPT_QUOTE, transfer.before);
  set(CURLOPT_POSTQUOTE, transfer.after);
}

int FtpSession::run() {
  int number = CURLE_FAILED_INIT;
  if (curl_multi_add_handle(multi_, easy_) != CURLM_OK) return number;
  for (int running = 1; running;) {
    if (cancelled_) {
      number = CURLE_ABORTED_BY_CALLBACK;
      break;
    }
    if (curl_multi_perform(multi_, &running) != CURLM_OK) break;
    if (running) curl_multi_poll(multi_, nullptr, 0, kLookMs, nullptr);
  }
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi_, &left))
    if (message->msg == CURLMSG_DONE && !cancelled_) number = message->data.result;
  curl_multi_remove_handle(multi_, easy_);
  return number;
}

void FtpSession::conclude(Transfer& transfer, int number) {
  const Order& order = transfer.order;
  Result& result = transfer.result;
  result.began = transfer.replies.transferBegan();
  const FtpReplies::Reply* refusal =
      transfer.replies.refusal({"RNFR", "RNTO", "DELE", "MKD", "RMD"});
  if (number == CURLE_OK && refusal) number = CURLE_QUOTE_ERROR;
  result.number = number;
  if (number != CURLE_OK) {
    result.text = QString::fromUtf8(curl_easy_strerror(static_cast<CURLcode>(number)));
    const FtpReplies::Reply& last = refusal ? *refusal : transfer.replies.last();
    const bool ours = number == CURLE_ABORTED_BY_CALLBACK || number == CURLE_WRITE_ERROR ||
                      number == CURLE_READ_ERROR;
    if (last.refuses() && !ours) result.said = ftpText(last.text);
    return;
  }
  if (order.what == Order::Open) {
    const char* entry = nullptr;
    curl_easy_getinfo(easy_, CURLINFO_FTP_ENTRY_PATH, &entry);
    result.bytes = entry ? entry : "/";
    encrypted_ = transfer.replies.answer(234) != nullptr;
    const FtpReplies::Reply* features = transfer.replies.answer(211);
    facts_ = features && features->text.toUpper().contains("\n MLST");
  } else if (order.what == Order::Enter) {
    // The last one: a connection that had to be made again has asked for its own folder before.
    if (transfer.replies.last().code == 257)
      result.bytes = quotedPath(transfer.replies.last().text);
    if (result.bytes.isEmpty()) result.bytes = order.path;
  } else if (order.what == Order::Size) {
    curl_off_t size = -1;
    curl_easy_getinfo(easy_, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &size);
    result.size = size;
  }
}

}  // namespace korvane

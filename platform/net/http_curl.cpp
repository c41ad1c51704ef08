#include "platform/net/http_curl.h"

#include <curl/curl.h>
#include <QUrl>

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace korvane {
namespace {

constexpr auto kLongestGoodbye = std::chrono::seconds(1);
constexpr long kRedirections = 3;
constexpr qsizetype kMostHead = 1 << 16;  // bytes of all heads of a request
constexpr int kLookMs = 1000;             // how often a transfer is looked at when nothing happens

// One short line of what may come from a file.
QString shown(const QString& url) {
  return url.simplified().left(200);
}

// Both kinds of handles are one type to the compiler.
struct EndEasy {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct EndMulti {
  void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};

CURLM* makeMulti() {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  return ready == CURLE_OK ? curl_multi_init() : nullptr;
}

}  // namespace

// One request: run() on a thread of its own, the rest on the event loop's. Both hold it.
class HttpCurl::Transfer {
 public:
  Transfer(const Request& request, const QUrl& url)
      : request_(request), url_(url.toEncoded()), server_(shown(url.host())), multi_(makeMulti()) {}

  void run();
  void cancel() {
    cancelled_ = true;
    if (multi_) curl_multi_wakeup(multi_.get());
  }

  Handle* heardBy = nullptr;  // of the event loop; null once nobody hears
  Answer answer;              // whole when run() has ended

 private:
  static size_t takeBody(char* bytes, size_t, size_t count, void* self);
  static size_t takeHead(char* bytes, size_t, size_t count, void* self);
  void prepare(CURL* easy);
  CURLcode perform(CURL* easy);
  QString inWords(CURLcode result) const;

  const Request request_;
  const QByteArray url_;
  const QString server_;
  const std::unique_ptr<CURLM, EndMulti> multi_;  // the one thing of curl's that two threads touch
  std::atomic<bool> cancelled_ = false;
  qsizetype head_ = 0;
  bool tooLong_ = false;
};

size_t HttpCurl::Transfer::takeBody(char* bytes, size_t, size_t count, void* self) {
  auto& transfer = *static_cast<Transfer*>(self);
  const auto size = static_cast<qsizetype>(count);
  transfer.tooLong_ = size > transfer.request_.mostBytes - transfer.answer.body.size();
  if (transfer.tooLong_) return CURL_WRITEFUNC_ERROR;
  transfer.answer.body.append(bytes, size);
  return count;
}

size_t HttpCurl::Transfer::takeHead(char*, size_t, size_t count, void* self) {
  auto& transfer = *static_cast<Transfer*>(self);
  transfer.head_ += static_cast<qsizetype>(count);
  transfer.tooLong_ = transfer.head_ > kMostHead;
  return transfer.tooLong_ ? CURL_WRITEFUNC_ERROR : count;
}

void HttpCurl::Transfer::prepare(CURL* easy) {
  const auto set = [easy](CURLoption option, auto value) { curl_easy_setopt(easy, option, value); };
  set(CURLOPT_URL, url_.constData());
  set(CURLOPT_PROTOCOLS_STR, "http,https");
  set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  set(CURLOPT_FOLLOWLOCATION, 1L);
  set(CURLOPT_MAXREDIRS, kRedirections);
  set(CURLOPT_USERAGENT, request_.agent.constData());
  set(CURLOPT_TIMEOUT_MS, std::max(1L, std::lround(request_.seconds * 1000)));
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_QUICK_EXIT, 1L);    // waits for no name server at the end
  set(CURLOPT_FORBID_REUSE, 1L);  // its connection ends with it
  set(CURLOPT_WRITEFUNCTION, &Transfer::takeBody);
  set(CURLOPT_WRITEDATA, this);
  set(CURLOPT_HEADERFUNCTION, &Transfer::takeHead);
  set(CURLOPT_HEADERDATA, this);
}

CURLcode HttpCurl::Transfer::perform(CURL* easy) {
  int running = 1;
  while (running > 0 && !cancelled_) {
    if (curl_multi_perform(multi_.get(), &running) != CURLM_OK) return CURLE_FAILED_INIT;
    if (running > 0) curl_multi_poll(multi_.get(), nullptr, 0, kLookMs, nullptr);
  }
  int left = 0;
  const CURLMsg* message = curl_multi_info_read(multi_.get(), &left);
  if (!message || message->easy_handle != easy) return CURLE_ABORTED_BY_CALLBACK;
  return message->data.result;
}

void HttpCurl::Transfer::run() {
  const std::unique_ptr<CURL, EndEasy> easy(multi_ ? curl_easy_init() : nullptr);
  CURLcode result = CURLE_FAILED_INIT;
  if (easy) {
    prepare(easy.get());
    curl_multi_add_handle(multi_.get(), easy.get());
    result = perform(easy.get());
    curl_multi_remove_handle(multi_.get(), easy.get());
  }
  if (result == CURLE_OK) {
    long status = 0;
    curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &status);
    answer.status = static_cast<int>(status);
    return;
  }
  answer.trouble = inWords(result);
  answer.body.clear();
}

QString HttpCurl::Transfer::inWords(CURLcode result) const {
  const auto of = [this](const QString& text) { return text.arg(server_); };
  if (tooLong_) return of(u"The server %1 answers with far more than was asked for."_s);
  switch (result) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return of(u"There is no server %1, or no network that knows it."_s);
    case CURLE_COULDNT_RESOLVE_PROXY:
      return u"The proxy that the environment names cannot be found."_s;
    case CURLE_COULDNT_CONNECT:
      return of(u"No connection to the server %1: it refuses, or the network is down."_s);
    case CURLE_OPERATION_TIMEDOUT:
      return head_ == 0 ? of(u"The server %1 does not answer."_s)
                        : of(u"The server %1 did not finish its answer in time."_s);
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
      return of(u"The server %1 broke its answer off."_s);
    case CURLE_TOO_MANY_REDIRECTS:
      return of(u"The server %1 sends from one address to the next."_s);
    case CURLE_UNSUPPORTED_PROTOCOL:  // of a redirection or an answer
    case CURLE_WEIRD_SERVER_REPLY:
      return of(u"What answers at %1 is no web server."_s);
    case CURLE_PEER_FAILED_VERIFICATION:
      return of(u"The server %1 cannot prove that it is the one: its certificate is not valid."_s);
    default:
      return u"The server %1 cannot be asked: %2."_s.arg(
          server_, QString::fromUtf8(curl_easy_strerror(result)));
  }
}

// What the asker holds. It alone has the asker's function, which so never leaves the event loop.
class HttpCurl::Handle final : public Running {
 public:
  Handle(std::shared_ptr<Transfer> of, std::function<void(const Answer&)> done)
      : transfer_(std::move(of)), done_(std::move(done)) {
    transfer_->heardBy = this;
  }
  ~Handle() override {
    transfer_->heardBy = nullptr;
    transfer_->cancel();
  }
  // This may be gone when it returns.
  static void answered(Transfer& transfer) {
    if (!transfer.heardBy) return;
    const auto done = std::move(std::exchange(transfer.heardBy, nullptr)->done_);
    done(transfer.answer);
  }

 private:
  const std::shared_ptr<Transfer> transfer_;
  std::function<void(const Answer&)> done_;
};

struct HttpCurl::Threads {
  std::mutex mutex;
  std::condition_variable ended;
  std::vector<std::shared_ptr<Transfer>> running;

  void end(const std::shared_ptr<Transfer>& one) {
    const std::lock_guard lock(mutex);
    std::erase(running, one);
    ended.notify_all();
  }
};

HttpCurl::HttpCurl(Pump& pump) : pump_(pump), threads_(std::make_shared<Threads>()) {}

// The threads are waited for since libraries below curl take themselves apart when the program
// ends.
HttpCurl::~HttpCurl() {
  std::unique_lock lock(threads_->mutex);
  for (const auto& one : threads_->running) {
    one->heardBy = nullptr;
    one->cancel();
  }
  threads_->ended.wait_for(lock, kLongestGoodbye, [this] { return threads_->running.empty(); });
}

std::unique_ptr<Http::Running> HttpCurl::get(const Request& request,
                                             std::function<void(const Answer&)> done) {
  const QUrl url(request.url);
  const auto transfer = std::make_shared<Transfer>(request, url);
  auto handle = std::make_unique<Handle>(transfer, std::move(done));
  const bool web = url.isValid() && !url.host().isEmpty() &&
                   (url.scheme() == "http"_L1 || url.scheme() == "https"_L1);
  if (!web) {
    transfer->answer.trouble = u"%1 is no address of a web server."_s.arg(shown(request.url));
    pump_.later([transfer] { Handle::answered(*transfer); });
    return handle;
  }
  {
    const std::lock_guard lock(threads_->mutex);
    threads_->running.push_back(transfer);
  }
  pump_.aside(
      [transfer, threads = threads_] {
        transfer->run();
        threads->end(transfer);
      },
      [transfer] { Handle::answered(*transfer); });
  return handle;
}

}  // namespace korvane

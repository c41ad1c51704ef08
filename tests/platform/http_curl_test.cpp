// Requests to a web server of the test's own, whole and broken.
#include <gtest/gtest.h>

#include "platform/net/http_curl.h"
#include "tests/fakes/http_server.h"
#include "tests/fakes/print.h"
#include "tests/fakes/thread_pump.h"

namespace korvane {
namespace {

struct HttpCurlTest : testing::Test {
  HttpCurlTest() {
    for (const char* proxy : {"http_proxy", "all_proxy", "ALL_PROXY"}) qunsetenv(proxy);
  }
  std::unique_ptr<Http::Running> ask(const QString& url, double seconds) {
    heard.reset();
    auto running =
        http.get({url, "korvane/test", seconds, 1000}, [this](const Http::Answer& answer) {
          EXPECT_FALSE(heard) << "a second answer";
          heard = answer;
        });
    EXPECT_FALSE(heard) << "an answer inside the call";
    return running;
  }
  Http::Answer answerOf(const QString& url, double seconds = 3) {
    const auto running = ask(url, seconds);
    EXPECT_TRUE(pump.wait(6000, [this] { return heard.has_value(); })) << url.toStdString();
    return heard.value_or(Http::Answer());
  }
  ThreadPump pump;
  HttpServer server;
  HttpCurl http{pump};
  std::optional<Http::Answer> heard;
};

TEST_F(HttpCurlTest, whatAServerMayAnswer) {
  const QByteArray to = "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: ";
  const QHash<QByteArray, HttpServer::Reply> replies{
      {"/whole", {HttpServer::page("one\0two"_ba), false}},
      {"/full", {HttpServer::page(QByteArray(1000, 'x')), false}},
      {"/none", {HttpServer::page("no", "404 Not Found"), false}},
      {"/half", {HttpServer::page("whole").chopped(2), true}},
      {"/shut", {{}, true}},
      {"/silent", {}},
      {"/begun", {HttpServer::page("whole").chopped(2), false}},
      {"/ssh", {"SSH-2.0-OpenSSH_9.2\r\n", true}},
      {"/long", {HttpServer::page(QByteArray(10 << 20, 'x')), false}},
      {"/head", {"HTTP/1.1 200 OK\r\n" + QByteArray("X: y\r\n").repeated(20'000), false}},
      {"/3", {to + "/2\r\n\r\n", false}},
      {"/2", {to + "/1\r\n\r\n", false}},
      {"/1", {to + "/whole\r\n\r\n", false}},
      {"/4", {to + "/3\r\n\r\n", false}},
      {"/file", {to + "file:///etc/hostname\r\n\r\n", false}},
      {"/gopher", {to + "gopher://127.0.0.1/\r\n\r\n", false}}};
  server.reply = [&](const QByteArray& target) { return replies.value(target); };
  const struct {
    const char* target;
    int status;
    QByteArray body;
    const char* trouble;
  } cases[] = {
      {"/whole", 200, "one\0two"_ba, ""},
      {"/full", 200, QByteArray(1000, 'x'), ""},
      {"/none", 404, "no", ""},
      {"/3", 200, "one\0two"_ba, ""},
      {"/half", 0, "", "The server 127.0.0.1 broke its answer off."},
      {"/shut", 0, "", "The server 127.0.0.1 broke its answer off."},
      {"/silent", 0, "", "The server 127.0.0.1 does not answer."},
      {"/begun", 0, "", "The server 127.0.0.1 did not finish its answer in time."},
      {"/ssh", 0, "", "What answers at 127.0.0.1 is no web server."},
      {"/long", 0, "", "The server 127.0.0.1 answers with far more than was asked for."},
      {"/head", 0, "", "The server 127.0.0.1 answers with far more than was asked for."},
      {"/4", 0, "", "The server 127.0.0.1 sends from one address to the next."},
      {"/file", 0, "", "What answers at 127.0.0.1 is no web server."},
      {"/gopher", 0, "", "What answers at 127.0.0.1 is no web server."},
  };
  for (const auto& c : cases) {
    const bool waits =
        QByteArray(c.trouble).endsWith("not answer.") || QByteArray(c.trouble).endsWith("in time.");
    const Http::Answer answer =
        answerOf(u"http://"_s + server.address() + QString::fromLatin1(c.target), waits ? 0.3 : 10);
    EXPECT_EQ(answer.status, c.status) << c.target;
    EXPECT_EQ(answer.body, c.body) << c.target;
    EXPECT_EQ(answer.trouble, QString::fromLatin1(c.trouble)) << c.target;
  }
}

TEST_F(HttpCurlTest, whereThereIsNoServer) {
  QString closed;
  closed = HttpServer().address();  // and gone
  EXPECT_EQ(answerOf(u"http://"_s + closed).trouble,
            u"No connection to the server 127.0.0.1: it refuses, or the network is down."_s);
  for (const QString& url : {u""_s, u"http://"_s, u"http://a b/"_s, u"/etc/hostname"_s,
                             u"file:///etc/hostname"_s, u"ftp://127.0.0.1/"_s})
    EXPECT_EQ(answerOf(url).trouble, url + u" is no address of a web server."_s);
}

TEST_F(HttpCurlTest, whoLeavesIsNotAnsweredAndLetsTheServerGo) {
  server.reply = [](const QByteArray&) { return HttpServer::Reply(); };
  auto running = ask(u"http://%1/"_s.arg(server.address()), 60);
  ASSERT_TRUE(pump.wait(5000, [this] { return !server.asked.isEmpty(); }));
  EXPECT_EQ(server.connections, 1);
  running.reset();
  EXPECT_TRUE(pump.wait(3000, [this] { return server.connections == 0; }));
  EXPECT_FALSE(heard);

  // The answer is there, and nobody takes it any more.
  server.reply = [](const QByteArray&) {
    return HttpServer::Reply{HttpServer::page("late"), false};
  };
  running = ask(u"http://%1/"_s.arg(server.address()), 60);
  ASSERT_TRUE(pump.wait(5000, [this] { return server.asked.size() == 2; }));
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  heard.reset();  // where it came in the turn of the loop in which it was asked for
  running.reset();
  pump.wait(200, [] { return false; });
  EXPECT_FALSE(heard);
}

TEST_F(HttpCurlTest, anEndDoesNotWaitForAServer) {
  server.reply = [](const QByteArray&) { return HttpServer::Reply(); };
  std::unique_ptr<Http::Running> kept;
  QElapsedTimer time;
  {
    ThreadPump another;
    HttpCurl ending(another);
    kept = ending.get({u"http://%1/"_s.arg(server.address()), "", 60, 1000},
                      [](const Http::Answer&) { ADD_FAILURE() << "an answer after the end"; });
    ASSERT_TRUE(pump.wait(5000, [this] { return server.connections == 1; }));
    time.start();
  }
  EXPECT_LT(time.elapsed(), 900);
  EXPECT_TRUE(pump.wait(3000, [this] { return server.connections == 0; }));
}

}  // namespace
}  // namespace korvane

// Names of discs from a CDDB server of the test's own, over real HTTP.
#include <gtest/gtest.h>

#include "platform/net/http_curl.h"
#include "ripper/names/cddb_protocol.h"
#include "tests/fakes/http_server.h"
#include "tests/fakes/print.h"
#include "tests/fakes/thread_pump.h"

namespace korvane {
namespace {

const CddbQuery kDisc{{150, 9700, 25887}, 39297};  // starts at 2, 129 and 345 s, ends at 523 s
const QByteArray kEntry = "210 rock 1a020903 CD database entry follows\r\n";
const QByteArray kRecord =
    "# xmcd\r\nDISCID=1a020903\r\nDTITLE=Odd Kestrel / Ærial\r\nDYEAR=2001\r\nDGENRE=Folk\r\n"
    "TTITLE0=One\r\nTTITLE1=Two\r\nTTITLE2=Three\r\nTTITLE3=More than the disc has\r\n";

struct CddbClientTest : testing::Test {
  CddbClientTest() {
    for (const char* proxy : {"http_proxy", "all_proxy", "ALL_PROXY"}) qunsetenv(proxy);
    server.reply = [this](const QByteArray& target) {
      return target.contains("cmd=cddb+query+") ? toQuery : toRead;
    };
  }
  void begin(const QString& at) {
    heard.reset();
    client.lookUp(at, kDisc, [this](const auto& names, const QString& trouble) {
      EXPECT_FALSE(heard) << "a second answer";
      heard = names
                  ? names->artist + u" | "_s + names->album + u" | "_s + names->titles.join(u", "_s)
                  : u"- "_s + trouble;
    });
    EXPECT_FALSE(heard) << "an answer inside the call";
  }
  // "artist | album | titles" or "- trouble".
  QString lookUp(const QString& at) {
    begin(at);
    EXPECT_TRUE(pump.wait(8000, [this] { return heard.has_value(); }));
    return heard.value_or(QString());
  }

  HttpServer::Reply toQuery, toRead;
  ThreadPump pump;
  HttpServer server;
  HttpCurl http{pump};
  CddbClient client{http};
  std::optional<QString> heard;
};

TEST_F(CddbClientTest, asksByTheProtocol) {
  toQuery = {HttpServer::page("200 rock 1a020903 Odd Kestrel / Aerial\r\n"), false};
  toRead = {HttpServer::page(kEntry + kRecord + ".\r\n"), false};
  const QString found = u"Odd Kestrel | Ærial | One, Two, Three"_s;
  EXPECT_EQ(lookUp(server.address()), found);
  const QByteArray hello = "&hello=anonymous+localhost+korvane+" KORVANE_VERSION "&proto=6";
  EXPECT_EQ(server.asked,
            QByteArrayList({"/~cddb/cddb.cgi?cmd=cddb+query+1a020903+3+150+9700+25887+523" + hello,
                            "/~cddb/cddb.cgi?cmd=cddb+read+rock+1a020903" + hello}));
  EXPECT_EQ(lookUp(u" http://"_s + server.address() + u"/names/cddb.cgi?a=b "_s), found);
  EXPECT_TRUE(server.asked.last().startsWith("/names/cddb.cgi?cmd=cddb+read+"))
      << server.asked.last().data();
}

// A disc that libdiscid's documents give as an example, with its identifier; and sums over 255.
TEST(CddbDiscId, isTheServersOwn) {
  EXPECT_EQ(cddbDiscId({{150,    9700,   25887,  39297,  53795,  63735,  77517,  94877,
                         107270, 123552, 135522, 148422, 161197, 174790, 192022, 205545,
                         218010, 228700, 239590, 255470, 266932, 288750},
                        303602}),
            u"370fce16"_s);
  EXPECT_EQ(cddbDiscId(kDisc), u"1a020903"_s);
  EXPECT_EQ(cddbDiscId({{150}, 225}), u"02000101"_s);
  QList<int> starts;
  for (int track = 0; track < 99; ++track) starts << (999 + track) * 75;
  EXPECT_EQ(cddbDiscId({starts, 1999 * 75}), u"e103e863"_s);
}

TEST_F(CddbClientTest, whatAServerMayAnswer) {
  const QByteArray match = "200 rock 1a020903 Odd Kestrel / Aerial\r\n";
  const QString no = u"- The server 127.0.0.1 "_s;
  const struct {
    QByteArray query, read;
    QString heard;
  } cases[] = {
      {"210 Found exact matches\r\nrock 1a020903 A / B\r\njazz 1a020903 C / D\r\n.\r\n",
       kEntry + kRecord + ".", u"Odd Kestrel | Ærial | One, Two, Three"_s},
      {"211 Found inexact matches\nrock 1a020903 A / B\n.\n",
       "210 ok\nDTITLE=\xc6rial\nTTITLE0=Caf\xe9\n.\n", u"Ærial | Ærial | Café, , "_s},
      {"202 No match found.\r\n", "", u"- "_s},
      {"211 close matches\r\n.\r\n", "", u"- "_s},
      {match, "401 rock 1a020903 No such CD entry in database.\r\n", u"- "_s},
      {"403 Database entry is corrupt\r\n", "",
       no + u"refuses with \"403 Database entry is corrupt\"."_s},
      {match, "402 Server error\r\n", no + u"refuses with \"402 Server error\"."_s},
      {"500", "", no + u"refuses with \"500\"."_s},
      {"211 close matches\r\nrock 1a020903 A / B\r\n", "", no + u"broke its answer off."_s},
      {match, kEntry + kRecord, no + u"broke its answer off."_s},
      {match, kEntry + ".\r\n", no + u"answers with a record that cannot be read."_s},
      {"<html><body>200 OK</body></html>", "", no + u"does not speak CDDB."_s},
      {"", "", no + u"does not speak CDDB."_s},
      {"2000 rock 1a020903\r\n", "", no + u"does not speak CDDB."_s},
      {"200 rock\r\n", "", no + u"does not speak CDDB."_s},
      {"200 ../../etc?x=&y 1a020903 A / B\r\n", "", no + u"does not speak CDDB."_s},
      {match, QByteArray("\xe9\x80\xff\n").repeated(1000), no + u"does not speak CDDB."_s},
      {match, kEntry + QByteArray("TTITLE0=more\r\n").repeated(700'000) + ".\r\n",
       no + u"answers with far more than was asked for."_s},
  };
  for (const auto& c : cases) {
    toQuery = {HttpServer::page(c.query), false};
    toRead = {HttpServer::page(c.read), false};
    EXPECT_EQ(lookUp(server.address()), c.heard) << c.query.toStdString();
  }
  toQuery = {HttpServer::page("gone", "404 Not Found"), false};
  EXPECT_EQ(lookUp(server.address()), no + u"has no disc database at that address."_s);
  toQuery = {HttpServer::page("busy", "503 Service Unavailable"), false};
  EXPECT_EQ(lookUp(server.address()), no + u"refuses with the HTTP status 503."_s);
  toQuery = {HttpServer::page(match).chopped(9), true};
  EXPECT_EQ(lookUp(server.address()), no + u"broke its answer off."_s);
  for (const QString& wrong : {u"a b"_s, u"ftp://names.example"_s, u"http://"_s})
    EXPECT_TRUE(lookUp(wrong).endsWith(u" is no address of a web server."_s))
        << heard->toStdString();
}

TEST_F(CddbClientTest, fiveSecondsAreForBothCommands) {
  toQuery = {};
  begin(server.address());
  ASSERT_TRUE(pump.wait(3000, [this] { return server.asked.size() == 1; }));
  client.cancel();
  EXPECT_TRUE(pump.wait(3000, [this] { return server.connections == 0; }));
  EXPECT_FALSE(heard);

  toQuery = {HttpServer::page("200 rock 1a020903 A / B\r\n"), false, 3000};
  toRead = {};
  QElapsedTimer time;
  time.start();
  EXPECT_EQ(lookUp(server.address()), u"- The server 127.0.0.1 does not answer."_s);
  EXPECT_GT(time.elapsed(), 4500);
  EXPECT_LT(time.elapsed(), 5800);
  EXPECT_EQ(server.asked.size(), 3);
}

}  // namespace
}  // namespace korvane

// cFTP over libcurl: against vsftpd, and against a server that lies.
#include <signal.h>
#include <sys/wait.h>

#include <random>
#include <thread>

#include "ftp/folder_transfer.h"
#include "ftp/ftp.h"
#include "platform/files/disk_file_system.h"
#include "platform/machine/system_clock.h"
#include "platform/net/ftp_curl.h"
#include "platform/net/ftp_url.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"
#include "tests/ftp/lying_server.h"
#include "tests/ftp/real_server.h"

namespace korvane {
namespace {

QByteArray noise(qsizetype size) {
  std::minstd_rand random(static_cast<unsigned>(size));
  QByteArray bytes(size, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

struct World {
  explicit World(bool partial = true) : safe(partial) { ftp.SetTransferBinary(); }

  bool safe;
  LoopPump pump;
  SystemClock clock;
  TemporaryHome home;
  cFTP ftp{{pump, clock, [] { return std::make_unique<FtpCurl>(); }, [this] { return safe; }}};
  std::string error() const { return ftp.GetLastErrorMessage().toStdString(); }
};

// Everything a session does, in the server's folder.
void useAll(World& world, const RealServer& server, const QString& address) {
  cFTP& ftp = world.ftp;
  ASSERT_TRUE(ftp.OpenConnection(address, {}, {})) << world.error();
  ASSERT_TRUE(ftp.SetFTPDirectory(server.folder)) << world.error();
  EXPECT_EQ(ftp.GetFTPDirectory(), server.folder);
  const QByteArray bytes = noise(300'000);
  const QString local = world.home.put(u"local"_s, bytes);
  ASSERT_TRUE(ftp.FTPUploadFile(local, u"a b [1]"_s)) << world.error();
  EXPECT_EQ(ftp.GetFTPFileSize(u"a b [1]"_s), 300'000);
  EXPECT_EQ(ftp.GetFTPFileSize(u"missing"_s), -1);
  EXPECT_TRUE(ftp.RenameFTPFile(u"a b [1]"_s, u"\u00FCber"_s)) << world.error();
  EXPECT_FALSE(ftp.RenameFTPFile(u"a b [1]"_s, u"x"_s));
  EXPECT_TRUE(ftp.GetLastErrorMessage().startsWith(u"550"_s)) << world.error();
  EXPECT_FALSE(ftp.DeleteFTPFile(u"x\r\nDELE \u00FCber"_s));  // no second command
  EXPECT_TRUE(ftp.CreateFTPDirectory(u"folder"_s)) << world.error();
  const auto list = ftp.GetDirectoryListing(u"*.*"_s);
  ASSERT_EQ(list->Count(), 2) << world.error();
  ASSERT_TRUE(list->item(u"folder"_s) && list->item(u"\u00FCber"_s));
  EXPECT_TRUE(list->item(u"folder"_s)->directory());
  EXPECT_EQ(list->item(u"\u00FCber"_s)->size, 300'000);
  EXPECT_LT(std::abs(list->item(u"\u00FCber"_s)->modified.secsTo(QDateTime::currentDateTimeUtc())),
            100'000);
  ASSERT_TRUE(ftp.FTPDownloadFile(world.home / u"down"_s, u"\u00FCber"_s)) << world.error();
  EXPECT_EQ(world.home.get(u"down"_s), bytes);
  EXPECT_TRUE(ftp.SetFTPDirectory(u"folder"_s));
  EXPECT_EQ(ftp.GetDirectoryListing(u"*.*"_s)->Count(), 0);
  EXPECT_FALSE(ftp.SetFTPDirectory(u"nowhere"_s));
  EXPECT_TRUE(ftp.SetFTPDirectory(u".."_s));
  EXPECT_EQ(ftp.GetFTPDirectory(), server.folder);
  EXPECT_TRUE(ftp.RemoveFTPDirectory(u"folder"_s)) << world.error();
  EXPECT_TRUE(ftp.DeleteFTPFile(u"\u00FCber"_s)) << world.error();
  EXPECT_EQ(ftp.GetDirectoryListing(u"*.*"_s)->Count(), 0);
}

TEST(FtpServer, ServesActiveAndPassiveOverBothProtocols) {
  const RealServer server;
  for (const bool passive : {false, true})
    for (const QString& host : {u"127.0.0.1"_s, u"[::1]"_s}) {
      SCOPED_TRACE((passive ? "passive " : "active ") + host.toStdString());
      World world(false);
      if (passive) world.ftp.SetModePassive();
      useAll(world, server, server.address(host));
    }
}

TEST(FtpServer, TlsIsTakenWhereItIsOffered) {
  const RealServer server(true), plain;
  World world;
  world.ftp.SetModePassive();
  useAll(world, server, server.address());
  world.ftp.SetModeActive();
  useAll(world, server, server.address());
  useAll(world, plain, plain.address());
  world.safe = false;  // this server takes no plain text
  EXPECT_FALSE(world.ftp.OpenConnection(server.address(), {}, {}));
  EXPECT_TRUE(world.ftp.GetLastErrorMessage().startsWith(u"530"_s)) << world.error();
}

TEST(FtpServer, TextGetsTheLineEndsOfEachSide) {
  const RealServer server;
  World world(false);
  ASSERT_TRUE(world.ftp.OpenConnection(server.address(), {}, {}));
  ASSERT_TRUE(world.ftp.SetFTPDirectory(server.folder));
  world.ftp.SetTransferASCII();
  EXPECT_TRUE(world.ftp.FTPUploadFile(world.home.put(u"text"_s, "one\ntwo\n"), u"text"_s));
  EXPECT_TRUE(world.ftp.FTPDownloadFile(world.home / u"back"_s, u"text"_s)) << world.error();
  EXPECT_EQ(world.home.get(u"back"_s), "one\ntwo\n");
  EXPECT_TRUE(world.ftp.SimpleFTPPutFile(world.home / u"text"_s, u"simple"_s));
  EXPECT_TRUE(world.ftp.SimpleFTPGetFile(world.home.put(u"back"_s, "a longer one"), u"simple"_s));
  EXPECT_EQ(world.home.get(u"back"_s), "one\ntwo\n");
}

TEST(FtpServer, WholeFoldersGoUpAndDown) {
  const RealServer server;
  World world;
  ASSERT_TRUE(world.ftp.OpenConnection(server.address(), {}, {}));
  for (int i = 0; i < 40; ++i) world.home.put(u"tree/%1/%2"_s.arg(i % 3).arg(i), noise(i * 100));
  FolderTransfer up(world.ftp, [](int, int, const QString&) {});
  ASSERT_TRUE(up.upload(world.home / u"tree"_s, (server.folder + u"/tree"_s).toUtf8()))
      << world.error();
  FolderTransfer down(world.ftp, [](int, int, const QString&) {});
  ASSERT_TRUE(down.download((server.folder + u"/tree"_s).toUtf8(), world.home / u"back"_s))
      << world.error();
  EXPECT_EQ(down.files(), 40);
  for (int i = 0; i < 40; ++i)
    EXPECT_EQ(world.home.get(u"back/%1/%2"_s.arg(i % 3).arg(i)), noise(i * 100)) << i;
}

TEST(FtpServer, NoServerAndNoAddressAreSaidInWords) {
  World world;
  QTcpServer none;
  none.listen(QHostAddress::LocalHost);
  const QString closed = u"127.0.0.1:%1"_s.arg(none.serverPort());
  none.close();
  EXPECT_FALSE(world.ftp.OpenConnection(closed, {}, {}));
  EXPECT_EQ(world.error(), "InternetConnect error code: 7 Message: Couldn't connect to server");
  for (const char* typed : {"", "http://x", "a b", "host:99999", "host:1:x]", "-\n"})
    EXPECT_FALSE(world.ftp.OpenConnection(QString::fromLatin1(typed), {}, {})) << typed;
  EXPECT_EQ(ftpAddress(u" FTP://[::1]:21/ "_s), "ftp://[::1]:21");
  EXPECT_EQ(ftpAddress(u"fe80::1%eth0"_s), "ftp://[fe80::1%25eth0]");
  EXPECT_EQ(ftpFileUrl("ftp://h", "/a b/%\xFF"), "ftp://h/%2Fa%20b/%25%FF");
  EXPECT_EQ(ftpFolderUrl("ftp://h", "/"), "ftp://h/%2F/");
}

TEST(LyingServer, SizesHalvesAndBreaks) {
  const LyingServer server;
  World world;
  world.ftp.SetModePassive();
  EXPECT_FALSE(world.ftp.OpenConnection(server.address(), u"me"_s, u"wrong"_s));
  EXPECT_EQ(world.error(), "530 That is not the password.");
  ASSERT_TRUE(world.ftp.OpenConnection(server.address(), u"me"_s, u"right"_s)) << world.error();
  ASSERT_TRUE(world.ftp.FTPDownloadFile(world.home / u"good"_s, u"good"_s)) << world.error();
  const QByteArray body = world.home.get(u"good"_s);
  ASSERT_EQ(body.size(), 100'000);
  EXPECT_FALSE(world.ftp.FTPDownloadFile(world.home.put(u"short"_s, "old"), u"short"_s));
  EXPECT_FALSE(world.ftp.FTPDownloadFile(world.home.put(u"long"_s, "old"), u"long"_s));
  EXPECT_EQ(world.home.get(u"short"_s) + world.home.get(u"long"_s), "oldold");
  EXPECT_FALSE(world.ftp.FTPDownloadFile(world.home / u"missing"_s, u"missing"_s));
  const QString broken = world.home.put(u"broken"_s, "old");
  EXPECT_FALSE(world.ftp.FTPDownloadFile(broken, u"broken"_s));
  EXPECT_FALSE(world.ftp.FTPDownloadFile(broken, u"broken"_s));
  EXPECT_EQ(world.home.get(u"broken"_s), "old");
  EXPECT_TRUE(world.ftp.FTPDownloadFile(broken, u"broken"_s)) << world.error();
  EXPECT_EQ(world.home.get(u"broken"_s), body);
}

TEST(LyingServer, ListingsOfAnyKindStayListings) {
  for (const QStringList& arguments : {QStringList{}, QStringList{u"facts"_s}}) {
    const LyingServer server(arguments);
    World world;
    world.ftp.SetModePassive();
    ASSERT_TRUE(world.ftp.OpenConnection(server.address(), u"me"_s, {})) << world.error();
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(world.ftp.listOf("/many")->Count(), 100'000);
    EXPECT_LT(time.elapsed(), 20'000);
    EXPECT_NE(world.ftp.listOf("/half")->item(u"whole"_s), nullptr);
    QTemporaryDir around;
    FolderTransfer folder(world.ftp, [](int, int, const QString&) {});
    EXPECT_FALSE(folder.download("/names", around.filePath(u"in"_s)));  // its files do not exist
    EXPECT_EQ(QDir(around.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{u"in"_s});
    EXPECT_FALSE(QFile::exists(u"/etc/escaped"_s));
    EXPECT_GE(folder.refusals().size(), 3);
  }
}

TEST(LyingServer, ACancelEndsWhatIsNeverAnswered) {
  const LyingServer server;
  World world;
  world.ftp.SetModePassive();
  ASSERT_TRUE(world.ftp.OpenConnection(server.address(), u"me"_s, {}));
  QElapsedTimer time;
  time.start();
  std::jthread finger([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    world.pump.later([&] { world.ftp.cancel(); });
  });
  EXPECT_FALSE(world.ftp.FTPDownloadFile(world.home / u"silent"_s, u"silent"_s));
  EXPECT_LT(time.elapsed(), 5000);
  EXPECT_EQ(world.error(), "The download was cancelled. Start it again to go on with it.");
  EXPECT_TRUE(world.ftp.FTPDownloadFile(world.home / u"good"_s, u"good"_s)) << world.error();
}

TEST(LyingServer, AKilledDownloadLeavesTheFileOldOrWhole) {
  const LyingServer server;
  const TemporaryHome home;
  const QString path = home / u"slow"_s;
  constexpr int kKills = 12;
  std::mt19937 random(1);
  const auto download = [&] {
    World world;
    world.ftp.SetModePassive();
    return world.ftp.OpenConnection(server.address(), u"me"_s, {}) &&
           world.ftp.FTPDownloadFile(path, u"slow"_s);
  };
  DiskFileSystem disk;
  int partial = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    home.put(u"slow"_s, "old");
    const pid_t child = ::fork();
    if (child == 0) ::_exit(download() ? 0 : 1);
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(50 + random() % 700));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const QByteArray now = home.get(u"slow"_s);
    EXPECT_TRUE(now == "old" || now.size() == 100'000) << "kill " << kill;
    partial += !disk.Files(home.path()).filter(u".part"_s).isEmpty();
  }
  EXPECT_GT(partial, 0) << "no kill came while the file was on its way";
  ASSERT_TRUE(download());  // what is there is gone on with, and whole
  home.put(u"sum"_s, home.get(u"slow"_s));
  QFile::remove(path);
  ASSERT_TRUE(download());
  EXPECT_EQ(home.get(u"slow"_s), home.get(u"sum"_s));
}

}  // namespace
}  // namespace korvane

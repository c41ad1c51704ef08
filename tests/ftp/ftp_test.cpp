// cFTP over a server in memory.
#include "ftp/ftp.h"

#include "ftp/folder_transfer.h"
#include "ftp/transfer_rate.h"
#include "tests/fakes/fake_ftp_client.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

using What = FtpClient::Order;

struct FtpTest : FormWorld {
  FtpTest() {
    ftp.SetTransferBinary();
    ftp.FileTransferProgress = [this](qint64 bytes, qint64 size) {
      events << u"%1/%2"_s.arg(bytes).arg(size);
      if (onEvent) onEvent();
    };
    server.listing = "-rw-r--r-- 1 u g 600 Jan 12  2020 a b\n";
  }
  void open() { ASSERT_TRUE(ftp.OpenConnection(u"host"_s, u"me"_s, u"secret"_s)); }
  static FtpClient::Result failure(int number, const QString& text, const QString& said = {}) {
    FtpClient::Result result;
    result.number = number;
    result.text = text;
    result.said = said;
    return result;
  }
  QStringList partials() const { return files.Files(home.path()).filter(u".part"_s); }

  FakeFtpServer server;
  bool safe = false;
  QStringList events;
  std::function<void()> onEvent;
  cFTP ftp{{pump, clock, [this] { return std::make_unique<FakeFtpClient>(server); },
            [this] { return safe; }, diskCalls}};
};

TEST_F(FtpTest, BlocksOf255RaiseOneEventEachAndOneAtTheEnd) {
  const struct {
    qint64 size;
    QStringList events;
  } kSizes[] = {{510, {u"255/510"_s, u"510/510"_s, u"510/510"_s}},
                {600, {u"255/600"_s, u"510/600"_s, u"600/600"_s}},
                {7, {u"7/7"_s}}};
  open();
  for (const auto& [size, wanted] : kSizes) {
    const QByteArray bytes(size, 'x');
    server.files["/f"] = bytes;
    for (const qint64 piece : {1, 255, 100000}) {
      server.piece = piece;
      events.clear();
      const int breaths = pump.breaths;
      EXPECT_TRUE(ftp.FTPDownloadFile(home / u"down"_s, u" f "_s));
      EXPECT_EQ(events, wanted);
      EXPECT_EQ(pump.breaths - breaths, size / 255);
      EXPECT_EQ(home.get(u"down"_s), bytes);
      QFile::remove(home / u"down"_s);
      events.clear();
      EXPECT_TRUE(ftp.FTPUploadFile(home.put(u"up"_s, bytes), u"u p"_s));
      EXPECT_EQ(events, wanted);
      EXPECT_EQ(server.files["/u p"], bytes);
    }
  }
  events.clear();
  EXPECT_TRUE(ftp.FTPUploadFile(home.put(u"up"_s, ""), u"empty"_s));
  EXPECT_EQ(events, QStringList{u"0/0"_s});
  EXPECT_TRUE(server.files.contains("/empty"));
}

TEST_F(FtpTest, WhatThereIsNothingOfIsNotTransferred) {
  open();
  server.files["/empty"] = "";
  const QString kept = home.put(u"kept"_s, "old");
  for (const QString& remote : {u"empty"_s, u"missing"_s, u"  "_s}) {
    ftp.FTPDownloadFile(kept, remote);
    EXPECT_FALSE(ftp.FTPDownloadFile(kept, remote)) << remote.toStdString();
  }
  EXPECT_FALSE(ftp.FTPUploadFile(u" "_s, u"x"_s));
  EXPECT_FALSE(ftp.FTPUploadFile(kept, u""_s));
  EXPECT_EQ(home.get(u"kept"_s), "old");
  EXPECT_TRUE(events.isEmpty());
  safe = true;  // there an empty file arrives as one
  EXPECT_TRUE(ftp.FTPDownloadFile(kept, u"empty"_s));
  EXPECT_EQ(home.get(u"kept"_s), "");
}

TEST_F(FtpTest, ALongerFileKeepsItsTailUnlessDownloadsArePartial) {
  open();
  server.files["/f"] = "new";
  const QString path = home.put(u"f"_s, "older one");
  EXPECT_TRUE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(home.get(u"f"_s), "newer one");
  server.sizes["/f"] = 2;  // more comes than was announced: that much is taken
  server.files["/f"] = "NEWEST";
  EXPECT_TRUE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(home.get(u"f"_s), "NEwer one");
  safe = true;
  EXPECT_FALSE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(
      ftp.GetLastErrorMessage(),
      u"The server announced 2 bytes and sent 6. Nothing was changed here: refresh the list and "
      "try again."_s);
  EXPECT_EQ(partials(), QStringList());
  server.sizes.clear();
  EXPECT_TRUE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(home.get(u"f"_s), "NEWEST");
}

TEST_F(FtpTest, SizesAreOf32BitsAndOneOfTwoNumbersWhenThereIsNone) {
  open();
  server.files["/a b"] = QByteArray(600, 'x');
  EXPECT_EQ(ftp.GetFTPFileSize(u"a b"_s), 600);
  server.sizes["/a b"] = (qint64{1} << 32) + 5;
  EXPECT_EQ(ftp.GetFTPFileSize(u"a b"_s), 5);
  EXPECT_EQ(ftp.GetFTPFileSize(u"missing"_s), -1);
  EXPECT_EQ(ftp.GetLastErrorMessage(), QString());
  server.knowsSizes = false;  // the listing has it; each blank fits any character
  server.listing = "-rw-r--r-- 1 u g 77 Jan 12  2020 a_b\n";
  EXPECT_EQ(ftp.GetFTPFileSize(u"a b"_s), 77);
  server.failures[What::Size] = failure(9, u"Access denied"_s, u"550 No such folder."_s);
  EXPECT_EQ(ftp.GetFTPFileSize(u"a b"_s), -2);
  EXPECT_EQ(ftp.GetLastErrorMessage(), u"550 No such folder."_s);
}

TEST_F(FtpTest, EachFailureHasItsLabelUnlessTheServerHasSpoken) {
  EXPECT_FALSE(ftp.DeleteFTPFile(u"x"_s));
  EXPECT_EQ(ftp.GetLastErrorMessage(),
            u"DeleteFTPFile error code: 7 Message: There is no connection."_s);
  open();
  const QString local = home.put(u"local"_s, QByteArray(600, 'x'));
  server.files["/f"] = QByteArray(600, 'x');
  const struct {
    What::What what;
    const char* label;
    std::function<void()> run;
  } kLabels[] = {
      {What::Open, "InternetConnect", [&] { ftp.OpenConnection(u"h"_s, {}, {}); }},
      {What::Rename, "RenameFTPFile", [&] { ftp.RenameFTPFile(u"a"_s, u"b"_s); }},
      {What::MakeFolder, "CreateFTPDirectory", [&] { ftp.CreateFTPDirectory(u"a"_s); }},
      {What::RemoveFolder, "RemoveFTPDirectory", [&] { ftp.RemoveFTPDirectory(u"a"_s); }},
      {What::Delete, "DeleteFTPFile", [&] { ftp.DeleteFTPFile(u"a"_s); }},
      {What::Enter, "FtpGetCurrentDirectory", [&] { ftp.GetFTPDirectory(); }},
      {What::Enter, "FtpSetCurrentDirectory", [&] { ftp.SetFTPDirectory(u"a"_s); }},
      {What::Size, "FtpFindFirstFile", [&] { ftp.GetFTPFileSize(u"a"_s); }},
      {What::List, "FtpFindFirstFile", [&] { ftp.GetDirectoryListing(u"*.*"_s); }},
      {What::Download, "SimpleFtpGetFile", [&] { ftp.SimpleFTPGetFile(local, u"f"_s); }},
      {What::Upload, "SimpleFtpPutFile", [&] { ftp.SimpleFTPPutFile(local, u"f"_s); }},
      {What::Download, "FtpOpenFile:GetFile", [&] { ftp.FTPDownloadFile(local, u"f"_s); }},
      {What::Upload, "FtpOpenFile:PutFile", [&] { ftp.FTPUploadFile(local, u"f"_s); }}};
  for (const auto& [what, label, run] : kLabels) {
    if (!ftp.connected()) open();
    for (const QString& said : {QString(), u"550 Not for you."_s}) {
      server.failures[what] = failure(25, u"Why"_s, said);
      run();
      EXPECT_EQ(
          ftp.GetLastErrorMessage(),
          said.isEmpty() ? QLatin1StringView(label) + u" error code: 25 Message: Why"_s : said);
    }
    server.failures.clear();
  }
  if (!ftp.connected()) open();
  for (const auto& [after, label] :
       {std::pair(300, "InternetReadFile"), std::pair(599, "InternetReadFile2")}) {
    server.breakAfter = after;
    EXPECT_FALSE(ftp.FTPDownloadFile(local, u"f"_s));
    EXPECT_TRUE(
        ftp.GetLastErrorMessage().startsWith(QLatin1StringView(label) + u" error code: 56"_s))
        << ftp.GetLastErrorMessage().toStdString();
  }
  server.files["/f"] = "x";  // fewer than announced
  server.sizes["/f"] = 600;
  EXPECT_FALSE(ftp.FTPDownloadFile(local, u"f"_s));
  EXPECT_EQ(ftp.GetLastErrorMessage(),
            u"InternetReadFile error code: 18 Message: Transferred a partial file"_s);
}

TEST_F(FtpTest, ABrokenTransferGoesOnWhereItWas) {
  safe = true;
  open();
  QByteArray bytes;
  for (int i = 0; i < 3000; ++i) bytes += static_cast<char>(i * 7);
  server.files["/f"] = bytes;
  const QString path = home.put(u"f"_s, "old");
  server.breakAfter = 1500;
  EXPECT_FALSE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(home.get(u"f"_s), "old");
  EXPECT_EQ(partials().size(), 1);
  events.clear();
  EXPECT_TRUE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(server.orders.last(), u"download /f from 1500"_s);
  EXPECT_EQ(events.first(), u"1530/3000"_s);
  EXPECT_EQ(home.get(u"f"_s), bytes);
  EXPECT_EQ(partials(), QStringList());

  server.breakAfter = 1500;  // the file on the server changes: what was there is of no use
  EXPECT_FALSE(ftp.FTPDownloadFile(path, u"f"_s));
  server.files["/f"] = bytes + "more";
  EXPECT_TRUE(ftp.FTPDownloadFile(path, u"f"_s));
  EXPECT_EQ(server.orders.last(), u"download /f"_s);
  EXPECT_EQ(home.get(u"f"_s), bytes + "more");
  EXPECT_EQ(partials(), QStringList());

  server.breakAfter = 2000;
  const QString up = home.put(u"up"_s, bytes);
  EXPECT_FALSE(ftp.FTPUploadFile(up, u"up"_s));
  EXPECT_TRUE(ftp.FTPUploadFile(up, u"up"_s));
  EXPECT_EQ(server.orders.last(), u"upload /up from 2000"_s);
  EXPECT_EQ(server.files["/up"], bytes);
}

TEST_F(FtpTest, ACancelAClosedFormAndAFullDiskEndATransferInWords) {
  open();
  server.files["/f"] = QByteArray(100'000, 'x');
  for (const bool partial : {false, true}) {
    safe = partial;
    const QString path = home.put(u"f"_s, "");
    onEvent = [this] { ftp.cancel(); };
    EXPECT_FALSE(ftp.FTPDownloadFile(path, u"f"_s));
    EXPECT_EQ(ftp.GetLastErrorMessage(),
              u"The download was cancelled. Start it again to go on with it."_s);
    onEvent = [this] { ftp.CloseConnection(); };
    EXPECT_FALSE(ftp.FTPDownloadFile(path, u"f"_s));
    EXPECT_FALSE(ftp.connected());
    onEvent = nullptr;
    open();
    bool second = true;
    onEvent = [&] { second = ftp.DeleteFTPFile(u"f"_s); };  // one at a time
    EXPECT_TRUE(ftp.FTPDownloadFile(path, u"f"_s));
    EXPECT_FALSE(second);
    onEvent = nullptr;
    diskCalls.full = true;
    EXPECT_FALSE(ftp.FTPDownloadFile(path, u"f"_s));
    EXPECT_TRUE(ftp.GetLastErrorMessage().contains(u"The disk is full."_s))
        << ftp.GetLastErrorMessage().toStdString();
    diskCalls.full = false;
    EXPECT_FALSE(ftp.FTPUploadFile(home / u"missing"_s, u"f"_s));
    EXPECT_TRUE(ftp.GetLastErrorMessage().contains(home / u"missing"_s));
  }
}

TEST_F(FtpTest, ModesFoldersAndNamesOfAnyBytes) {
  ftp.SetModePassive();
  server.folder = "/home/me";
  server.listing = "-rw-r--r-- 1 u g 3 Jan 12  2020 \xE9t\xE9\ndrwxr-xr-x 1 u g 3 Jan 12  2020 d\n";
  open();
  EXPECT_TRUE(server.login.passive);
  EXPECT_FALSE(server.login.tls);
  EXPECT_EQ(ftp.GetFTPDirectory(), u"/home/me"_s);
  EXPECT_EQ(ftp.GetDirectoryListing(u"*.*"_s)->Count(), 2);
  EXPECT_EQ(ftp.Directory()->item(u"d"_s)->attributes, cDirItem::Directory);
  ftp.SetTransferASCII();
  server.files["/home/me/\xE9t\xE9"] = "abc";
  EXPECT_TRUE(ftp.FTPDownloadFile(home / u"x"_s, u"\u00E9t\u00E9"_s));
  EXPECT_TRUE(server.orders.last().endsWith(u" ascii"_s));
  EXPECT_TRUE(ftp.RenameFTPFile(u"a"_s, u"/b"_s));
  EXPECT_EQ(server.orders.last(), u"rename /home/me/a to /b"_s);
  EXPECT_TRUE(ftp.SetFTPDirectory(u".."_s));
  EXPECT_EQ(ftp.GetFTPDirectory(), u"/"_s);
  EXPECT_EQ(ftp.GetDirectoryListing(u"?"_s)->Count(), 1);
  safe = true;
  ftp.SetModeActive();
  open();
  EXPECT_TRUE(server.login.tls);
  EXPECT_FALSE(server.login.passive);
}

TEST_F(FtpTest, AWholeFolderStaysWithinTheChosenOne) {
  safe = true;
  open();
  server.listing =
      "-rw-r--r-- 1 u g 3 Jan 12  2020 good\n-rw-r--r-- 1 u g 3 Jan 12  2020 ../evil\n"
      "drwxr-xr-x 1 u g 3 Jan 12  2020 ../../evil\nlrwxrwxrwx 1 u g 3 Jan 12  2020 link -> /\n";
  server.files["/d/good"] = "yes";
  QStringList heard;
  FolderTransfer folder(ftp, [&](int number, int count, const QString& name) {
    heard << u"%1/%2 %3"_s.arg(number).arg(count).arg(name);
  });
  EXPECT_TRUE(folder.download("/d", home / u"in/d"_s));
  EXPECT_EQ(heard, (QStringList{u"0/0 d"_s, u"1/1 good"_s}));
  EXPECT_EQ(folder.refusals().size(), 2);
  EXPECT_EQ(home.get(u"in/d/good"_s), "yes");
  EXPECT_FALSE(files.FileExists(home / u"in/evil"_s));

  home.put(u"up/a/b/1"_s, "one");
  home.put(u"up/2"_s, "two");
  QFile::link(u"/etc"_s, home / u"up/a/etc"_s);
  server.orders.clear();
  FolderTransfer up(ftp, [](int, int, const QString&) {});
  EXPECT_TRUE(up.upload(home / u"up"_s, "/up"));
  EXPECT_EQ(server.files["/up/a/b/1"], "one");
  EXPECT_EQ(server.files["/up/2"], "two");
  EXPECT_EQ(server.orders.filter(u"make"_s),
            (QStringList{u"make /up"_s, u"make /up/a"_s, u"make /up/a/b"_s}));
  EXPECT_EQ(up.files(), 2);
}

TEST(TransferRate, SaysHowFarAndHowLong) {
  TransferRate rate;
  rate.begin(1000);
  EXPECT_EQ(rate.words(5'000'000, 20'000'000, 1100), QString());
  EXPECT_EQ(rate.words(7'000'000, 20'000'000, 2000), u"7.0 MB of 20.0 MB, 2.0 MB/s, 7 s left"_s);
  EXPECT_EQ(rate.words(7'100'000, 20'000'000, 2100), QString());
  EXPECT_EQ(rate.words(20'000'000, 20'000'000, 2200), u"20.0 MB of 20.0 MB, 12.5 MB/s"_s);
}

}  // namespace
}  // namespace korvane

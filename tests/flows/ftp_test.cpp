// Files by FTP while the rest of the console goes on.
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class Ftp : public CabinTest {
 protected:
  void begin(const QByteArray& lines) {
    days = givenDays();
    setting("LOCALLISTENER=1\nShowSetup=1\n" + lines);
    qputenv("HOME", days[0].section(u'/', 0, -2).toUtf8());
    system().ftp.listing = "-rw-r--r-- 1 u g 600 Jan 12  2020 001-Dawn.mp3\n";
    system().ftp.files["/001-Dawn.mp3"] = QByteArray(600, 'n');
    start();
  }
  // Setup, its door, a connection, the one file of the server, back to the main form.
  void fetch() {
    host->onModal(u"frmSetup"_s, [this](Form& setup) {
      host->onModal(u"frmFTP"_s, [this](Form& ftp) {
        korvane::press(ftp, u"cmdConnect"_s);
        controlOf<Grid>(ftp, u"lv").row = 2;
        host->onModal(u"frmDirectorys"_s,
                      [](Form& chooser) { korvane::press(chooser, u"cmdok"_s); });
        answer(u"001-Dawn.mp3 exists already."_s, Yes);
        answer(u"Download complete in "_s);
        korvane::press(ftp, u"cmdDownload"_s);
        korvane::press(ftp, u"cmdCancel"_s);
      });
      korvane::press(setup, u"cmdFtp"_s);
      korvane::press(setup, u"cmdOK"_s);
    });
    press(u"cmdSetup"_s);
  }
  QStringList days;
};

TEST_F(Ftp, ASongThatPlaysIsReplacedInTheMusicTree) {
  begin("[FTP]\nFtpSafe=YES\n");
  openAlbum(1, 1);
  playRow(1, 1);
  const QStringList calls = player.calls;
  fetch();
  EXPECT_TRUE(host->allDone());
  EXPECT_EQ(player.calls, calls) << "it plays on";
  EXPECT_EQ(home.get(u"Music/Ada/Days/001-Dawn.mp3"_s), QByteArray(600, 'n'));
  EXPECT_EQ(grid(1).maxRows(), 3);
  songEnds();
  EXPECT_EQ(playing(), u"002-Noon"_s);
}

TEST_F(Ftp, AGuestOfTheLockedJukeboxMovesNoFiles) {
  begin("JukeboxLock=YES\nSetup=4711\n");
  openAlbum(1, 1);
  press(u"optMode"_s, 1);
  playRow(1, 1);
  typed({}, true);
  press(u"cmdSetup"_s);
  EXPECT_TRUE(host->allDone());
  EXPECT_FALSE(host->opened.contains(u"frmSetup"_s));
  EXPECT_TRUE(system().ftp.orders.isEmpty());
}

}  // namespace
}  // namespace korvane

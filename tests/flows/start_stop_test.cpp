#include <QFile>

#include "tests/flows/cabin.h"

namespace korvane {
namespace {

using StartStop = CabinTest;

TEST_F(StartStop, RefusesAMissingThemeInWords) {
  home.put(u"Morvanta.INI"_s, "");
  start();
  EXPECT_FALSE(started);
  EXPECT_EQ(system().box.texts,
            QStringList{u"Theme does not exist, no graphics to show. Check INI Theme setting."_s});
}

TEST_F(StartStop, ASecondConsoleEndsSilently) {
  system().instance.runsElsewhere = true;
  start();
  EXPECT_FALSE(started);
  EXPECT_TRUE(system().box.texts.isEmpty());
}

TEST_F(StartStop, ALibraryThatCannotBeReadEndsTheStartInWords) {
  setting("");
  const QString path = home / u"Morvanta.mdb"_s;
  {
    Database database(home.path());
    OpenedDatabase open(database);
    sql::Transaction whole(*open);
    for (int i = 0; i < 500; ++i)
      database.insertSong({u"Artist %1"_s.arg(i), u"B"_s, u"C"_s, {}, {}, u"/c.mp3"_s});
    whole.commit();
  }
  const QByteArray good = home.get(u"Morvanta.mdb"_s);
  const std::pair<QString, QByteArray> faults[] = {
      {u"damaged"_s, QByteArray(good).replace(8192, 40000, QByteArray(40000, '\xAA'))},
      {u"is not a music database"_s, QByteArray(5000, 'x')},
      {u"is not a music database"_s, {}}};
  const auto endsSaying = [&](const QString& words) {
    start();
    EXPECT_FALSE(started);
    const QStringList said = std::exchange(system().box.texts, {});
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].contains(words) && said[0].contains(path)) << said[0].toStdString();
    EXPECT_TRUE(home.get(u"log.txt"_s).contains(path.toUtf8()));
  };
  for (const auto& [words, bytes] : faults) {
    home.put(u"Morvanta.mdb"_s, bytes);
    endsSaying(words);
  }
  home.put(u"Morvanta.mdb"_s, good);
  {
    sql::Connection other(path, sql::Connection::ReadWrite);
    other.script("BEGIN EXCLUSIVE");
    endsSaying(u"in use by another program"_s);
  }
  QFile::remove(path);
  endsSaying(u"missing"_s);
}

TEST_F(StartStop, ALibraryThatGoesLaterIsSaidAndItsListsStay) {
  givenDays();
  setting("");
  Console& up = start();
  ASSERT_TRUE(started);
  QFile::rename(home / u"Morvanta.mdb"_s, home / u"aside"_s);
  answer(u"missing"_s);
  up.desk.startup.Form_Load();
  for (const int list : {0, 4, 5}) EXPECT_GT(grid(list).maxRows(), 0) << list;
  EXPECT_EQ(grid(0).cell(1, 1), u"Ada"_s);
  EXPECT_THROW(up.library.songsChanged(), DatabaseError);
  answer(u"missing"_s);
  EXPECT_EQ(grid(5).cell(1, 1), QString()) << "not read before";
  system().pump.settle();
  QFile::rename(home / u"aside"_s, home / u"Morvanta.mdb"_s);
  EXPECT_EQ(grid(5).cell(1, 1), u"Dawn"_s);
  up.library.songsChanged();
  QFile::remove(home / u"Morvanta.mdb"_s);
  answer(u"missing"_s);
  system().pump.settle();
  EXPECT_EQ(grid(0).cell(1, 1), u"Ada"_s);
  EXPECT_TRUE(host->allDone());
}

TEST_F(StartStop, ComesUpOnTheMainTabWithTheSplashGone) {
  setting("LOCALLISTENER=1\nShowExit=1\n");
  system().mixer.present = false;
  Console& up = start();
  EXPECT_TRUE(started);
  EXPECT_EQ(system().box.texts, QStringList{u"Couldn't open the mixer."_s});
  EXPECT_FALSE(up.desk.frmSplash.shown());
  EXPECT_EQ(picture(u"imgTabs"_s, kMainTab), u"mainb"_s);
  EXPECT_EQ(up.desk.screen.MousePointer(), Screen::Custom);
  EXPECT_TRUE(shown(u"imgExit"_s));
  EXPECT_FALSE(shown(u"cmdMinimize"_s));
  EXPECT_LT(control(u"imgTabs"_s, kMapsTab).rect().left, 0) << "ShowMap is absent";
  EXPECT_GE(control(u"imgTabs"_s, kPhotosTab).rect().left, 0);
  EXPECT_TRUE(player.calls.contains(u"volume 0"_s));
  setting("ShowMap=1\n");
  for (int i = 0; i < 2; ++i) up.desk.startup.Form_Load();  // a second reload moves nothing further
  EXPECT_EQ(control(u"imgTabs"_s, kMapsTab).rect(), control(u"imgTabs"_s, kMapsTab).laid);
}

TEST_F(StartStop, TheStoredRoleWinsOverTheSetting) {
  const std::tuple<QByteArray, QByteArray, bool> cases[] = {
      {"1", "SERVER", false}, {"0", "LOCAL", true}, {"2", "", true}};
  for (const auto& [role, stored, local] : cases) {
    setting("LOCALLISTENER=" + role + "\n");
    home.put(u"user.ini"_s, "[KRV\\MUSIC]\nMUSICTYPE=" + stored + "\n");
    EXPECT_EQ(start().desk.state.gLocalListener, local) << role.data() << stored.data();
    EXPECT_EQ(picture(u"lblMusicPlay"_s, 0), local ? u"AtSeatOn"_s : u"AtSeatOff"_s);
  }
}

TEST_F(StartStop, LeavingAsksAndClosesEveryConnection) {
  setting("ShowExit=1\n");
  start();
  answer(u" Are you Sure you want to shut down? "_s, No);
  press(u"imgExit"_s);
  EXPECT_FALSE(ended);
  answer({}, Yes);
  press(u"imgExit"_s);
  EXPECT_TRUE(ended);
  for (const FakeWinsock* socket : sockets) EXPECT_GT(socket->closes, 0);
}

TEST_F(StartStop, MinimisesToTheTrayAndComesBackByADoubleClick) {
  setting("ShowMin=1\n");
  Console& up = start();
  press(u"cmdMinimize"_s);
  EXPECT_TRUE(system().tray.shown);
  EXPECT_EQ(system().tray.tip, u"Korvane"_s);
  EXPECT_FALSE(up.desk.frmMain.shown());
  system().tray.doubleClick();
  EXPECT_TRUE(up.desk.frmMain.shown());
  EXPECT_FALSE(system().tray.shown);

  system().tray.present = false;  // a desktop without a tray must not lose the window
  press(u"cmdMinimize"_s);
  EXPECT_TRUE(up.desk.frmMain.minimised());
}

}  // namespace
}  // namespace korvane

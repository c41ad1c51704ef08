// The player of DVDs over the real libVLC: the starter's disc, a menu of two buttons before titles
// with chapters, in a window on the screen.
#include "platform/video/dvd_player_vlc.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QWidget>

#include "tests/fakes/loop_pump.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

struct DvdTest : testing::Test, DvdPlayer::Events {
  DvdTest() {
    widget.resize(720, 576);
    widget.setAttribute(Qt::WA_NativeWindow);
    widget.show();
    player.setEvents(this);
  }
  ~DvdTest() override { player.setWindow(0); }
  void DVDNotify(DvdPlayer::Notice notice) override { ++notices[notice]; }
  void endOfDisc() override { ++ends; }
  void failed(const QString& description) override { failures << description; }
  bool until(const std::function<bool()>& done) { return pump.wait(15'000, done); }

  // A copy of the disc on which `change` was made.
  QString broken(const QString& name, const std::function<void(const QString&)>& change) {
    QDir().mkpath(home / name);
    for (const QString& file : QDir(kDisc + u"/VIDEO_TS"_s).entryList(QDir::Files)) {
      QFile::copy(kDisc + u"/VIDEO_TS/"_s + file, home / (name + u'/' + file));
      QFile::setPermissions(home / (name + u'/' + file), QFile::ReadOwner | QFile::WriteOwner);
    }
    change(home / name);
    return home / name;
  }
  static void put(const QString& path, qint64 at, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(bytes) > 0);
  }

  const QString kDisc = QStringLiteral(DVD_DISC);
  TemporaryHome home;
  LoopPump pump;
  QWidget widget;
  DvdPlayerVlc player{pump, {u"--aout=adummy"_s}};
  QHash<int, int> notices;
  int ends = 0;
  QStringList failures;
};

TEST_F(DvdTest, GoesThroughMenuTitleAndChaptersAndWaitsForItsWindow) {
  player.setDVDDirectory(kDisc);
  player.Play();
  EXPECT_FALSE(pump.wait(700, [&] { return player.CurrentDomain() != DvdPlayer::Nothing; }));
  player.setWindow(widget.winId());
  ASSERT_TRUE(until([&] { return player.CurrentDomain() == DvdPlayer::Menu; }));
  EXPECT_EQ(player.CurrentTitle(), 0);
  player.setCurrentTime(3);
  player.PlayNextChapter();
  pump.wait(1500, [] { return false; });  // the menu has been drawn, with its buttons
  player.ActivateButton();
  ASSERT_TRUE(until([&] { return player.CurrentTitle() == 1 && player.TotalTitleTime() > 0; }));
  EXPECT_GT(notices[DvdPlayer::DomainChange], 1);
  EXPECT_GT(player.chapters(), 1);
  player.PlayNextChapter();
  EXPECT_TRUE(until([&] { return player.CurrentChapter() == 2; }));
  player.Pause();
  player.setWindow(0);
  pump.wait(500, [] { return false; });
  player.setWindow(widget.winId());
  player.Play();
  EXPECT_TRUE(until([&] { return notices[DvdPlayer::CurrentTimeChange] > 2; }));
  EXPECT_EQ(player.CurrentTitle(), 1);
  player.ShowMenu(DvdPlayer::RootMenu);
  EXPECT_TRUE(until([&] { return player.CurrentDomain() == DvdPlayer::Menu; }));
  player.Stop();
  EXPECT_EQ(player.CurrentDomain(), DvdPlayer::Nothing);
  EXPECT_TRUE(failures.isEmpty()) << failures.join(u'\n').toStdString();
}

TEST_F(DvdTest, SaysWhatIsWrongWithAFolder) {
  const std::pair<QString, const char*> cases[] = {
      {home / u"none"_s, "no such folder"},
      {broken(u"no table"_s, [](auto& at) { QFile::remove(at + u"/VIDEO_TS.IFO"_s); }),
       "no VIDEO_TS.IFO"},
      {broken(u"text"_s, [](auto& at) { put(at + u"/VIDEO_TS.IFO"_s, 0, "a letter"); }),
       "no table"},
      {broken(u"cut"_s, [](auto& at) { QFile::resize(at + u"/VIDEO_TS.IFO"_s, 3000); }), "is cut"},
      {broken(u"scrambled"_s,
              [](auto& at) {
                put(at + u"/VTS_01_1.VOB"_s, 2048,
                    QByteArray("\0\0\1\xba", 4) + QByteArray(10, '\0') +
                        QByteArray("\0\0\1\xe0\0\0\xb0", 7));
              }),
       "encrypted"},
  };
  player.setWindow(widget.winId());
  for (const auto& [folder, says] : cases) {
    failures.clear();
    player.setDVDDirectory(folder);
    player.Play();
    EXPECT_TRUE(until([&] { return !failures.isEmpty(); })) << says;
    EXPECT_TRUE(failures.value(0).contains(QLatin1StringView(says)))
        << failures.value(0).toStdString();
    EXPECT_EQ(player.state(), DvdPlayer::Stopped);
  }
}

TEST_F(DvdTest, TellsOfADiscPutInAndTakenOut) {
  DvdPlayerVlc other(pump, {u"--aout=adummy"_s}, (home / u"drive"_s).toUtf8());
  other.setEvents(this);
  pump.wait(300, [] { return false; });
  home.put(u"drive"_s, "an image");
  EXPECT_TRUE(until([&] { return notices[DvdPlayer::DiscInserted] == 1; }));
  QFile::remove(home / u"drive"_s);
  EXPECT_TRUE(until([&] { return notices[DvdPlayer::DiscEjected] == 1; }));
}

}  // namespace
}  // namespace korvane

// A scan killed at any moment: the database stays whole, holds no song twice, and the next scan
// completes it.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <chrono>
#include <random>
#include <thread>

#include "library/scan/scanner.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_pump.h"
#include "tests/library/library_fixture.h"

namespace korvane {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int kKills = 60;  // a scan takes several times as long
#else
constexpr int kKills = 200;
#endif
constexpr int kSongs = 2000;

class Deaf : public ScanEvents {
  void scanStatus(const ScanProgress&) override {}
  void scanError(const QString&) override {}
};

ScanResult scan(Database& db, const QString& root) {
  FakeClock clock;
  FakePump pump(clock);
  Deaf events;
  return Scanner(db, pump, events).scanTagged(root, {});
}

// A process of its own that scans, over and over with a library that it empties.
pid_t startScanning(const QString& home, const QString& root, bool erasing) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  try {
    Database db(home);
    for (;;) {
      scan(db, root);
      if (erasing) db.erase();
    }
  } catch (...) {  // nothing may leave this process but its end
    ::_exit(1);
  }
}

TEST(KilledScan, LeavesAWholeDatabaseWithoutDuplicates) {
  QTemporaryDir home;
  const QString root = home.filePath(u"music"_s);
  for (int i = 0; i < kSongs; ++i) {
    const QByteArray n = QByteArray::number(i), folder = QByteArray::number(i / 40);
    makeSongFile(root.toUtf8() + "/a" + folder + "/b/" + n + ".mp3",
                 songTag("Song " + n, "A" + folder, "B"));
  }
  createEmptyDatabase(home.path() + u"/Morvanta.mdb"_s);
  std::mt19937 random(1);
  // Kills fall within three whole scans, however long this machine needs for one.
  QElapsedTimer scanned;
  scanned.start();
  {
    Database db(home.path());
    scan(db, root);
    db.erase();
  }
  const auto span =
      static_cast<unsigned>(std::max<qint64>(3 * scanned.nsecsElapsed() / 1000, 20'000));
  int unfinished = 0, writing = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    const pid_t child = startScanning(home.path(), root, kill % 10 != 9);
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % span));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the scan failed before kill " << kill;

    writing += QFileInfo(home.path() + u"/Morvanta.mdb-journal"_s).size() > 0;
    Database db(home.path());
    OpenedDatabase open(db);
    ASSERT_EQ(
        open->number("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
        0)
        << "kill " << kill;
    ASSERT_EQ(open->number("SELECT count(*) - count(DISTINCT SongTitle) FROM Songs"), 0)
        << "kill " << kill;
    const qint64 songs = open->number("SELECT count(*) FROM Songs");
    unfinished += songs < kSongs;
    if (kill % 10 == 9) {
      EXPECT_EQ(scan(db, root).added, kSongs - songs);
      EXPECT_EQ(open->number("SELECT count(*) FROM Songs"), kSongs);
      db.erase();
    }
  }
  EXPECT_GT(unfinished, kKills / 20) << "the kills came too late to mean anything";
  EXPECT_GT(writing, kKills / 20) << "no kill came while the file was being written";
}

}  // namespace
}  // namespace korvane

// The fakes keep the promises of what they stand for: flows over them are worth no more than this.
#include <gtest/gtest.h>

#include "platform/disk_file_system.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

TEST(FakePump, waitPassesTimeOnlyUntilItsEnd) {
  FakeClock clock;
  FakePump pump(clock);
  bool answered = false;
  std::vector<qint64> ticks;
  pump.at(120, [&] { answered = pump.waiting(); });
  pump.at(
      50, [&] { ticks.push_back(clock.monotonicMs()); }, 50);
  EXPECT_TRUE(pump.wait(300, [&] { return answered; }));
  EXPECT_EQ(clock.monotonicMs(), 120);
  EXPECT_FALSE(pump.wait(100, [] { return false; }));
  EXPECT_EQ(pump.waitedMs, 220);
  EXPECT_EQ(ticks, (std::vector<qint64>{50, 100, 150, 200}));
  EXPECT_FALSE(pump.waiting());
}

TEST(FakePump, workRunsInYieldsAndAfterTheEventAtHand) {
  FakeClock clock;
  FakePump pump(clock);
  QStringList order;
  pump.later([&] {
    order << u"a"_s;
    pump.later([&] { order << u"c"_s; });
    order << u"b"_s;
  });
  pump.duringYield = [&] { order << u"press"_s; };
  pump.holdBackground = true;
  pump.inBackground([&] { order << u"work"_s; }, [&] { order << u"done"_s; });
  EXPECT_TRUE(order.isEmpty());
  pump.doEvents();
  EXPECT_EQ(order, (QStringList{u"press"_s, u"a"_s, u"b"_s}));
  pump.runBackground();
  pump.settle();
  EXPECT_EQ(order.mid(3), (QStringList{u"work"_s, u"c"_s, u"done"_s}));
}

// The same story on the disk in memory and on the real one.
void tellStory(FileSystem& files, const QString& root) {
  const QString song = root + u"/Music/One.mp3"_s;
  QString error;
  EXPECT_FALSE(files.replace(song, "1", &error));
  EXPECT_TRUE(error.contains("folder does not exist"_L1));
  EXPECT_TRUE(files.CreateFolder(root + u"\\Music\\Deep"_s));
  EXPECT_TRUE(files.replace(root + u"\\MUSIC\\One.mp3"_s, "1"));
  EXPECT_EQ(files.resolve(root + u"/music/ONE.MP3"_s), song);
  EXPECT_TRUE(files.append(root + u"/music/one.mp3"_s, "2"));
  EXPECT_EQ(files.read(song), "12");
  EXPECT_EQ(files.read(song, 1), std::nullopt);
  EXPECT_TRUE(files.CopyFile(song, root + u"/MUSIC/deep"_s));
  EXPECT_EQ(files.Files(root + u"/music/DEEP"_s), QStringList{u"One.mp3"_s});
  EXPECT_EQ(files.SubFolders(root + u"/Music/"_s), QStringList{u"Deep"_s});
  EXPECT_FALSE(files.FolderExists(song));
  EXPECT_FALSE(files.FileExists(root + u"/Music"_s));
  EXPECT_FALSE(files.CreateFolder(song));
  EXPECT_FALSE(files.DeleteFile(root + u"/Music"_s));
  EXPECT_FALSE(files.DeleteFolder(song));
  EXPECT_TRUE(files.DeleteFolder(root + u"/MUSIC"_s));
  EXPECT_FALSE(files.FileExists(song));
}

TEST(FakeFileSystem, behavesAsTheDisk) {
  const TemporaryHome home;
  DiskFileSystem disk;
  tellStory(disk, home.path());
  FakeFileSystem memory;
  memory.CreateFolder(u"/home"_s);
  tellStory(memory, u"/home"_s);
}

TEST(FakeFileSystem, misbehavesWhenTold) {
  FakeFileSystem files;
  files.put(u"/a/x"_s, "old");
  files.room = 2;
  EXPECT_FALSE(files.replace(u"/a/x"_s, "new"));
  EXPECT_TRUE(files.append(u"/a/x"_s, "er"));
  EXPECT_FALSE(files.append(u"/a/x"_s, "!"));
  files.fail(u"/A/X"_s);
  EXPECT_EQ(files.read(u"/a/x"_s), std::nullopt);
  files.heal();
  EXPECT_EQ(files.read(u"/a/x"_s), "older");
}

TEST(FakeMachine, answersByTheScript) {
  FakeSystem system;
  system.box.answers = {SystemBox::Yes};
  EXPECT_EQ(system.box.show(u"one"_s, true), SystemBox::Yes);
  EXPECT_EQ(system.box.show(u"two"_s, true), SystemBox::No);
  int restored = 0;
  system.tray.doubleClick();
  system.tray.add(u"tip"_s, [&] {
    system.tray.remove();
    ++restored;
  });
  system.tray.doubleClick();
  system.tray.doubleClick();
  EXPECT_EQ(restored, 1);
  EXPECT_FALSE(system.mixer.setLevel(1)) << "not opened";
}

}  // namespace
}  // namespace korvane

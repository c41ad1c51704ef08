#include <gtest/gtest.h>

#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

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
  EXPECT_TRUE(files.append(root + u"/new.txt"_s, "c"));
  EXPECT_FALSE(files.append(root + u"/none/log.txt"_s, "d"));
  EXPECT_EQ(files.read(root + u"/new.txt"_s), "c");
  EXPECT_EQ(files.read(song), "12");
  EXPECT_EQ(files.read(song, 1), std::nullopt);
  const FileSystem::Stamp before = files.stamp(song);
  EXPECT_EQ(before.size, 2);
  EXPECT_EQ(before, files.stamp(song));
  EXPECT_EQ(files.stamp(root + u"/nothing"_s).size, -1);
  EXPECT_TRUE(files.replace(root + u"/MUSIC/ONE.MP3"_s, "12"));
  EXPECT_NE(files.stamp(song), before) << "as large, but another one";
  EXPECT_TRUE(files.replace(root + u"/MUSIC/ONE.MP3"_s, "3"));
  EXPECT_EQ(files.read(song), "3");
  EXPECT_EQ(files.Files(root + u"/Music"_s), QStringList{u"One.mp3"_s});
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

}  // namespace
}  // namespace korvane

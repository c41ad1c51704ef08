#include "platform/files/disk_file_system.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/path_text.h"
#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

class Disk : public testing::Test {
 protected:
  void link(const QString& to, const QString& name) {
    ASSERT_EQ(::symlink(fromPath(to), fromPath(home / name)), 0);
  }
  TemporaryHome home;
  DiskFileSystem files;
};

TEST_F(Disk, resolvesWithoutRegardToCase) {
  const QString song = home.put(u"Music/Abbé/One.mp3"_s, "1");
  home.put(u"Music/two.mp3"_s, "2");
  home.put(u"Music/TWO.mp3"_s, "2");
  const QString root = home.path();
  struct {
    QString path;
    std::optional<QString> found;
  } const table[] = {
      {song, song},
      {root + u"\\MUSIC\\abbÉ\\ONE.MP3"_s, song},
      {root + u"//music//Abbé/one.mp3"_s, song},
      {root + u"/Music/Two.mp3"_s, root + u"/Music/TWO.mp3"_s},
      {root + u"/Music/two.mp3"_s, root + u"/Music/two.mp3"_s},
      {root + u"/MUSIC/none"_s, {}},
      {root + u"/music/two.mp3/deeper"_s, {}},
      {root + QString(5000, u'/') + QString(5000, u'x'), {}},
      {root + u"/Music\0two.mp3"_s, {}},
      {QString(), {}},
  };
  for (const auto& row : table) EXPECT_EQ(files.resolve(row.path), row.found);
}

TEST_F(Disk, seesNamesThatComeAndGo) {
  const QString folder = home / u"Playlists"_s;
  ASSERT_TRUE(files.CreateFolder(folder));
  const timespec longAgo[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  for (int round = 0; round < 3; ++round) {
    EXPECT_FALSE(files.FileExists(folder + u"/PARTY.M3U"_s));
    home.put(u"Playlists/Party.m3u"_s, "x");
    EXPECT_TRUE(files.FileExists(folder + u"/PARTY.M3U"_s));
    ASSERT_TRUE(files.DeleteFile(folder + u"/party.m3u"_s));
    ASSERT_EQ(::utimensat(AT_FDCWD, fromPath(folder), longAgo, 0), 0);
  }
}

TEST_F(Disk, survivesLinksThatLeadInACircle) {
  link(u"circle"_s, u"circle"_s);
  link(u"."_s, u"self"_s);
  home.put(u"a.txt"_s, "a");
  EXPECT_FALSE(files.resolve(home / u"circle"_s));
  EXPECT_FALSE(files.resolve(home / u"CIRCLE/x"_s));
  EXPECT_TRUE(files.FileExists(home / u"self/SELF/A.TXT"_s));
  EXPECT_TRUE(files.SubFolders(home.path()).contains(u"self"_s));
  QString error;
  EXPECT_FALSE(files.replace(home / u"circle"_s, "x", &error));
  EXPECT_TRUE(error.contains(u"circle"_s)) << error.toStdString();
}

TEST_F(Disk, namesThatAreNotUtf8CanBeUsed) {
  const QByteArray name = "Caf\xE9\\\n.mp3";
  home.folder(u"Songs"_s);
  const QString path = FileSystem::BuildPath(home / u"Songs"_s, toPath(name));
  ASSERT_TRUE(files.replace(path, "song"));
  EXPECT_EQ(::access(fromPath(home / u"Songs/"_s) + name, F_OK), 0);
  EXPECT_EQ(files.Files(home / u"Songs"_s), QStringList{toPath(name)});
  EXPECT_EQ(files.read(path), "song");
  EXPECT_TRUE(files.DeleteFile(path));
}

TEST_F(Disk, readsAtMostTheLimitAndOnlyFiles) {
  const QString path = home.put(u"ten"_s, "0123456789");
  ASSERT_EQ(::mkfifo(fromPath(home / u"pipe"_s), 0600), 0);
  EXPECT_EQ(files.read(path, 10), "0123456789");
  EXPECT_EQ(files.read(path, 9), std::nullopt);
  EXPECT_EQ(files.read(home.put(u"empty"_s, ""), 0), "");
  EXPECT_EQ(files.read(home.path()), std::nullopt);
  EXPECT_EQ(files.read(home / u"pipe"_s), std::nullopt);
  EXPECT_FALSE(files.append(home / u"pipe"_s, "x"));
  EXPECT_GT(files.read(u"/proc/self/status"_s)->size(), 100) << "a file that says it has no bytes";
}

TEST_F(Disk, foldersAreMadeCopiedAndDeletedWhole) {
  home.put(u"Music/deep/song.mp3"_s, "song");
  home.put(u"outside/kept.mp3"_s, "kept");
  link(home / u"outside"_s, u"Music/link"_s);
  EXPECT_TRUE(files.CreateFolder(home / u"MUSIC\\new\\er"_s));
  EXPECT_TRUE(files.FolderExists(home / u"Music/new/er"_s)) << "below the folder that stands";
  EXPECT_FALSE(files.CreateFolder(home / u"music/deep/SONG.mp3/x"_s));
  EXPECT_TRUE(files.CopyFile(home / u"Music/deep/song.mp3"_s, home / u"Music/deep/SONG.mp3"_s));
  EXPECT_EQ(home.get(u"Music/deep/song.mp3"_s), "song") << "a copy onto itself";
  EXPECT_FALSE(files.CopyFile(home / u"none"_s, home / u"copy"_s));
  EXPECT_TRUE(files.DeleteFolder(home / u"music\\"_s));
  EXPECT_FALSE(files.FolderExists(home / u"Music"_s));
  EXPECT_EQ(home.get(u"outside/kept.mp3"_s), "kept") << "links are not followed";
  EXPECT_FALSE(files.DeleteFolder(u"//"_s));
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

TEST_F(Disk, andItsFakeBehaveAlike) {
  tellStory(files, home.path());
  FakeFileSystem memory;
  memory.CreateFolder(u"/home"_s);
  tellStory(memory, u"/home"_s);
}

TEST(FileSystem, pathsAreText) {
  EXPECT_EQ(FileSystem::BuildPath(u"C:\\a\\"_s, u"b"_s), u"C:/a/b"_s);
  EXPECT_EQ(FileSystem::BuildPath(u"/a"_s, u"\\b"_s), u"/a/b"_s);
  EXPECT_EQ(FileSystem::BuildPath(u""_s, u"b"_s), u"b"_s);
  EXPECT_EQ(FileSystem::GetParentFolderName(u"/a\\b/"_s), u"/a"_s);
  EXPECT_EQ(FileSystem::GetParentFolderName(u"/a"_s), u"/"_s);
  EXPECT_EQ(FileSystem::GetParentFolderName(u"/"_s), u""_s);
  EXPECT_EQ(FileSystem::GetParentFolderName(u"a"_s), u""_s);
}

}  // namespace
}  // namespace korvane

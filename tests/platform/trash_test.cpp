// Files put into the trash can of the desktop and taken back.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>

#include "platform/files/desktop_trash.h"
#include "platform/path_text.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

class TrashCan : public testing::Test {
 protected:
  TemporaryHome home;
  DesktopTrash trash;
  QString error;

  void SetUp() override { qputenv("XDG_DATA_HOME", (home / u"data"_s).toUtf8()); }
  void TearDown() override { qunsetenv("XDG_DATA_HOME"); }
  QStringList inside(const QString& folder) const {
    return QDir(home / (u"data/Trash/"_s + folder)).entryList(QDir::Files | QDir::Hidden);
  }
};

TEST_F(TrashCan, keepsFilesOfOneNameApartAndGivesThemBack) {
  home.folder(u"album 1"_s);
  const QString path = home.put(u"album 1/100%.tar.jpg"_s, "first");
  const auto first = trash.put(path, &error);
  ASSERT_TRUE(first) << error.toStdString();
  const QByteArray info = home.get(u"data/Trash/info/100%.tar.jpg.trashinfo"_s);
  EXPECT_TRUE(info.startsWith("[Trash Info]\nPath=" + home.path().toUtf8() +
                              "/album%201/100%25.tar.jpg\nDeletionDate=2"))
      << info.toStdString();
  home.put(u"album 1/100%.tar.jpg"_s, "second");
  const auto second = trash.put(path, &error);
  ASSERT_TRUE(second) << error.toStdString();
  EXPECT_EQ(inside(u"files"_s).size(), 2);
  home.put(u"album 1/100%.tar.jpg"_s, "third");
  EXPECT_FALSE(trash.takeBack(*first, path, &error));
  EXPECT_TRUE(error.contains("Another file has that name"_L1)) << error.toStdString();
  EXPECT_EQ(home.get(u"album 1/100%.tar.jpg"_s), "third");
  ASSERT_EQ(::unlink(fromPath(path).constData()), 0);
  EXPECT_TRUE(trash.takeBack(*first, path, &error)) << error.toStdString();
  EXPECT_EQ(home.get(u"album 1/100%.tar.jpg"_s), "first");
  EXPECT_EQ(inside(u"info"_s).size(), 1);
  EXPECT_FALSE(trash.takeBack(*first, path, &error));
  EXPECT_TRUE(error.contains("in the trash no more"_L1)) << error.toStdString();
  EXPECT_FALSE(trash.put(home / u"missing"_s, &error));
  EXPECT_TRUE(error.contains("not there any more"_L1)) << error.toStdString();
}

TEST_F(TrashCan, takesNamesOfAnyBytesAndAnyLengthAndLinksAsTheyAre) {
  for (const QByteArray& name : {QByteArray("\xff\xfe \n\\.jpg"), QByteArray(250, 'x') + ".jpg"}) {
    const QString plain = home.put(u"plain"_s, "bytes"), path = home.path() + u'/' + toPath(name);
    ASSERT_EQ(std::rename(fromPath(plain).constData(), fromPath(path).constData()), 0);
    const auto in = trash.put(path, &error);
    ASSERT_TRUE(in) << error.toStdString();
    EXPECT_TRUE(trash.takeBack(*in, path, &error)) << error.toStdString();
    EXPECT_EQ(::unlink(fromPath(path).constData()), 0);
  }
  const QString kept = home.put(u"kept"_s, "bytes"), link = home / u"link"_s;
  ASSERT_EQ(::symlink("kept", fromPath(link).constData()), 0);
  EXPECT_TRUE(trash.put(link, &error)) << error.toStdString();
  EXPECT_EQ(home.get(u"kept"_s), "bytes");
}

TEST_F(TrashCan, anotherVolumeHasItsOwn) {
  char place[] = "/dev/shm/trash-XXXXXX";
  struct stat here, there;
  if (!::mkdtemp(place) || ::stat(place, &there) != 0 ||
      ::stat(fromPath(home.path()).constData(), &here) != 0 || here.st_dev == there.st_dev)
    GTEST_SKIP() << "one volume only";
  const QString folder = QString::fromLatin1(place), path = folder + u"/a b"_s;
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  const QString can = u"/dev/shm/.Trash-%1/"_s.arg(::getuid());
  // One that is a link leads anywhere.
  if (::symlink(place, fromPath(can.chopped(1)).constData()) == 0) {
    EXPECT_FALSE(trash.put(path, &error));
    EXPECT_TRUE(error.contains("has no trash can"_L1)) << error.toStdString();
    ASSERT_EQ(::unlink(fromPath(can.chopped(1)).constData()), 0);
  }
  const auto in = trash.put(path, &error);
  ASSERT_TRUE(in) << error.toStdString();
  EXPECT_EQ(*in, can + u"files/a b"_s);
  QFile info(can + u"info/a b.trashinfo"_s);
  ASSERT_TRUE(info.open(QIODevice::ReadOnly));
  EXPECT_TRUE(info.readAll().contains("\nPath=" + QByteArray(place).sliced(9) + "/a%20b\n"));
  EXPECT_TRUE(trash.takeBack(*in, path, &error)) << error.toStdString();
  EXPECT_FALSE(info.exists());
  QDir(folder).removeRecursively();
  for (const char* part : {"files", "info", ""}) QDir().rmdir(can + QString::fromLatin1(part));
}

}  // namespace
}  // namespace korvane

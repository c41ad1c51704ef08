// A save that is killed or fails at any of its calls.
#include <errno.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files/disk_file_system.h"
#include "platform/path_text.h"
#include "tests/fakes/full_disk.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

// Dies at its call number `dieAt`, or fails at call `failAt` with `error`.
class BadCalls : public FileCalls {
 public:
  int calls = 0, dieAt = -1, failAt = -1, error = EIO;

  int open(const char* path, int flags, mode_t mode) override {
    return bad() ? -1 : FileCalls::open(path, flags, mode);
  }
  ssize_t write(int file, const void* bytes, size_t count) override {
    if (bad()) return -1;
    // In small pieces, so that there are calls to die at within the file.
    return FileCalls::write(file, bytes, std::min<size_t>(count, 1000));
  }
  int fstat(int file, struct stat* status) override {
    return bad() ? -1 : FileCalls::fstat(file, status);
  }
  int fsync(int file) override { return bad() ? -1 : FileCalls::fsync(file); }
  int close(int file) override {
    const int result = FileCalls::close(file);
    return bad() ? -1 : result;
  }
  int rename(const char* from, const char* to) override {
    return bad() ? -1 : FileCalls::rename(from, to);
  }
  int unlink(const char* path) override { return bad() ? -1 : FileCalls::unlink(path); }

 private:
  bool bad() {
    const int call = calls++;
    if (call == dieAt) ::_exit(7);
    errno = error;
    return call == failAt;
  }
};

const QByteArray kOld("[A]\nold=1\n"), kNew(QByteArray("new=2\n").repeated(1000));

class Replace : public testing::Test {
 protected:
  TemporaryHome home;
  QString path = home.put(u"keep.ini"_s, kOld);
  QByteArray now() { return home.get(u"keep.ini"_s); }
  QStringList names() { return DiskFileSystem().Files(home.path()); }
};

TEST_F(Replace, killedAtAnyCallTheFileIsWhole) {
  int deaths = 0;
  for (int call = 0;; ++call) {
    home.put(u"keep.ini"_s, kOld);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      BadCalls calls;
      calls.dieAt = call;
      ::_exit(DiskFileSystem(calls).replace(path, kNew) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_TRUE(now() == kOld || now() == kNew) << "torn at call " << call;
    if (WEXITSTATUS(status) == 0) break;
    ASSERT_EQ(WEXITSTATUS(status), 7) << call;
    ++deaths;
  }
  EXPECT_GT(deaths, 10) << "every call of the save must have been died at";
  EXPECT_TRUE(DiskFileSystem().replace(path, kOld)) << "litter must not stand in the way";
  EXPECT_EQ(now(), kOld);
}

TEST_F(Replace, failingAtAnyCallTheOldFileStandsAndNoLitter) {
  const QStringList before = names();
  for (int call = 0;; ++call) {
    home.put(u"keep.ini"_s, kOld);
    BadCalls calls;
    calls.failAt = call;
    QString error;
    const bool saved = DiskFileSystem(calls).replace(path, kNew, &error);
    ASSERT_EQ(now(), saved ? kNew : kOld) << call;
    ASSERT_EQ(names(), before) << call;
    ASSERT_EQ(error.contains("fault"_L1) && error.contains(path), !saved) << error.toStdString();
    if (calls.calls <= call) break;
  }
}

TEST_F(Replace, aDiskThatRefusesIsTold) {
  const std::pair<int, QString> cases[] = {
      {ENOSPC, u"The disk is full. Free some room on it and try again."_s},
      {EROFS, u"The disk is read only"_s},
      {EACCES, u"Permission is refused"_s},
  };
  for (const auto& [fault, reason] : cases) {
    BadCalls calls;
    calls.failAt = 0;
    calls.error = fault;
    QString error;
    EXPECT_FALSE(DiskFileSystem(calls).replace(path, kNew, &error));
    EXPECT_TRUE(error.startsWith(u"Could not save %1. %2"_s.arg(path, reason)))
        << error.toStdString();
    EXPECT_EQ(now(), kOld);
  }
}

TEST_F(Replace, aCopyThatEndsEarlyLeavesNothing) {
  const QStringList before = names();
  QString error;
  const QString copy = home / u"copy.ini"_s;
  FullDisk calls;
  calls.full = true;
  const auto goOn = [](qint64) { return true; };
  EXPECT_FALSE(DiskFileSystem(calls).copyInPieces(path, copy, goOn, &error));
  EXPECT_TRUE(error.contains("The disk is full"_L1)) << error.toStdString();
  EXPECT_EQ(names(), before);
  qint64 seen = 0;
  const auto stop = [&seen](qint64 bytes) {
    seen = bytes;
    return false;
  };
  EXPECT_FALSE(DiskFileSystem().copyInPieces(path, copy, stop, &error));
  EXPECT_EQ(seen, kOld.size());
  EXPECT_EQ(names(), before);
  EXPECT_FALSE(DiskFileSystem().copyInPieces(home / u"none"_s, copy, goOn, &error));
  EXPECT_TRUE(error.contains("is not there any more"_L1)) << error.toStdString();
  EXPECT_TRUE(DiskFileSystem().copyInPieces(path, copy, goOn, &error));
  EXPECT_EQ(home.get(u"copy.ini"_s), kOld);
}

TEST_F(Replace, refusalsAreToldInWords) {
  DiskFileSystem files;
  struct {
    QString path, word;
  } const table[] = {
      {home / u"krvgraphics"_s, u"A folder has that name"_s},
      {home / u"keep.ini/x"_s, u"is a file, not a folder"_s},
      {home / QString(300, u'x'), u"too long"_s},
      {QString(), u"folder does not exist"_s},
  };
  for (const auto& row : table) {
    QString error;
    EXPECT_FALSE(files.replace(row.path, "x", &error));
    EXPECT_TRUE(error.contains(row.word)) << error.toStdString();
  }
}

TEST_F(Replace, keepsPermissionsAndLinks) {
  DiskFileSystem files;
  ASSERT_EQ(::chmod(fromPath(path), 0640), 0);
  home.folder(u"etc"_s);
  ASSERT_EQ(::symlink("../keep.ini", fromPath(home / u"etc/one"_s)), 0);
  ASSERT_EQ(::symlink("etc/one", fromPath(home / u"two"_s)), 0);
  ASSERT_EQ(::symlink("etc/later", fromPath(home / u"dangling"_s)), 0);
  ASSERT_TRUE(files.replace(home / u"TWO"_s, kNew));
  ASSERT_TRUE(files.replace(home / u"dangling"_s, kNew));
  struct stat status;
  ASSERT_EQ(::stat(fromPath(path), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
  EXPECT_EQ(now(), kNew);
  EXPECT_EQ(home.get(u"etc/later"_s), kNew);
  ASSERT_EQ(::lstat(fromPath(home / u"two"_s), &status), 0);
  EXPECT_TRUE(S_ISLNK(status.st_mode));
}

}  // namespace
}  // namespace korvane

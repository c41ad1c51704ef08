// Real programs: scripts of this test's own folder.
#include <gtest/gtest.h>

#include <QFile>
#include <csignal>

#include "platform/machine/detached_programs.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

class ProgramsTest : public testing::Test {
 protected:
  QString script(const QString& name, const QByteArray& body) {
    const QString path = home.put(name, body);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
  }
  int start(const QString& path) {
    return programs.start(
        path, [this] { ++ends; }, &error);
  }
  bool comes(const std::function<bool()>& what) { return pump.wait(5000, what); }

  TemporaryHome home;
  LoopPump pump;
  DetachedPrograms programs;
  QString error;
  int ends = 0;
};

TEST_F(ProgramsTest, RunsInASessionOfItsOwnWithoutArgumentsAndIsNoticedAtItsEnd) {
  const QString path = script(u"a folder; x/it's $HOME.sh"_s,
                              "#!/bin/sh\n"
                              "echo $# $(pwd) >seen\n"
                              "cut -d' ' -f6 /proc/$$/stat >>seen\n"
                              "ls /proc/$$/fd | wc -l >>seen\n"
                              "mv seen whole\n"
                              "while [ ! -e go ]; do sleep 0.02; done\n");
  const int task = start(path);
  ASSERT_GT(task, 0) << error.toStdString();
  ASSERT_TRUE(comes([&] { return !home.get(u"a folder; x/whole"_s).isEmpty(); }));
  const QByteArrayList seen = home.get(u"a folder; x/whole"_s).trimmed().split('\n');
  EXPECT_EQ(seen.value(0), "0 " + (home / u"a folder; x"_s).toUtf8());
  EXPECT_EQ(seen.value(1).toInt(), task) << "the session";
  EXPECT_LE(seen.value(2).toInt(), 5) << "no descriptor of ours";
  EXPECT_TRUE(programs.running(task));
  EXPECT_EQ(ends, 0);
  home.put(u"a folder; x/go"_s, "");
  EXPECT_TRUE(comes([&] { return ends == 1; }));
  EXPECT_FALSE(programs.running(task));
  EXPECT_FALSE(programs.activate(task));
}

TEST_F(ProgramsTest, WhatCannotBeStartedIsTold) {
  const struct {
    QString path;
    const char* error;
  } table[] = {
      {home / u"none"_s, "No such file or directory"},
      {home.put(u"plain"_s, "#!/bin/sh\n"), "Permission denied"},
      {script(u"old.bat"_s, "echo a shell >shell_was_here\n"), "Exec format error"},
      {u"sh"_s, "No such file or directory"},
      {home.path(), "Permission denied"},
  };
  for (const auto& [path, reason] : table) {
    EXPECT_EQ(start(path), 0) << path.toStdString();
    EXPECT_EQ(error, QString::fromLatin1(reason)) << path.toStdString();
  }
  EXPECT_EQ(home.get(u"shell_was_here"_s), "");
  EXPECT_FALSE(programs.runnable(home / u"plain"_s));
  EXPECT_FALSE(programs.runnable(home.path()));
  EXPECT_TRUE(programs.runnable(home / u"old.bat"_s));
}

TEST_F(ProgramsTest, OutlivesTheOneWhoStartedIt) {
  const QString path = script(u"long.sh"_s, "#!/bin/sh\nexec sleep 30\n");
  const int task = DetachedPrograms().start(
      path, [] { FAIL() << "nobody hears this"; }, &error);
  ASSERT_GT(task, 0) << error.toStdString();
  EXPECT_EQ(::kill(task, 0), 0);
  ::kill(task, SIGKILL);
}

}  // namespace
}  // namespace korvane

#include "core/chooser_lists.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(ChooserLists, Patterns) {
  const struct {
    QString name, patterns;
    bool fits;
  } cases[] = {
      {u"a.MP3"_s, u"*.mp3;*.wma"_s, true},
      {u"a.wma"_s, u"*.mp3; *.wma"_s, true},
      {u"a.mp3x"_s, u"*.mp3"_s, false},
      {u"mp3"_s, u"*.mp3"_s, false},
      {u"run.com"_s, u"*.exe;*.com"_s, true},
      {u"anything"_s, u"*.*"_s, true},
      {u"a.mp3"_s, u""_s, false},
      {u"a.mp3"_s, u";;"_s, false},
  };
  for (const auto& [name, patterns, fits] : cases)
    EXPECT_EQ(fitsPattern(name, patterns), fits) << qUtf8Printable(name + u' ' + patterns);
}

TEST(ChooserLists, RowsAreInTheOrderOfNamesBelowTheWayUp) {
  FakeFileSystem files;
  for (const char* path : {"/m/Album 10/x", "/m/album 2/x", "/m/Zebra/x", "/m/.hidden/x"})
    files.put(QString::fromLatin1(path), "");
  EXPECT_EQ(folderRows(files, u"/m"_s),
            QStringList({u".."_s, u"album 2"_s, u"Album 10"_s, u"Zebra"_s}));
  EXPECT_EQ(folderRows(files, u"/"_s), QStringList{u"m"_s});
}

TEST(ChooserLists, PathsAndVolumes) {
  const std::pair<QString, QString> up[] = {
      {u"/m/a"_s, u"/m"_s}, {u"/m"_s, u"/"_s}, {u"/"_s, u"/"_s}, {u"/m/a/"_s, u"/m"_s}};
  for (const auto& [path, parent] : up) EXPECT_EQ(folderAt(path, u".."_s), parent);
  EXPECT_EQ(folderAt(u"/m"_s, u"a"_s), u"/m/a"_s);
  EXPECT_EQ(folderAt(u"/"_s, u"m"_s), u"/m"_s);
  const QStringList volumes{u"/"_s, u"/media/usb"_s, u"/media"_s};
  const std::pair<QString, int> on[] = {
      {u"/media/usb/x"_s, 1}, {u"/media/usb"_s, 1}, {u"/media/usb2"_s, 2}, {u"/home"_s, 0}};
  for (const auto& [path, volume] : on) EXPECT_EQ(volumeOf(volumes, path), volume);
  EXPECT_EQ(volumeOf({u"/media"_s}, u"/home"_s), -1);
  EXPECT_EQ(withSeparator(u"C:\\music"_s), u"C:/music/"_s);
  EXPECT_EQ(withSeparator(u"/music/"_s), u"/music/"_s);
}

}  // namespace
}  // namespace korvane

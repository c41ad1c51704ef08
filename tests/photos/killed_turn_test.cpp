// A turning and a thumbnailing run killed at any moment: each file is old or new, none is torn.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <chrono>
#include <random>
#include <thread>

#include "platform/files/disk_file_system.h"
#include "tests/photos/sheet_world.h"

namespace korvane {
namespace {

constexpr int kPictures = 8, kKills = 100;
constexpr qsizetype kBytes = 300'000;

// A picture or a thumbnail is one letter all through; turned, it is the next one.
class Letters : public FakeImaging {
  using FakeImaging::turned;
  QByteArray jpeg(const Pixels&, int) const override { return QByteArray(kBytes, 't'); }
  QByteArray turned(const QString& path, int, bool, bool, QString*) const override {
    const auto bytes = disk.read(path);
    return QByteArray(kBytes, bytes ? static_cast<char>('A' + (bytes->at(0) - 'A' + 1) % 4) : '?');
  }
  DiskFileSystem disk;
};

// Makes and turns all, over and over.
[[noreturn]] void work(const QString& directory) {
  DiskFileSystem disk;
  Letters letters;
  FakeClock clock;
  FakePump pump(clock);
  AppState state;
  const QString home = directory + u"/home"_s;
  Log log(disk, clock, home);
  Settings settings(disk, pump, state, home, &log);
  Palette palette(settings);
  FakeFormHost host;
  FakeMessages messages;
  FakeTrash trash(disk);
  Form form(u"frm"_s,
            std::array<InventoryRow, 2>{{{"cmdStop", -1, Kind::Button, {}, Left, ""},
                                         {"picProgress", -1, Kind::Progress, {}, Left, ""}}});
  Screen screen;
  SheetWork sheet(form, screen);
  PictureCells cells({letters, pump, log, [] {}, [] {}});
  Thumbnails thumbnails(
      {disk, letters, pump, log, messages, cells, sheet, [](const auto&) {}, [] {}});
  PictureActions actions({disk, letters, trash, pump, log, settings, messages, cells, sheet,
                          thumbnails, [] {}, [] {}});
  for (;;) {
    thumbnails.begin(AlbumThumbs({disk, letters, {}}, directory + u"/album/"_s, {60, 60}, false),
                     u"*.jpg"_s, Thumbnails::Force);
    pump.settle();
    cells.selectAll(true);
    actions.Rotate(90);
    pump.settle();
  }
}

bool whole(const QByteArray& bytes) {
  return bytes.size() == kBytes && bytes.count(bytes[0]) == kBytes;
}

TEST(KilledTurn, LeavesEachPictureAndThumbnailOldOrNew) {
  QTemporaryDir home;
  DiskFileSystem disk;
  const QString album = home.filePath(u"album"_s);
  disk.CreateFolder(album);
  disk.CreateFolder(home.filePath(u"home"_s));
  QStringList names;
  for (int i = 0; i < kPictures; ++i) names << QString::number(i) + u".jpg"_s;
  QElapsedTimer saving;
  saving.start();
  for (const QString& name : names)
    disk.replace(FileSystem::BuildPath(album, name), QByteArray(kBytes, 'A'));
  // A round saves three files a picture; kills fall within two of them.
  const auto span = static_cast<unsigned>(6 * saving.nsecsElapsed() / 1000 + 20'000);
  std::mt19937 random(1);
  int turned = 0, temporary = 0, before = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    const pid_t child = ::fork();
    if (child == 0) work(home.path());
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % span));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the run ended before kill " << kill;

    int letters = 0;
    for (const QString& name : names) {
      const auto bytes = disk.read(FileSystem::BuildPath(album, name));
      ASSERT_TRUE(bytes && whole(*bytes)) << name.toStdString() << " at kill " << kill;
      letters = letters * 4 % 1'000'003 + bytes->at(0);
    }
    turned += std::exchange(before, letters) != letters;
    for (const QString& thumb : disk.Files(album + u"/thumbs"_s)) {
      const auto bytes = disk.read(FileSystem::BuildPath(album + u"/thumbs"_s, thumb));
      if (thumb.endsWith(".JPG"_L1))
        ASSERT_TRUE(bytes && whole(*bytes)) << thumb.toStdString() << " at kill " << kill;
      else
        ++temporary;
    }
  }
  EXPECT_GT(turned, kKills / 10) << "the kills came too early to mean anything";
  EXPECT_GT(temporary, 0) << "no kill came while a file was being written";
}

}  // namespace
}  // namespace korvane

// A turning and a thumbnailing run killed at any moment: each file is old or new, none is torn, and
// what lies about is taken for no picture.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <chrono>
#include <random>
#include <set>
#include <thread>

#include "core/chooser_lists.h"
#include "platform/files/disk_file_system.h"
#include "platform/imaging/picture_codecs.h"
#include "tests/fakes/temporary_home.h"
#include "tests/photos/sheet_world.h"

namespace korvane {
namespace {

constexpr int kPictures = 4, kKills = 100, kSide = 128;

AlbumThumbs thumbsOf(const TemporaryHome& home, DiskFileSystem& disk, const PictureCodecs& codecs) {
  return {{disk, codecs, {}}, home / u"album/"_s, {.width = 60, .height = 60}, false};
}

// Makes the thumbnails of all and turns all, over and over.
[[noreturn]] void work(const TemporaryHome& home) {
  DiskFileSystem disk;
  PictureCodecs codecs;
  FakeClock clock;
  FakePump pump(clock);
  AppState state;
  Log log(disk, clock, home.path());
  Settings settings(disk, pump, state, home.path(), &log);
  FakeMessages messages;
  FakeTrash trash(disk);
  Form form(u"frm"_s,
            std::array<InventoryRow, 2>{{{"cmdStop", -1, Kind::Button, {}, Left, ""},
                                         {"picProgress", -1, Kind::Progress, {}, Left, ""}}});
  Screen screen;
  SheetWork sheet(form, screen);
  PictureCells cells({codecs, pump, log, [] {}, [] {}});
  Thumbnails thumbnails(
      {disk, codecs, pump, log, messages, cells, sheet, [](const auto&) {}, [] {}});
  PictureActions actions({disk, codecs, trash, pump, log, settings, messages, cells, sheet,
                          thumbnails, [] {}, [] {}, [] {}});
  for (;;) {
    thumbnails.begin(thumbsOf(home, disk, codecs), u"*.jpg"_s, Thumbnails::Force);
    pump.settle();
    cells.selectAll(true);
    actions.Rotate(90);
    pump.settle();
  }
}

class Killed : public testing::Test {
 protected:
  Killed() {
    home.put(u"Morvanta.INI"_s, "[Photos]\nKeepKind=YES\n");  // turned without loss
    home.folder(u"album/thumbs"_s);
    std::vector<quint32> noise(size_t{kSide} * kSide);
    for (quint32 state = 1; quint32 & word : noise) word = 0xff000000 | (state = state * 69069 + 1);
    QByteArray bytes = codecs.jpeg(
        {kSide, kSide, kSide * 4, reinterpret_cast<const uchar*>(noise.data()), true, {}}, 90);
    QElapsedTimer saving;
    for (int turn = 0; turn < 8; ++turn) {
      const QString picture = home.put(u"album/0.jpg"_s, bytes);
      pictures.insert(bytes);
      saving.start();
      thumbs.insert(*disk.read(thumbsOf(home, disk, codecs).make(u"0.jpg"_s).path));
      bytes = codecs.turned(picture, 90, true, false, nullptr);
      disk.replace(picture, bytes);
    }
    for (int i = 0; i < kPictures; ++i) {
      names << QString::number(i) + u".jpg"_s;
      home.put(u"album/"_s + names.last(), bytes);
    }
    // A round makes two thumbnails a picture and turns it; kills fall within it.
    span = static_cast<unsigned>(2 * kPictures * saving.nsecsElapsed() / 1000 + 10'000);
  }

  // The files of the album, one letter each; "?" for one that is neither old nor new.
  QByteArray album() {
    QByteArray found;
    for (const QString& name : names) {
      const auto at = pictures.find(disk.read(home / u"album/"_s + name).value_or(QByteArray()));
      found +=
          at == pictures.end() ? '?' : static_cast<char>('A' + std::distance(pictures.begin(), at));
    }
    return found;
  }
  int leftovers() {
    int found = 0;
    for (const QString& folder : {u"album"_s, u"album/thumbs"_s})
      found += static_cast<int>(
          QDir(home / folder).entryList({u".*~"_s}, QDir::Files | QDir::Hidden).size());
    return found;
  }

  TemporaryHome home;
  DiskFileSystem disk;
  PictureCodecs codecs;
  std::set<QByteArray> pictures, thumbs;  // as each may be
  QStringList names;
  unsigned span = 0;  // microseconds
};

TEST_F(Killed, ARunLeavesEachPictureAndThumbnailOldOrNew) {
  ASSERT_EQ(pictures.size(), 4U) << "four quarters, and the first again";
  std::mt19937 random(1);
  int turned = 0;
  QByteArray before = album();
  for (int kill = 0; kill < kKills; ++kill) {
    SCOPED_TRACE(kill);
    const pid_t child = ::fork();
    if (child == 0) work(home);
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % span));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the run ended before";

    const QByteArray now = album();
    ASSERT_FALSE(now.contains('?')) << now.constData();
    turned += std::exchange(before, now) != now;
    ASSERT_EQ(fileRows(disk, home / u"album"_s, u"*"), names);
    for (const QString& thumb : disk.Files(home / u"album/thumbs"_s))
      ASSERT_TRUE(names.contains(thumb.toLower()) &&
                  thumbs.contains(*disk.read(home / u"album/thumbs/"_s + thumb)))
          << thumb.toStdString();
  }
  EXPECT_GT(turned, kKills / 10) << "the kills came too early to mean anything";
  EXPECT_GT(leftovers(), 0) << "no kill came while a file was being written";
}

}  // namespace
}  // namespace korvane

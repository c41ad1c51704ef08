#include "platform/video/dvd_check.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "platform/path_text.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

const QString kDisc = QStringLiteral(DVD_DISC);

// A sector of a film with sound or pictures, whose packet has those scrambling bits.
QByteArray sector(char bits) {
  QByteArray bytes(kDvdSector, '\0');
  bytes.replace(0, 4, QByteArray("\0\0\1\xba", 4));
  bytes.replace(0x0e, 4, QByteArray("\0\0\1\xe0", 4));
  bytes[0x14] = static_cast<char>(0x80 | bits);
  return bytes;
}

TEST(DvdCheck, WhatSpeaksAgainstFolder) {
  const QTemporaryDir root;
  QFile shipped(kDisc + u"/VIDEO_TS/VIDEO_TS.IFO"_s);
  ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
  const QByteArray whole = shipped.readAll();
  const struct {
    const char* folder;
    const char* file;
    QByteArray menu, film;
    const char* why;
  } rows[] = {
      {"empty", nullptr, {}, {}, "the folder is empty"},
      {"none", "other.txt", "x", {}, "the folder holds no VIDEO_TS.IFO, so it is no DVD"},
      {"foreign", "VIDEO_TS.IFO", QByteArray(4096, 'x'), {}, "its VIDEO_TS.IFO is none of a DVD"},
      {"nothing", "VIDEO_TS.IFO", {}, {}, "its VIDEO_TS.IFO is cut short"},
      {"word", "VIDEO_TS.IFO", whole.first(5), {}, "its VIDEO_TS.IFO is cut short"},
      {"one short", "VIDEO_TS.IFO", whole.chopped(1), {}, "its VIDEO_TS.IFO is cut short"},
      {"css", "VIDEO_TS.IFO", whole, sector(0) + sector(0x10),
       "it is encrypted, and libdvdcss, which could read it, is not installed"},
      {"clear, film cut", "video_ts.ifo", whole, sector(0) + sector(0x30).first(0x14), nullptr},
      {"100% of \xe4\xff", "Video_ts.IFO", whole, {}, nullptr},
  };
  for (const auto& row : rows) {
    const QString path = root.path() + u'/' + toPath(row.folder);
    const QByteArray disk = fromPath(path) + "/VIDEO_TS";
    ASSERT_TRUE(std::filesystem::create_directories(disk.toStdString()));
    const auto write = [&](const char* name, const QByteArray& bytes) {
      std::ofstream(disk.toStdString() + '/' + name, std::ios::binary)
          .write(bytes.data(), bytes.size());
    };
    if (row.file) write(row.file, row.menu);
    if (!row.film.isEmpty()) write("VTS_01_1.VOB", row.film);
    const QString expected =
        row.why ? u"Cannot play the DVD %1: %2."_s.arg(path, QString::fromUtf8(row.why))
                : QString();
    QString folder;
    EXPECT_EQ(dvdTrouble(path, {}, false, &folder), expected) << row.folder;
    EXPECT_EQ(folder, row.why ? QString() : path + u"/VIDEO_TS"_s);
    EXPECT_EQ(dvdTrouble(path, {}, true, &folder).isEmpty(),
              !row.why || row.folder == QByteArray("css"));
  }
  std::filesystem::remove_all(root.path().toStdString());  // QTemporaryDir leaves odd names
}

TEST(DvdCheck, FolderIsFoundInLettersOfEitherCaseAndFromBothPlaces) {
  QString folder;
  for (const QString& path : {kDisc, kDisc + u"/video_ts"_s, kDisc + u"/VIDEO_TS/"_s}) {
    EXPECT_EQ(dvdTrouble(path, {}, false, &folder), QString()) << qPrintable(path);
    EXPECT_EQ(folder, kDisc + u"/VIDEO_TS"_s);
  }
  for (const QString& path : {kDisc + u"/audio_ts"_s, u"/"_s + QString(5000, u'x'), u"video_ts"_s})
    EXPECT_EQ(dvdTrouble(path, {}, false, &folder),
              u"Cannot play the DVD %1: there is no such folder."_s.arg(path));
}

TEST(DvdCheck, WhatSpeaksAgainstDiscInDrive) {
  constexpr auto kDiscIn = DvdDriveLook::Disc;
  const struct {
    DvdDriveLook look;
    const char* why;
  } rows[] = {
      {{}, "This machine has no DVD drive."},
      {{DvdDriveLook::NoDisc, u"/dev/sr0"_s}, "There is no disc in the DVD drive."},
      {{kDiscIn, u"/dev/sr0"_s, true},
       "The disc in the DVD drive is encrypted, and libdvdcss, which could read it, is not "
       "installed."},
      {{kDiscIn, u"/dev/sr0"_s, false, 0b0000'0010, 2},
       "The disc in the DVD drive is made for another region than 2, that of the drive."},
      {{kDiscIn, u"/dev/sr0"_s, false, 0b1111'1101, 2}, ""},
      {{kDiscIn, u"/dev/sr0"_s, false, 0b1111'1111, 0}, ""},
  };
  for (const auto& row : rows) {
    QString device;
    EXPECT_EQ(dvdTrouble({}, row.look, false, &device), QString::fromUtf8(row.why));
    EXPECT_EQ(device, row.look.device);
  }
  EXPECT_EQ(DvdDriveLinux({u"/nonexistent"_s, u"/dev/null"_s}).look(true).state,
            DvdDriveLook::NoDrive);
}

}  // namespace
}  // namespace korvane

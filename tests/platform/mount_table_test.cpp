#include "platform/files/mount_table.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(MountTable, keepsWhatFilesAreKeptOn) {
  const QByteArray table =
      "22 28 0:20 / /proc rw,nosuid shared:5 - proc proc rw\n"
      "28 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw\n"
      "30 28 259:1 / /boot/efi rw shared:2 - vfat /dev/nvme0n1p1 rw\n"
      "31 28 7:1 / /snap/core/1 ro shared:3 - squashfs /dev/loop1 ro\n"
      "32 28 8:1 / /media/My\\040Music\\134x rw - fuseblk /dev/sda1 rw\n"
      "33 28 8:1 / /srv/again rw - fuseblk /dev/sda1 rw\n"
      "34 28 0:50 / /net/songs rw shared:9 master:1 - nfs4 server:/songs rw\n"
      "35 28 0:51 / /net/share rw - cifs //server/share rw\n"
      "36 28 0:52 / /tmp rw - tmpfs tmpfs rw\n"
      "37 28 0:53 /@home /home rw - btrfs /dev/sdb1 rw\n"
      "38 28 0:53 /@data /data rw - btrfs /dev/sdb1 rw\n"
      "39 28 8:9 / /half rw shared:1 - ext4\n"
      "40 28\n"
      "\xFF - -\n";
  const QStringList expected{u"/"_s,          u"/media/My Music\uEF5Cx"_s,
                             u"/net/songs"_s, u"/net/share"_s,
                             u"/home"_s,      u"/data"_s};
  EXPECT_EQ(volumesOf(table), expected);
  EXPECT_EQ(volumesOf(""), QStringList());
}

}  // namespace
}  // namespace korvane

#include "platform/files/mount_table.h"

#include "platform/path_text.h"

namespace korvane {
namespace {

enum Field { Device = 2, Root = 3, MountPoint = 4, FirstOptional = 6 };

// The table writes blanks, tabs, line breaks and '\' as \ooo.
QByteArray unescaped(const QByteArray& field) {
  QByteArray bytes;
  for (qsizetype i = 0; i < field.size(); ++i) {
    bool octal = false;
    const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&octal, 8) : 0;
    bytes.append(octal ? static_cast<char>(code) : field[i]);
    if (octal) i += 3;
  }
  return bytes;
}

bool keepsFiles(const QByteArray& type, const QByteArray& source) {
  static const QByteArrayList kNetwork{"nfs",  "nfs4", "cifs", "smb3",  "smbfs",    "9p",
                                       "ceph", "afs",  "coda", "davfs", "virtiofs", "zfs"};
  static const QByteArrayList kNetworkPrograms{"fuse.sshfs",  "fuse.rclone", "fuse.glusterfs",
                                               "fuse.davfs2", "fuse.s3fs",   "fuse.curlftpfs"};
  if (kNetwork.contains(type) || kNetworkPrograms.contains(type)) return true;
  return source.startsWith("/dev/") && type != "squashfs" && type != "devtmpfs" && type != "erofs";
}

}  // namespace

QStringList mountsOf(QByteArrayView mountInfo, const QString& device) {
  QStringList points;
  for (const QByteArray& line : mountInfo.toByteArray().split('\n')) {
    const QByteArrayList fields = line.split(' ');
    const qsizetype dash = fields.indexOf("-", FirstOptional);
    if (dash < 0 || dash + 2 >= fields.size()) continue;
    if (toPath(unescaped(fields[dash + 2])) == device)
      points << toPath(unescaped(fields[MountPoint]));
  }
  return points;
}

QStringList volumesOf(QByteArrayView mountInfo) {
  QStringList volumes;
  QList<QPair<QByteArray, QByteArray>> seen;
  for (const QByteArray& line : mountInfo.toByteArray().split('\n')) {
    const QByteArrayList fields = line.split(' ');
    const qsizetype dash = fields.indexOf("-", FirstOptional);
    if (dash < 0 || dash + 2 >= fields.size()) continue;
    if (!keepsFiles(fields[dash + 1], fields[dash + 2])) continue;
    const QByteArray point = unescaped(fields[MountPoint]);
    const QPair<QByteArray, QByteArray> volume(fields[Device], fields[Root]);
    if (point == "/boot" || point.startsWith("/boot/") || seen.contains(volume)) continue;
    seen.append(volume);
    volumes.append(toPath(point));
  }
  return volumes;
}

}  // namespace korvane

// A home with databases of disc names, and what a look-up finds in them.
#pragma once

#include "core/log.h"
#include "platform/files/disk_file_system.h"
#include "ripper/names/cls_cddb.h"
#include "ripper/names/disc_database.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_packet_drive.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {

struct NamesWorld {
  TemporaryHome home;
  DiskFileSystem files;
  FakeClock clock;
  FakePacketDrive packets;
  Log log{files, clock, home.path()};

  // An empty database of the home, to be filled with `sql`.
  QString database(const QString& name, const QByteArray& sql = {}) {
    const QString path = home.put(name, emptyDiscDatabase());
    sql::Connection(path, sql::Connection::ReadWrite).script(sql.constData());
    return path;
  }
  clscddb look(const QString& cddbPath = u"NO"_s) {
    return clscddb({files, packets, log, home.path(), cddbPath});
  }
  QString album(const QString& discId, bool mine = false, const QString& cddbPath = u"NO"_s) {
    const auto names = look(cddbPath).GetInfo(discId, mine);
    return names ? names->album : u"none"_s;
  }
  qsizetype complaints() { return home.get(u"log.txt"_s).count("in procedure GetInfo of"); }
};

}  // namespace korvane

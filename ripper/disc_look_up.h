// What a disc and its tracks are called: asked in the databases of this machine, then at a server
// on the network, both away from the event loop.
#pragma once

#include "core/settings.h"
#include "platform/disc_drive.h"
#include "ripper/names/cddb_client.h"
#include "ripper/names/cls_cddb.h"

namespace korvane {

struct FoundNames {
  // Disc: its CD-TEXT, with key CddbAlways. Databases and Internet: names that need not be kept.
  enum From { Nobody, LocalDatabase, MyDatabase, Internet, Disc };
  From from = Nobody;
  QString artist, album, year, genre;
  QStringList titles;  // of track 1 on; those of a database end at 35
  bool known() const { return from == LocalDatabase || from == MyDatabase || from == Internet; }
};

class DiscLookUp {
 public:
  struct Uses {  // none owned
    FileSystem& files;
    PacketDrive& packets;
    Http& http;
    Pump& pump;
    const Settings& settings;
    const Log& log;
  };
  explicit DiscLookUp(Uses uses) : uses_(uses), client_(uses.http) {}

  // Ends the look-up before it, of which nothing is heard any more. What it finds comes from the
  // event loop, never from inside the call.
  void begin(const QString& source, const Disc& disc);
  void cancel();
  bool running() const { return round_ != nullptr; }

  std::function<void(const QString& text)> status = [](const QString&) {};
  std::function<void(const QString& discId)> identified = [](const QString&) {};  // empty: unknown
  std::function<void(const FoundNames& names)> found = [](const FoundNames&) {};  // once, last

 private:
  struct Round {
    korvane::Disc disc;
  };
  void askServer();
  void end(const FoundNames& names);

  const Uses uses_;
  CddbClient client_;
  std::shared_ptr<Round> round_;  // of the look-up that runs
};

}  // namespace korvane

// korvane-listener: a Music Listener, which plays out of this machine what consoles ask for.
#include <QFileInfo>
#include <QSysInfo>

#include "library/tags/any_cover.h"
#include "platform/files/disk_file_system.h"
#include "platform/net/winsock_qt.h"
#include "platform/sound/media_player_vlc.h"
#include "platform/sound/mixer_alsa.h"
#include "services/listener/music_service.h"
#include "services/listener/registration.h"
#include "services/server/service_main.h"

namespace {

using namespace korvane;

constexpr int kMasterPort = 7410, kPort = 7411;

constexpr Option kOptions[] = {
    {"root", "DIR",
     "a folder with music; nothing outside of it is ever opened; may be given\n"
     "more than once"},
    {"map", "FROM=DIR",
     "a path that begins with FROM means what stands below DIR, as\n"
     "Z:\\Music=/srv/music; DIR is a root too"},
    {"master", "HOST[:PORT]", "registers with that Master Listener; port 7410 by default"},
    {"name", "TEXT", "its name in the lists of consoles; the machine's by default"},
    {"advertise", "ADDRESS",
     "where consoles find it; the address of --bind, else the one that\n"
     "reaches the Master Listener"},
    {"tick", "MS", "between reports of the time, 1000 by default"},
    {"no-volume", nullptr, "does not tell its volume to a console that connects"},
};

constexpr ServiceFrame kFrame{"korvane-listener",
                              "A Music Listener: plays on this machine what consoles ask for.",
                              kOptions, kPort};

// The canonical folder; empty with `error` when there is none.
QString folder(const QString& given, QString* error) {
  const QString path = QFileInfo(given).canonicalFilePath();
  if (!path.isEmpty() && QFileInfo(path).isDir() && path != "/"_L1) return path;
  *error = u"%1 is no folder that can be a root"_s.arg(given);
  return {};
}

std::optional<SongRoots> songRoots(const Options& options, QString* error) {
  SongRoots roots;
  for (const QString& map : options.values("map")) {
    const qsizetype sign = map.indexOf(u'=');
    const QString to = folder(map.mid(sign + 1), error);
    if (sign < 1 || to.isEmpty()) {
      *error = u"--map takes FROM=DIR with a folder DIR, not %1"_s.arg(map);
      return std::nullopt;
    }
    roots.maps << SongRoots::Map{map.first(sign), to};
  }
  for (const QString& given : options.values("root")) {
    const QString root = folder(given, error);
    if (root.isEmpty()) return std::nullopt;
    roots.roots << root;
  }
  for (const SongRoots::Map& map : roots.maps)
    if (!roots.roots.contains(map.to)) roots.roots << map.to;
  if (!roots.roots.isEmpty()) return roots;
  *error = u"--root DIR is missing: the folder with the music"_s;
  return std::nullopt;
}

// HOST, HOST:PORT or [ADDRESS]:PORT of --master into the socket. False with `error`.
bool setMaster(const QString& text, Winsock& socket, QString* error) {
  const bool bare = text.count(u':') > 1 && !text.startsWith(u'[');
  const qsizetype colon = bare ? -1 : text.indexOf(u':', text.indexOf(u']') + 1);
  socket.RemoteHost = text.first(colon < 0 ? text.size() : colon).remove(u'[').remove(u']');
  bool isPort = true;
  socket.RemotePort = colon < 0 ? kMasterPort : text.mid(colon + 1).toUShort(&isPort);
  if (isPort && socket.RemotePort > 0 && !socket.RemoteHost.isEmpty()) return true;
  *error = u"--master takes HOST or HOST:PORT, not %1"_s.arg(text);
  return false;
}

QString advertised(const Options& options, const QString& bind) {
  const bool any = bind == "0.0.0.0"_L1 || bind == "::"_L1;
  return options.value("advertise", any ? QString() : bind);
}

int serve(const Options& options, const ServerOptions& chosen, QString* error) {
  const std::optional<SongRoots> roots = songRoots(options, error);
  const auto tickMs = roots ? options.number("tick", 100, 60'000, 1000, error) : std::nullopt;
  if (!tickMs) return 1;
  WinsockQt toMaster(5000);
  if (options.has("master") && !setMaster(options.value("master"), toMaster, error)) return 1;

  ServiceParts parts(kFrame.program, chosen);
  DiskFileSystem files;
  MediaPlayerVlc player(parts.pump);
  MixerAlsa mixer;
  if (!mixer.open()) parts.log.say(u"no mixer; the player's own volume serves"_s);
  TickerQt musicTimer, masterTimer;
  const MusicService service({parts.server,
                              files,
                              player,
                              mixer,
                              musicTimer,
                              parts.pump,
                              parts.log,
                              &anyCoverArtBytes,
                              {*roots, chosen.encoding, *tickMs, !options.has("no-volume")}});
  if (!parts.listen(error)) return 1;
  Registration registration(
      toMaster, masterTimer, parts.log,
      {options.value("name", QSysInfo::machineHostName()), advertised(options, chosen.bind),
       parts.tcp.port(), u"MUSIC"_s, chosen.encoding});
  if (options.has("master")) registration.start();
  return parts.run();
}

}  // namespace

int main(int argc, char** argv) {
  return serviceMain(argc, argv, kFrame, serve);
}

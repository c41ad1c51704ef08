#include "services/listener/listener_program.h"

#include <QFileInfo>
#include <list>

#include "library/tags/any_cover.h"
#include "platform/files/disk_file_system.h"
#include "platform/sound/media_player_vlc.h"
#include "platform/sound/mixer_alsa.h"
#include "services/listener/movie_service.h"
#include "services/listener/music_service.h"
#include "services/listener/registered.h"
#include "services/server/service_main.h"

namespace korvane {

namespace {

constexpr int kPort = 7411;

constexpr Option kOptions[] = {
    {"root", "DIR",
     "a folder with music; nothing outside of it is ever opened; may be given\n"
     "more than once"},
    {"movie-root", "DIR",
     "the same with movies, files and DVD folders: they show on this machine's\n"
     "screen; may be given more than once, also without --root"},
    {"dvd", "PATH", "the DVD that plays: a folder or a device; the first drive by default"},
    {"screen", "N", "the screen for movies, from 0; or WxH+X+Y for a window at that place"},
    {"map", "FROM=DIR",
     "a path that begins with FROM means what stands below DIR, as\n"
     "Z:\\Music=/srv/music; DIR is a root too, of\nwhat is played"},
    kMasterOption,
    kNameOption,
    kAdvertiseOption,
    {"tick", "MS", "between reports of the time, 1000 by default"},
    {"no-volume", nullptr, "does not tell its volume to a console that connects"},
};

constexpr ServiceFrame kFrame{
    "korvane-listener",
    "A Listener: plays on this machine the music and movies that consoles ask for.", kOptions,
    kPort};

// The canonical folder; empty with `error` when there is none.
QString folder(const QString& given, QString* error) {
  const QString path = QFileInfo(given).canonicalFilePath();
  if (!path.isEmpty() && QFileInfo(path).isDir() && path != "/"_L1) return path;
  *error = u"%1 is no folder that can be a root"_s.arg(given);
  return {};
}

// Those that option names, and those of the maps below them. Nothing with `error` for one that is
// none.
std::optional<MediaRoots> rootsOf(const Options& options, const char* name, QString* error) {
  MediaRoots roots;
  for (const QString& given : options.values(name)) {
    const QString root = folder(given, error);
    if (root.isEmpty()) return std::nullopt;
    roots.roots << root;
  }
  for (const QString& map : options.values("map")) {
    const qsizetype sign = map.indexOf(u'=');
    const QString to = folder(map.mid(sign + 1), error);
    if (sign < 1 || to.isEmpty()) {
      *error = u"--map takes FROM=DIR with a folder DIR, not %1"_s.arg(map);
      return std::nullopt;
    }
    roots.maps << MediaRoots::Map{map.first(sign), to};
  }
  for (const MediaRoots::Map& map : roots.maps)
    if (!roots.roots.contains(map.to)) roots.roots << map.to;
  return roots;
}

// What the command line chose, once it has been found right.
struct Chosen {
  MediaRoots songs, movies;
  bool playsMusic = false, playsMovies = false;
  int tickMs = 1000;
};

std::optional<Chosen> chosenOf(const Options& options, QString* error) {
  const auto songs = rootsOf(options, "root", error);
  const auto movies = songs ? rootsOf(options, "movie-root", error) : std::nullopt;
  const auto tickMs = movies ? options.number("tick", 100, 60'000, 1000, error) : std::nullopt;
  if (!tickMs) return std::nullopt;
  Chosen chosen{*songs, *movies, false, wantsScreen(options), *tickMs};
  chosen.playsMusic = options.has("root") || (options.has("map") && !chosen.playsMovies);
  if (chosen.playsMusic || chosen.playsMovies) return chosen;
  *error = u"--root DIR is missing: the folder with the music; or --movie-root DIR"_s;
  return std::nullopt;
}

// The music of a Listener with what it plays through.
struct Music {
  Music(ServiceParts& parts, ListenerService& listener, const FileSystem& files,
        const Chosen& chosen)
      : player(parts.pump),
        service({listener,
                 files,
                 player,
                 timer,
                 parts.pump,
                 parts.log,
                 &anyCoverArtBytes,
                 {chosen.songs, chosen.tickMs}}) {}
  MediaPlayerVlc player;
  TickerQt timer;
  MusicService service;
};

struct Movies {
  Movies(ServiceParts& parts, ListenerService& listener, const FileSystem& files,
         const Chosen& chosen, const QString& dvd, MovieDoors given)
      : doors(std::move(given)),
        service({listener,
                 files,
                 *doors.video,
                 *doors.dvd,
                 *doors.screen,
                 timer,
                 parts.log,
                 {chosen.movies, dvd, chosen.tickMs}}) {}
  const MovieDoors doors;
  TickerQt timer;
  MovieService service;
};

}  // namespace

bool wantsScreen(const Options& options) {
  return options.has("movie-root") || options.has("dvd");
}

int runListener(const QStringList& arguments, const MakeMovieDoors& makeDoors) {
  const auto serve = [&](const Options& options, const ServerOptions& given, QString* error) {
    const std::optional<Chosen> chosen = chosenOf(options, error);
    if (!chosen) return 1;
    std::optional<HostPort> master;
    if (options.has("master") && !(master = masterOf(options, error))) return 1;

    ServiceParts parts(kFrame.program, given);
    const DiskFileSystem files;
    MixerAlsa mixer;
    if (!mixer.open()) parts.log.say(u"no mixer; the player's own volume serves"_s);
    ListenerService listener({parts.server, mixer, given.encoding, !options.has("no-volume")});
    std::optional<Music> music;
    std::optional<Movies> movies;
    if (chosen->playsMusic) music.emplace(parts, listener, files, *chosen);
    if (chosen->playsMovies) {
      MovieDoors doors = makeDoors(parts.pump, options.value("screen", u"0"_s), error);
      if (!doors.screen) return 1;
      movies.emplace(parts, listener, files, *chosen, options.value("dvd"), std::move(doors));
    }
    if (!parts.listen(error)) return 1;
    std::list<Registered> registered;
    for (const auto& [plays, type] :
         {std::pair(chosen->playsMusic, u"MUSIC"_s), {chosen->playsMovies, u"MOVIES"_s}}) {
      if (plays && master)
        registered.emplace_back(options, given, *master, parts.tcp.port(), type, parts.log);
    }
    return parts.run();
  };
  return serviceRun(kFrame, arguments, serve);
}

}  // namespace korvane

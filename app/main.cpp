// korvane: the command line, then Sub Main.
#include <QApplication>
#include <QIcon>

#include <cstdio>

#include "app/command_line.h"
#include "app/console.h"
#include "app/home.h"
#include "app/tools.h"
#include "platform/disc/cd_drives_udisks.h"
#include "platform/disc/disc_reader_cdio.h"
#include "platform/disc/packet_drive_linux.h"
#include "platform/disc/reading_drive.h"
#include "platform/files/desktop_trash.h"
#include "platform/files/disk_file_system.h"
#include "platform/files/home_lock.h"
#include "platform/imaging/picture_codecs.h"
#include "platform/machine/detached_programs.h"
#include "platform/machine/login_session.h"
#include "platform/machine/screen_saver_power.h"
#include "platform/machine/system_clock.h"
#include "platform/net/ftp_curl.h"
#include "platform/net/http_curl.h"
#include "platform/net/network_linux.h"
#include "platform/net/winsock_qt.h"
#include "platform/printing/printing_qt.h"
#include "platform/ripping/cd_ripper_cdio.h"
#include "platform/sound/media_player_vlc.h"
#include "platform/sound/mixer_alsa.h"
#include "platform/video/dvd_player_vlc.h"
#include "platform/video/movie_stills_vlc.h"
#include "platform/video/video_player_vlc.h"
#include "view/drawing/theme_check.h"
#include "view/remote/control_server.h"
#include "view/window/qt_pump.h"
#include "view/window/screen_pointer.h"
#include "view/window/system_box.h"
#include "view/window/tray_icon.h"
#include "view/window/window_host.h"

namespace korvane {
namespace {

int complain(const QString& text) {
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  return 1;
}

int checkTheme(const QString& home, FileSystem& files, Pump& pump) {
  AppState state;
  Settings settings(files, pump, state, home);
  state.gTheme = settings.upper(key::Theme);
  Graphics graphics(files, state, home);
  if (!graphics.themeExists()) return complain(u"There is no theme "_s + state.gTheme);
  const QStringList faults = themeFaults(graphics, Palette(settings));
  for (const QString& fault : faults) std::printf("%s\n", qUtf8Printable(fault));
  std::printf("%s: %lld faults\n", qUtf8Printable(state.gTheme),
              static_cast<long long>(faults.size()));
  return faults.isEmpty() ? 0 : 1;
}

int show(const CommandLine& line, const QString& home, DiskFileSystem& files, QtPump& pump,
         PressGate& gate) {
  SystemClock clock;
  RandomChance chance(clock);
  MediaPlayerVlc player(pump);
  VideoPlayerVlc video(pump);
  DvdPlayerVlc dvd(pump);
  MovieStillsVlc stills(pump);
  PictureCodecs imaging;
  DesktopTrash trash;
  PrintingQt printing;
  const auto reader = std::make_shared<DiscReaderCdio>();
  ReadingDrive disc(pump, player, reader);
  CdRipperCdio ripper(pump, reader, makeCdDrives(pump));
  PacketDriveLinux packets;
  ScreenSaverPower screenPower;
  LoginSession session;
  MixerAlsa mixer;
  TrayIcon tray(pump, QIcon(home + u"/krvgraphics/MERIDIAN/logo.svg"_s));
  MessageBox box;
  DetachedPrograms programs;
  HomeLock lock(home);
  NetworkLinux network;
  HttpCurl http(pump);
  const auto makeWinsock = [] { return std::make_unique<WinsockQt>(); };
  const auto makeFtp = [] { return std::make_unique<FtpCurl>(); };
  System system{pump,     clock,    chance, files,   player,  video,       dvd,     stills, imaging,
                printing, trash,    disc,   ripper,  packets, screenPower, session, mixer,  tray,
                box,      programs, lock,   network, http,    makeWinsock, makeFtp};
  WindowHost* window = nullptr;
  bool ended = false;  // also while the start still runs its own turns of the event loop
  const auto end = [&ended] {
    ended = true;
    QCoreApplication::exit(0);
  };
  Console console(
      system,
      [&](Graphics& graphics) {
        auto made =
            std::make_unique<WindowHost>(graphics, gate, line.windowed ? line.size : QSize());
        window = made.get();
        if (line.place) window->stage().move(*line.place);
        return made;
      },
      home, end);
  pump.wall.failed = window->wall.failed = [&](const std::exception& failure) {
    console.desk.failed(QString::fromUtf8(failure.what()), "doEvents", "Module Pump");
  };
  window->closeAsked = [&] { pump.later([&] { console.desk.window.imgExit_Click(); }); };
  window->setMovable(console.desk.settings.flag(key::MOVEMAIN));
  window->setSinglePress(console.desk.settings.flag(key::SinglePress));
  ScreenPointer pointer(console.desk.screen);
  ControlServer control(*window);
  control.commands().quit = end;
  if (!line.control.isEmpty()) {
    QString error;
    if (!control.listen(line.control, &error)) return complain(error);
  }
  if (!console.SubMain()) return 1;
  const int result = ended ? 0 : QCoreApplication::exec();
  console.desk.startup.closeit();
  window->close();
  return result;
}

int run(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  QString error;
  const std::optional<CommandLine> line = CommandLine::parse(arguments, &error);
  if (!line) return complain(error);
  if (line->help || line->version) {
    std::printf("%s", qUtf8Printable(line->help ? CommandLine::usage()
                                                : u"korvane " KORVANE_VERSION "\n"_s));
    return 0;
  }
  const bool tool = !line->scan.isEmpty() || !line->list.isEmpty() || !line->importCddb.isEmpty() ||
                    line->checkTheme;
  if (tool) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName(u"korvane"_s);
  QApplication::setDesktopFileName(u"korvane"_s);
  QApplication::setQuitOnLastWindowClosed(false);

  DiskFileSystem files;
  PressGate gate;
  QtPump pump(gate);
  const QString beside = QCoreApplication::applicationDirPath();
  const QString home = chooseHome(line->home, beside, files);
  const bool first = !files.FileExists(home + u"/Morvanta.INI"_s);
  if (!makeHome(home, starterDirectory(beside, files), files, &error)) return complain(error);
  if (first) scanStarterSongs(home, files, pump);
  if (!line->list.isEmpty()) return listLibrary(home, line->list);
  if (!line->scan.isEmpty()) return scanDirectory(home, line->scan, files, pump);
  if (!line->importCddb.isEmpty()) return importDiscNames(home, line->importCddb, files, pump);
  if (line->checkTheme) return checkTheme(home, files, pump);
  return show(*line, home, files, pump, gate);
}

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
  return korvane::run(argc, argv);
}

// korvane: the command line, then Sub Main.
#include <QApplication>

#include <cstdio>

#include "app/command_line.h"
#include "app/console.h"
#include "app/doors.h"
#include "app/home.h"
#include "app/tools.h"
#include "platform/files/disk_file_system.h"
#include "view/drawing/theme_check.h"
#include "view/remote/control_server.h"
#include "view/window/qt_pump.h"
#include "view/window/screen_pointer.h"
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
  Doors doors(pump, files, home);
  WindowHost* window = nullptr;
  bool ended = false;  // also while the start still runs its own turns of the event loop
  const auto end = [&ended] {
    ended = true;
    QCoreApplication::exit(0);
  };
  Console console(
      doors.system,
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

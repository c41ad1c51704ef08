#include "app/command_line.h"

#include <QRegularExpression>

namespace korvane {
namespace {

// WxH or WxH+X+Y.
bool parseWindow(const QString& text, CommandLine& line) {
  static const QRegularExpression form(u"^(\\d+)x(\\d+)(?:\\+(\\d+)\\+(\\d+))?$"_s);
  const QRegularExpressionMatch found = form.match(text);
  line.size = {found.captured(1).toInt(), found.captured(2).toInt()};
  if (found.hasCaptured(3))
    line.place = QPoint(found.captured(3).toInt(), found.captured(4).toInt());
  return line.size.width() >= 320 && line.size.height() >= 240;
}

}  // namespace

QString CommandLine::usage() {
  return u"korvane [--home DIR] [--windowed[=WxH[+X+Y]]] [--control SOCKET]\n"
         "        [--check-theme] [--scan DIR] [--list artists|albums|songs] "
         "[--import-cddb PATH]\n"
         "        [--version] [--help]\n\n"
         "  --home DIR        the program directory: settings, database, themes and log\n"
         "  --windowed[=WxH]  a window in place of the full screen, 1280x800 without one;\n"
         "                    +X+Y is its place on the screen\n"
         "  --control SOCKET  answers korvanectl on that local socket\n"
         "  --check-theme     lists what the theme lacks, and what is too small or too faint\n"
         "  --scan DIR        adds the songs below DIR to the library and ends\n"
         "  --list WHAT       prints artists, albums or songs of the library and ends\n"
         "  --import-cddb PATH\n"
         "                    brings the disc names of a freedb or gnudb dump, a tar or a "
         "directory\n"
         "                    of records, into the databases of CDDBPath and ends\n"
         "  --version         prints the version\n"
         "  --help            prints this\n"_s;
}

std::optional<CommandLine> CommandLine::parse(const QStringList& arguments, QString* error) {
  CommandLine line;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    QString name = arguments[i], value;
    bool given = false;
    if (const qsizetype sign = name.indexOf(u'='); sign > 0) {
      value = name.mid(sign + 1);
      name = name.left(sign);
      given = true;
    }
    const auto operand = [&]() -> bool {
      if (!given && i + 1 < arguments.size()) value = arguments[++i];
      if (value.isEmpty()) *error = u"korvane: %1 needs a value"_s.arg(name);
      return !value.isEmpty();
    };
    if (name == "--windowed"_L1) {
      line.windowed = true;
      if (given && !parseWindow(value, line)) {
        *error = u"korvane: --windowed takes a size such as 1280x800, of at least 320x240"_s;
        return std::nullopt;
      }
    } else if (name == "--home"_L1 || name == "--control"_L1 || name == "--scan"_L1 ||
               name == "--list"_L1 || name == "--import-cddb"_L1) {
      if (!operand()) return std::nullopt;
      QString& target = name == "--home"_L1      ? line.home
                        : name == "--control"_L1 ? line.control
                        : name == "--scan"_L1    ? line.scan
                        : name == "--list"_L1    ? line.list
                                                 : line.importCddb;
      target = value;
    } else if (name == "--check-theme"_L1) {
      line.checkTheme = true;
    } else if (name == "--version"_L1) {
      line.version = true;
    } else if (name == "--help"_L1 || name == "-h"_L1) {
      line.help = true;
    } else {
      *error = u"korvane: %1 is not understood; see --help"_s.arg(arguments[i]);
      return std::nullopt;
    }
  }
  if (!line.list.isEmpty() && line.list != "artists"_L1 && line.list != "albums"_L1 &&
      line.list != "songs"_L1) {
    *error = u"korvane: --list takes artists, albums or songs"_s;
    return std::nullopt;
  }
  return line;
}

}  // namespace korvane

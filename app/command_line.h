// The command line of korvane.
#pragma once

#include <optional>

#include <QPoint>
#include <QSize>

#include "platform/text.h"

namespace korvane {

struct CommandLine {
  QString home;           // --home; empty for the usual places
  bool windowed = false;  // --windowed[=WxH[+X+Y]]
  QSize size{1280, 800};
  std::optional<QPoint> place;  // of the window; the desktop's choice without one
  QString control;              // --control SOCKET
  bool checkTheme = false;
  QString scan;        // --scan DIR
  QString list;        // --list artists|albums|songs
  QString importCddb;  // --import-cddb PATH
  bool version = false, help = false;

  // Nothing with `error` in words when an argument is not understood.
  static std::optional<CommandLine> parse(const QStringList& arguments, QString* error);
  static QString usage();
};

}  // namespace korvane

#include "app/doors.h"

#include <QIcon>

namespace korvane {

Doors::Doors(QtPump& pump, DiskFileSystem& files, const QString& home)
    : player(pump),
      video(pump),
      dvd(pump),
      stills(pump),
      disc(pump, player, discs),
      ripper(pump, discs, makeCdDrives(pump)),
      tray(pump, QIcon(home + u"/krvgraphics/MERIDIAN/logo.svg"_s)),
      lock(home),
      http(pump),
      system{pump,
             clock,
             chance,
             files,
             player,
             video,
             dvd,
             stills,
             imaging,
             printing,
             trash,
             disc,
             ripper,
             packets,
             screenPower,
             session,
             mixer,
             tray,
             box,
             programs,
             lock,
             network,
             http,
             [] { return std::make_unique<WinsockQt>(); },
             [] { return std::make_unique<FtpCurl>(); }} {}

}  // namespace korvane

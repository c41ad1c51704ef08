// The doors of this machine: the bodies behind the ports, made once for a console. They cost
// nothing before their first use.
#pragma once

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
#include "platform/system.h"
#include "platform/video/dvd_player_vlc.h"
#include "platform/video/movie_stills_vlc.h"
#include "platform/video/video_player_vlc.h"
#include "view/window/qt_pump.h"
#include "view/window/system_box.h"
#include "view/window/tray_icon.h"

namespace korvane {

struct Doors {
  // The pump and the files are not owned and must outlive this; `home` is the program directory.
  Doors(QtPump& pump, DiskFileSystem& files, const QString& home);

  SystemClock clock;
  RandomChance chance{clock};
  MediaPlayerVlc player;
  VideoPlayerVlc video;
  DvdPlayerVlc dvd;
  MovieStillsVlc stills;
  PictureCodecs imaging;
  DesktopTrash trash;
  PrintingQt printing;
  const std::shared_ptr<DiscReaderCdio> discs = std::make_shared<DiscReaderCdio>();
  ReadingDrive disc;
  CdRipperCdio ripper;
  PacketDriveLinux packets;
  ScreenSaverPower screenPower;
  LoginSession session;
  MixerAlsa mixer;
  TrayIcon tray;
  MessageBox box;
  DetachedPrograms programs;
  HomeLock lock;
  NetworkLinux network;
  HttpCurl http;

  System system;  // all of them
};

}  // namespace korvane

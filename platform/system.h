// All doors to the outside in one hand, as the console is given them. Not owned; they outlive it.
#pragma once

#include "platform/cd_ripper.h"
#include "platform/clock.h"
#include "platform/disc_drive.h"
#include "platform/dvd_player.h"
#include "platform/file_system.h"
#include "platform/ftp_client.h"
#include "platform/http.h"
#include "platform/imaging.h"
#include "platform/machine.h"
#include "platform/media_player.h"
#include "platform/movie_stills.h"
#include "platform/network.h"
#include "platform/packet_drive.h"
#include "platform/printing.h"
#include "platform/programs.h"
#include "platform/pump.h"
#include "platform/trash.h"
#include "platform/video_player.h"
#include "platform/winsock.h"

namespace korvane {

struct System {
  Pump& pump;
  Clock& clock;
  Chance& chance;
  FileSystem& files;
  MediaPlayer& player;
  VideoPlayer& video;
  DvdPlayer& dvd;
  MovieStills& stills;
  Imaging& imaging;
  Printing& printing;
  Trash& trash;
  DiscDrive& disc;
  SwdCDRipper& ripper;
  PacketDrive& packets;
  ScreenPower& screenPower;
  Session& session;
  Mixer& mixer;
  Tray& tray;
  SystemBox& box;
  Programs& programs;
  OneInstance& instance;
  Network& network;
  Http& http;
  std::function<std::unique_ptr<Winsock>()> makeWinsock;  // a connection of the caller's own
  std::function<std::unique_ptr<FtpClient>()> makeFtp;    // the same
};

}  // namespace korvane

// Every door to the outside as a fake, bundled as the console is given them. The player and the
// sockets come from whoever tests with them.
#pragma once

#include "platform/system.h"
#include "tests/fakes/fake_cd_ripper.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_disc_drive.h"
#include "tests/fakes/fake_dvd_player.h"
#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/fake_ftp_client.h"
#include "tests/fakes/fake_http.h"
#include "tests/fakes/fake_imaging.h"
#include "tests/fakes/fake_machine.h"
#include "tests/fakes/fake_movie_stills.h"
#include "tests/fakes/fake_network.h"
#include "tests/fakes/fake_packet_drive.h"
#include "tests/fakes/fake_printing.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/fake_trash.h"
#include "tests/fakes/fake_video_player.h"

namespace korvane {

struct FakeSystem {
  FakeClock clock;
  FakePump pump{clock};
  FakeChance chance;
  FakeFileSystem files;
  FakeVideoPlayer video;
  FakeDvdPlayer dvd;
  FakeMovieStills stills;
  FakeImaging imaging;
  FakePrinting printing;
  FakeTrash trash{files};
  FakeDiscDrive disc;
  FakeCdRipper ripper;
  FakePacketDrive packets;
  FakeScreenPower screenPower;
  FakeSession session;
  FakeMixer mixer;
  FakeTray tray;
  FakeBox box;
  FakePrograms programs;
  FakeInstance instance;
  FakeNetwork network;
  FakeHttp http;
  FakeFtpServer ftp;

  // `disk` and `codecs` where files and pictures must be real ones. Refers to this and to the
  // arguments.
  System with(MediaPlayer& player, std::function<std::unique_ptr<Winsock>()> makeWinsock,
              FileSystem* disk = nullptr, Imaging* codecs = nullptr) {
    FileSystem& used = disk ? *disk : files;
    Imaging& decoders = codecs ? *codecs : imaging;
    return {pump,
            clock,
            chance,
            used,
            player,
            video,
            dvd,
            stills,
            decoders,
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
            instance,
            network,
            http,
            std::move(makeWinsock),
            [this] { return std::make_unique<FakeFtpClient>(ftp); }};
  }
};

}  // namespace korvane

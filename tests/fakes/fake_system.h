// Every door to the outside as a fake, bundled as the console is given them. The player and the
// sockets come from whoever tests with them.
#pragma once

#include "platform/system.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_disc_drive.h"
#include "tests/fakes/fake_file_system.h"
#include "tests/fakes/fake_machine.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/fake_pump.h"

namespace korvane {

struct FakeSystem {
  FakeClock clock;
  FakePump pump{clock};
  FakeChance chance;
  FakeFileSystem files;
  FakeDiscDrive disc;
  FakeScreenPower screenPower;
  FakeSession session;
  FakeMixer mixer;
  FakeTray tray;
  FakeBox box;
  FakePrograms programs;
  FakeInstance instance;

  // `disk` where the files must be real ones. Refers to this and to the arguments.
  System with(MediaPlayer& player, std::function<std::unique_ptr<Winsock>()> makeWinsock,
              FileSystem* disk = nullptr) {
    FileSystem& used = disk ? *disk : files;
    return {pump,    clock, chance, used, player,   disc,     screenPower,
            session, mixer, tray,   box,  programs, instance, std::move(makeWinsock)};
  }
};

}  // namespace korvane

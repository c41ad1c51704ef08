// A console in a window, with the real files, a player that does nothing and the sockets that a
// mode wants. Draws without a display where there is none.
#pragma once

#include "app/console.h"
#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/fake_system.h"
#include "view/window/qt_pump.h"
#include "view/window/window_host.h"

namespace korvane {

// Yields only while the console starts: a handler that yields would paint within its own time.
class StillPump : public QtPump {
 public:
  using QtPump::QtPump;
  void doEvents() override {
    if (!still) QtPump::doEvents();
  }
  bool still = false;
};

// In place of the fakes, where a mode measures the real ones. The pointers are not owned.
struct BenchDoors {
  std::function<std::unique_ptr<VideoPlayer>(Pump&)> makeVideo{};
  MovieStills* stills = nullptr;
  Imaging* imaging = nullptr;
};

struct BenchConsole {
  BenchConsole(const QString& home, std::function<std::unique_ptr<Winsock>()> makeWinsock,
               const BenchDoors& doors = {})
      : video(doors.makeVideo ? doors.makeVideo(pump) : nullptr),
        system{pump,
               fakes.clock,
               fakes.chance,
               files,
               player,
               video ? *video : fakes.video,
               fakes.dvd,
               doors.stills ? *doors.stills : fakes.stills,
               doors.imaging ? *doors.imaging : fakes.imaging,
               fakes.printing,
               fakes.trash,
               fakes.disc,
               fakes.ripper,
               fakes.packets,
               fakes.screenPower,
               fakes.session,
               fakes.mixer,
               fakes.tray,
               fakes.box,
               fakes.programs,
               fakes.instance,
               fakes.network,
               fakes.http,
               std::move(makeWinsock),
               {}},
        console(
            system,
            [this](Graphics& graphics) {
              auto made = std::make_unique<WindowHost>(graphics, gate, QSize(1280, 800));
              window = made.get();
              return made;
            },
            home, [] {}) {}
  ~BenchConsole() {
    console.desk.startup.closeit();
    window->close();
  }
  BenchConsole(const BenchConsole&) = delete;

  FakeSystem fakes;
  FakeMediaPlayer player;
  PressGate gate;
  StillPump pump{gate};
  DiskFileSystem files;
  std::unique_ptr<VideoPlayer> video;  // null where it is the fake
  System system;
  WindowHost* window = nullptr;
  Console console;
};

}  // namespace korvane

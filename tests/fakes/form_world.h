// A program directory on the disk, a message box and forms on no screen.
#pragma once

#include <gtest/gtest.h>

#include "core/dialog.h"
#include "core/log.h"
#include "core/settings.h"
#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_form_host.h"
#include "tests/fakes/fake_machine.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/full_disk.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {

inline bool apart(const Rect& a, const Rect& b) {
  return a.left >= b.right() || b.left >= a.right() || a.top >= b.bottom() || b.top >= a.bottom();
}

struct FormWorld : ::testing::Test {
  FormWorld() { state.gTheme = u"TEST"_s; }
  ~FormWorld() override { EXPECT_TRUE(host.allDone()) << "a form did not come up"; }

  QString stored(const SettingKey& key) const { return settings.raw(key); }
  void given(const SettingKey& key, const QString& value) { settings.write(key, value); }

  TemporaryHome home;
  FullDisk diskCalls;
  DiskFileSystem files{diskCalls};
  FakeClock clock;
  FakePump pump{clock};
  AppState state;
  Log settingsLog{files, clock, home.path()};
  Settings settings{files, pump, state, home.path(), &settingsLog};
  Palette palette{settings};
  FakeFormHost host;
  FakeMessages messages;
  DialogUses dialog{host, palette, messages};
  FakeBox box;
};

}  // namespace korvane

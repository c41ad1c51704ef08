// The machine below the console: its screen's power, its sound level, its shutdown, the tray, the
// system's own message box and the mark that a console already runs. All are called from the
// thread of the event loop.
#pragma once

#include <functional>

#include "platform/text.h"

namespace korvane {

// The desktop's own ways to turn the screen off.
class ScreenPower {
 public:
  struct Saved {
    bool powerOffActive = false, lowPowerActive = false;
    int powerOffTimeout = 0, lowPowerTimeout = 0;  // seconds
  };
  virtual ~ScreenPower() = default;
  virtual Saved read() const = 0;
  virtual void write(const Saved& values) = 0;  // nothing where the desktop has no such values
  virtual void setScreenSaverActive(bool on) = 0;
};

// The machine's run, from start to shutdown.
class Session {
 public:
  virtual ~Session() = default;
  // The flags of ExitWindowsEx: 1 shut down, 2 restart, 4 force, 8 power off. False when refused.
  virtual bool exitWindows(int flags) = 0;
};

// The speakers' volume of the machine, which all programs share. Steps count from 0.
class Mixer {
 public:
  virtual ~Mixer() = default;

  // The speakers' control of the first device; false when there is none.
  virtual bool open() = 0;

  // The same without holding up the caller, since a sound server may be asleep. `opened` is called
  // from the event loop.
  virtual void openLater(std::function<void(bool)> opened) { opened(open()); }

  virtual int maximum() const = 0;  // 0 while not open
  virtual int level() const = 0;
  virtual bool setLevel(int value) = 0;  // 0 to maximum(); false when the device has gone

  // `changed` is called when another program has set the level, and once when the device has gone;
  // maximum() is 0 from then on.
  virtual void watch(std::function<void()> changed) = 0;
};

// The desktop's notification area.
class Tray {
 public:
  virtual ~Tray() = default;
  // Shows an icon with `tip`; a double click on it runs `restore`. False on a desktop without one.
  virtual bool add(const QString& tip, std::function<void()> restore) = 0;
  virtual void remove() = 0;
};

// A box of the system's own looks, for what must be said before or after the theme is there.
class SystemBox {
 public:
  enum Answer { Ok = 1, Yes = 6, No = 7 };  // the numbers of MsgBox
  virtual ~SystemBox() = default;
  virtual Answer show(const QString& text, bool yesNo = false) = 0;  // Yields.
};

// The mark that this console runs. One that was taken is given back when this goes.
class OneInstance {
 public:
  virtual ~OneInstance() = default;
  virtual bool taken() = 0;  // another process has it; otherwise takes it
};

}  // namespace korvane

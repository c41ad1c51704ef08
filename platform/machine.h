// The machine below the console: its screen's power, its sound level, its shutdown, the tray, the
// system's own message box and the mark that a console already runs.
#pragma once

#include <functional>

#include "platform/text.h"

namespace korvane {

class ScreenPower {
 public:
  struct Saved {
    bool powerOffActive = false, lowPowerActive = false;
    int powerOffTimeout = 0, lowPowerTimeout = 0;  // seconds
  };
  virtual ~ScreenPower() = default;
  virtual Saved read() const = 0;
  virtual void write(const Saved& values) = 0;
  virtual void setScreenSaverActive(bool on) = 0;
};

class Session {
 public:
  virtual ~Session() = default;
  // The flags of ExitWindowsEx: 1 shut down, 2 restart, 4 force, 8 power off. False when refused.
  virtual bool exitWindows(int flags) = 0;
};

class Mixer {
 public:
  virtual ~Mixer() = default;
  virtual bool open() = 0;  // the speakers' control of the first device; false when there is none
  // The same without holding up the caller, since a sound server may be asleep. `opened` comes from
  // the event loop.
  virtual void openLater(std::function<void(bool)> opened) { opened(open()); }
  virtual int maximum() const = 0;
  virtual int level() const = 0;
  virtual bool setLevel(int value) = 0;  // 0 to maximum()
  // `changed` is called when another program has set the level, and once when the device has gone:
  // maximum() is 0 then.
  virtual void watch(std::function<void()> changed) = 0;
};

class Tray {
 public:
  virtual ~Tray() = default;
  // Shows an icon with `tip`; a double click on it runs `restore`. False when the desktop has no
  // tray.
  virtual bool add(const QString& tip, std::function<void()> restore) = 0;
  virtual void remove() = 0;
};

class SystemBox {
 public:
  enum Answer { Ok = 1, Yes = 6, No = 7 };
  virtual ~SystemBox() = default;
  virtual Answer show(const QString& text, bool yesNo = false) = 0;  // Yields.
};

class OneInstance {
 public:
  virtual ~OneInstance() = default;
  // True when another process runs this console; otherwise takes the mark.
  virtual bool taken() = 0;
};

}  // namespace korvane

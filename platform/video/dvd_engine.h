// The thread of the DVD player: what it adds to VlcEngine is the window, the place on the disc and
// the watch over the drive.
#pragma once

#include "platform/video/dvd_player_vlc.h"
#include "platform/vlc/vlc_engine.h"

namespace korvane {

class DvdPlayerVlc::Engine final : public VlcEngine {
 public:
  Engine(DvdPlayerVlc& owner, Pump& pump, QStringList arguments, QByteArray device);

  // On the thread only.
  void setWindow(quintptr window);  // without one nothing plays, and its place is kept
  void setDirectory(const QString& path);
  void watchDrive(bool on);  // tells of discs put in and taken out
  void play(int run);        // from the beginning, or on from where it stood
  void pause();
  void end();  // stops; the next play() begins the disc
  void navigate(libvlc_navigate_mode_t way);
  void showMenu();
  void chapter(int step);  // 1 or -1

 private:
  void event(const libvlc_event_t& event) override;
  void prepare() override;
  void poll() override;
  void begin();
  void halt();  // stops libVLC only
  void look();
  void lookAtDrive();
  void setPace();
  void conclude(int run, bool broken);
  DvdPlace place() const;
  QByteArray location() const;

  DvdPlayerVlc& owner_;  // touched from the event loop only
  const QByteArray givenDevice_;
  QString folder_;
  quintptr window_ = 0;
  bool wanted_ = false, paused_ = false, started_ = false;
  std::atomic<int> run_{0};
  DvdPlace last_, resume_;  // resume_: where to begin, when its title is none but 0
  bool menuSeen_ = false;
  int menuPolls_ = 0;  // left for a menu that was asked for to come
  bool watching_ = false;
  std::optional<bool> discIn_;
  std::chrono::steady_clock::time_point driveLookedAt_;
};

}  // namespace korvane

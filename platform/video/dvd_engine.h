// The thread of the DVD player: what it adds to VlcEngine is the window, the place on the disc, at
// which it looks twice a second while one plays, and the watch over the drive.
#pragma once

#include <atomic>
#include <chrono>
#include <optional>

#include "platform/video/dvd_player_vlc.h"
#include "platform/vlc/vlc_engine.h"

namespace korvane {

// A start of a disc: at a title's chapter and time, at its menu, or else with the disc's own first
// program.
struct DvdPlayerVlc::Start {
  int number = 0;  // marks the news of it
  QString directory;
  quintptr window = 0;
  bool paused = false, atMenu = false;
  int title = 0, chapter = 0;  // 0 for none
  qint64 milliseconds = 0;     // in that title
};

class DvdPlayerVlc::Engine final : public VlcEngine {
 public:
  using Clock = std::chrono::steady_clock;
  Engine(DvdPlayerVlc& owner, Pump& pump, QStringList arguments, std::shared_ptr<DvdDrive> drive);

  // On the thread only. Those below begin() do nothing while no disc plays.
  void watchDrive(bool on);  // the first look of a watch is no news
  void begin(const Start& start);
  void halt();  // the window shows its background again
  void hold(bool on);
  void navigate(libvlc_navigate_mode_t way);
  void showMenu(MenuId menu);
  void stepChapter(int by);
  void seekTo(qint64 milliseconds);
  void choose(TrackKind kind, int id);

 private:
  void event(const libvlc_event_t& event) override;
  void prepare() override;
  void poll() override;
  void setPace();
  void start();   // disc_ by start_
  void look();    // at what shows
  void arrive();  // at the place that start_ asks for, in steps, once its title shows
  bool titleBelieved(int title);
  void startMenu();
  View viewOf(int title) const;
  qint64 lengthOf(int title) const;
  void conclude(bool failed);
  void lookAtDrive();

  DvdPlayerVlc& owner_;  // touched from the event loop only
  const std::shared_ptr<DvdDrive> drive_;

  std::atomic<int> plays_{0};  // counts libVLC's starts, so that an old one's end is known
  std::atomic<bool> tracksChanged_{false};
  bool begun_ = false;
  Start start_;
  QString disc_;                              // the folder or device that libVLC reads
  Clock::time_point since_;                   // when it was begun, or sought
  bool shown_ = false;                        // a picture has come since
  bool arrived_ = false;                      // at the place of start_
  bool sought_ = false;                       // on the way there
  bool menuSeen_ = false;                     // since the disc's beginning
  bool menuAsked_ = false;                    // and libVLC's word for it is not to be believed yet
  std::optional<Clock::time_point> menuDue_;  // when it must have come
  View view_;                                 // as last reported

  bool watching_ = false;
  std::optional<bool> discIn_;  // as last seen
  Clock::time_point driveDue_;
};

}  // namespace korvane

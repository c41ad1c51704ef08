// Plays a movie file in MoviePic. Seconds everywhere.
#pragma once

#include "core/form/control.h"
#include "platform/video_player.h"

namespace korvane {

class clsMovies {
 public:
  // Both outlive it; the player's events stay with who owns this.
  clsMovies(VideoPlayer& player, Surface& MoviePic) : player_(player), MoviePic_(MoviePic) {}

  // With no movie at hand: plays the file in MoviePic, which shows; that it cannot be played
  // becomes known by the player's failed(). With one that is paused: goes on, over the whole
  // screen. Else nothing.
  void PlayMovie(const QString& path);
  void PauseMovie();    // nothing unless it plays; the picture stays
  void StopMovie();     // lets go of the file; MoviePic has no picture any more
  void ResizeWindow();  // over the whole screen, and back

  // "STOPPED", "PAUSED" or "PLAYING"; empty with no movie at hand.
  QString getState() const;
  double getduration() const { return player_.duration(); }  // 0 while it is not known
  double getPosition() const { return player_.position(); }
  void setPosition(double seconds) { player_.setPosition(seconds); }

  // The whole screen; set by who has it.
  std::function<void(bool on)> setFullScreen = [](bool) {};
  std::function<bool()> isFullScreen = [] { return false; };

 private:
  VideoPlayer& player_;
  Surface& MoviePic_;
};

}  // namespace korvane

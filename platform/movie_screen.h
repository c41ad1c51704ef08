// The screen of a machine that plays movies for others: one window on it, the whole screen or a
// part of it, black but for the picture, without a pointer. Called from the thread of the event
// loop.
#pragma once

#include "platform/dvd_player.h"
#include "platform/video_player.h"

namespace korvane {

class MovieScreen {
 public:
  virtual ~MovieScreen() = default;

  // Each takes the place of what showed before. The players are not owned; what showed is let go
  // before it ends, by showNothing() or by the end of the screen.
  virtual void showFrames(VideoPicture& picture) = 0;
  virtual void showDisc(DvdPlayer& player) = 0;  // has its native window when this returns
  virtual void showNothing() = 0;

  virtual void setLarge(bool large) = 0;  // the whole screen, or a third of its width and height
};

}  // namespace korvane

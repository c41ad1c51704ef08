// What the Movie Listener, or this seat in its place, tells the transport of the movies. The state
// of AppState has been set by then; captions and the slider are shown already.
#pragma once

#include "platform/text.h"

namespace korvane {

class MovieNews {
 public:
  virtual ~MovieNews() = default;

  // It plays: begun or gone on by itself, or at the word of another console.
  virtual void moviePlays() = 0;
  virtual void moviePaused() = 0;
  // The same, or what played is out of reach.
  virtual void movieStopped() = 0;
  // What was asked for cannot be played, with the reason for the user to read. Yields.
  virtual void movieFailed(const QString& text) = 0;
  virtual void movieTitled(const QString& title) = 0;  // of what plays
  virtual void movieScreenIsLarge() = 0;               // the picture fills the Listener's screen
};

}  // namespace korvane

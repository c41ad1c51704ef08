// The console: the desk, then its sides in the order of the house. It wires nothing and decides
// nothing; to add a side is to add a line here.
#pragma once

#include "ads/ads_side.h"
#include "control/control_side.h"
#include "core/desk.h"
#include "custom/custom_side.h"
#include "ftp/ftp_side.h"
#include "library/library_side.h"
#include "listener/listener_side.h"
#include "movies/movies_side.h"
#include "photos/photos_side.h"
#include "playback/playback_side.h"
#include "ripper/ripper_side.h"

namespace korvane {

class Console {
 public:
  // As the desk's.
  Console(System& system, const Desk::MakeHost& makeHost, QString home, std::function<void()> end);
  ~Console();

  bool SubMain();  // False when the program must end. Yields.

  Desk desk;
  LibrarySide library{desk};
  PhotosSide photos{desk};
  ListenerSide listener{desk};
  PlaybackSide playback{desk, library, listener};
  MoviesSide movies{desk, listener, playback};
  CustomSide custom{desk, library, listener, playback};
  AdsSide ads{desk};
  RipperSide ripper{desk, library, listener, playback, custom};
  ControlSide control{desk, listener};
  FtpSide ftp{desk};
};

}  // namespace korvane

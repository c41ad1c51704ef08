#include "ripper/ripper_side.h"

namespace korvane {

RipperSide::RipperSide(Desk&, LibrarySide&, ListenerSide&, PlaybackSide&, CustomSide&) {}

}  // namespace korvane

// Movies at this seat: who carries out the commands of the movie connection in the local role. The
// connection owns the words, the seat the players.
#pragma once

#include "platform/text.h"

namespace korvane {

// A command as ConnectionMovieSend takes it, without blanks at its ends; the target, "MOVIE" or
// "DVDP", in upper case.
struct MovieCommand {
  QString target, command, argument1, argument2;
};

class MovieSeat {
 public:
  virtual ~MovieSeat() = default;

  // Carries it out and answers by MovieConnection::localListenerReply, with the records that a
  // Movie Listener would send. Unknown ones are ignored. Yields.
  virtual void perform(const MovieCommand& command) = 0;
};

}  // namespace korvane

// Which song was asked for last, and what became of it: one that cannot be played gives way to the
// next.
#pragma once

#include <memory>

#include "listener/transport_news.h"
#include "platform/pump.h"

namespace korvane {

class SongRequests {
 public:
  explicit SongRequests(Pump& pump) : pump_(pump) {}   // which outlives it
  void setNews(TransportNews* news) { news_ = news; }  // not owned

  void asked();    // a song was sent to the player
  void stopped();  // a stop was sent to the player

  // What the player reports of it.
  void plays() { awaited_ = false; }
  void sounds() { failuresInARow_ = 0; }
  void failed();                       // nothing unless an answer is awaited
  void broke() { awaited_ = true; }    // it seemed to play; failed() follows
  void ended();                        // takes the next. Yields.
  void forget() { awaited_ = false; }  // the player is out of reach

  // The next song after a failed one is being sent: what sends it must not yield, since a list of
  // missing files would be walked on the stack.
  bool takingNext() const { return takingNext_; }

 private:
  void takeNext(int song, int inARow);  // Yields.

  Pump& pump_;
  TransportNews* news_ = nullptr;
  bool awaited_ = false;  // asked for and not answered
  bool takingNext_ = false;
  int failuresInARow_ = 0;  // songs that could not be played since one sounded
  int number_ = 0;          // counts songs asked for and stops
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

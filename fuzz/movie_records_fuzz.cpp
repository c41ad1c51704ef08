// Deliveries of a Movie Listener to a console that watches it. A byte of 2 ends a delivery, one of
// 3 takes or leaves the thumb of the slider.
#include "tests/listener/movie_parts.h"

namespace {

using namespace korvane;

void require(bool held) {
  if (!held) __builtin_trap();
}

void deliver(MovieParts& parts, const QByteArray& delivery) {
  const bool held = parts.state.sliderHeld;
  const double before = parts.Slider1.value();
  parts.movieSocket.arrive(delivery);
  const double now = parts.Slider1.value(), end = parts.Slider1.maximum();
  require(!held || now == before);
  require(now >= 0 && end >= 0 && end < 1e9);
  require(parts.movieNews.heard.size() <= 2 * (delivery.count(kRecordEnd) + 1));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray stream(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  static MovieParts parts;
  parts.movies.ConnectionMovieClose();
  parts.movieSocket.setState(Winsock::Connected);
  parts.state.sliderHeld = false;
  parts.Slider1.value = 0;
  for (const QByteArray& delivery : stream.split('\2')) {
    if (delivery.startsWith('\3')) parts.state.sliderHeld = !parts.state.sliderHeld;
    deliver(parts, delivery);
    parts.movieNews.heard.clear();
    parts.movieNews.states.clear();
  }
  require(parts.movieSocket.sent.isEmpty());
  return 0;
}

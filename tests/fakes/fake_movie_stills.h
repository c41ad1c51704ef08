// Stills that come when the test says so.
#pragma once

#include "platform/movie_stills.h"

namespace korvane {

class FakeMovieStills : public MovieStills {
 public:
  void make(const QString& path, int, int, std::function<void(const MovieStill&)> done) override {
    asked << path;
    done_ = std::move(done);
  }
  bool busy() const override { return done_ != nullptr; }
  void stop() override { done_ = nullptr; }

  void give(const MovieStill& still) {
    if (const auto done = std::exchange(done_, nullptr)) done(still);
  }

  QStringList asked;

 private:
  std::function<void(const MovieStill&)> done_;
};

}  // namespace korvane

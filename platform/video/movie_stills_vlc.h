// Stills over a second player of movie files, which decodes without sound until one good picture
// has come.
#pragma once

#include "platform/movie_stills.h"
#include "platform/video/video_player_vlc.h"

namespace korvane {

class MovieStillsVlc final : public MovieStills,
                             private VideoPlayer::Events,
                             private VideoPicture::Events {
 public:
  explicit MovieStillsVlc(Pump& pump);  // which outlives it; not owned
  ~MovieStillsVlc() override;

  void make(const QString& path, int width, int height,
            std::function<void(const MovieStill&)> done) override;
  bool busy() const override { return done_ != nullptr; }
  void stop() override;

 private:
  void endOfMovie() override { finish(); }
  void durationKnown(double seconds) override;
  void failed(const QString&) override { finish(); }
  void pictureChanged() override;
  void finish();

  Pump& pump_;
  std::unique_ptr<VideoPlayerVlc> player_;  // made with the first still
  std::function<void(const MovieStill&)> done_;
  std::shared_ptr<const VideoFrame> frame_;  // the newest one
  double seconds_ = 0;
  bool sought_ = false;  // to the place of the still
  int settled_ = 0;      // pictures since then
  int number_ = 0;       // counts stills, for the time limit of each
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

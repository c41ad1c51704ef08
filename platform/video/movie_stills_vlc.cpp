#include "platform/video/movie_stills_vlc.h"

#include <QBuffer>
#include <QImage>
#include <QTimer>

namespace korvane {
namespace {

constexpr double kPlace = 0.1;   // of the length: behind the titles, before what gives it away
constexpr double kShortest = 4;  // seconds of a movie in which a place is sought
constexpr int kSettled = 3;      // pictures after which what comes is of the place
constexpr int kQuality = 80;     // of JPEG
// For a file that does not answer. Long, since all else on the machine goes before its threads.
constexpr int kLongestMs = 20'000;

QByteArray jpegOf(const VideoFrame& frame) {
  const QImage image(frame.pixels, frame.width, frame.height, frame.rowBytes, QImage::Format_RGB32);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  image.save(&bytes, "JPG", kQuality);
  return bytes.data();
}

}  // namespace

MovieStillsVlc::MovieStillsVlc(Pump& pump) : pump_(pump) {}

MovieStillsVlc::~MovieStillsVlc() {
  stop();
}

void MovieStillsVlc::make(const QString& path, int width, int height,
                          std::function<void(const MovieStill&)> done) {
  if (!player_) {
    player_ = std::make_unique<VideoPlayerVlc>(
        pump_, QStringList{u"--no-audio"_s, u"--no-spu"_s, u"--avcodec-threads=1"_s,
                           u"--no-drop-late-frames"_s, u"--no-skip-frames"_s});
    player_->beNice();
    player_->setEvents(this);
    player_->picture().setEvents(this);
  }
  done_ = std::move(done);
  frame_ = nullptr;
  seconds_ = 0;
  settled_ = 0;
  sought_ = false;
  player_->picture().setRoom(width, height, VideoFit::Whole);
  player_->open(path);
  player_->play();
  QTimer::singleShot(kLongestMs, [this, alive = std::weak_ptr<bool>(alive_), number = ++number_] {
    if (!alive.expired() && number == number_) finish();
  });
}

void MovieStillsVlc::stop() {
  done_ = nullptr;
  ++number_;
  frame_ = nullptr;
  if (player_) player_->close();
}

void MovieStillsVlc::durationKnown(double seconds) {
  seconds_ = seconds;
  if (seconds < kShortest || std::exchange(sought_, true)) return;
  settled_ = 0;
  player_->setPosition(seconds * kPlace);
}

void MovieStillsVlc::pictureChanged() {
  auto newest = player_->picture().newest();
  if (!newest || !done_) return;
  frame_ = std::move(newest);
  if (++settled_ >= kSettled && seconds_ > 0) finish();
}

// What holds the player's pictures lets go of them before the next.
void MovieStillsVlc::finish() {
  const auto done = std::exchange(done_, nullptr);
  if (!done) return;
  ++number_;
  MovieStill still{frame_ ? jpegOf(*frame_) : QByteArray(), seconds_};
  frame_ = nullptr;
  player_->close();
  done(still);
}

}  // namespace korvane

#include "platform/disc/reading_drive.h"

namespace korvane {
namespace {

// The end of the sound that goes on from `track`: of the last audio track without a data track
// between.
int endOfSound(const Disc& disc, int track) {
  int end = disc.at(track).first + disc.at(track).sectors;
  while (disc.has(++track) && disc.at(track).audio)
    end = disc.at(track).first + disc.at(track).sectors;
  return end;
}

}  // namespace

ReadingDrive::ReadingDrive(Pump& pump, MediaPlayer& player, std::shared_ptr<DiscReader> reader)
    : player_(player),
      reader_(std::move(reader)),
      watch_(std::make_shared<DiscWatch>(
          reader_, pump, [this](int number, const DiscLook& look) { heard(number, look); })) {}

ReadingDrive::~ReadingDrive() {
  if (sound_) sound_->cancel();
  watch_->quit();
}

void ReadingDrive::open(const QString& source) {
  stop();
  if (open_ && source == source_) return;
  open_ = true;
  source_ = source;
  look_.reset();
  watch_->begin(++number_, source);
}

void ReadingDrive::close() {
  stop();
  open_ = false;
  look_.reset();
  watch_->end();
  ++number_;
}

void ReadingDrive::heard(int number, const DiscLook& look) {
  if (!open_ || number != number_) return;
  const bool same = look_ && look.disc.tracks == look_->disc.tracks;
  look_ = look;
  if (!same || look.state != DiscLook::Ready) stop();
  if (events_) events_->discChanged();
}

const Disc* ReadingDrive::disc() const {
  return look_ && look_->state == DiscLook::Ready ? &look_->disc : nullptr;
}

QString ReadingDrive::trouble() const {
  if (!open_) return u"The drive is closed."_s;
  if (!look_) return u"The CD drive does not answer."_s;
  if (sound_ && sound_->broken()) return u"The disc cannot be read any further."_s;
  return look_->trouble;
}

void ReadingDrive::play(int track, int seconds) {
  const Disc* at = disc();
  if (!at || !at->has(track) || !at->at(track).audio) return;
  const Place now = place();
  if (mode() == Paused && now.track == track && now.sectors / kSectorsPerSecond == seconds)
    return player_.Play();
  const DiscTrack& wanted = at->at(track);
  const int first = wanted.first + std::max(seconds, 0) * kSectorsPerSecond;
  if (first >= wanted.first + wanted.sectors) return;
  stop();
  sound_ = DiscSound::make(reader_, source_, first, endOfSound(*at, track));
  player_.setStream(sound_, source_.isEmpty() ? u"the CD"_s : source_);
  player_.Play();
}

void ReadingDrive::pause() {
  if (sound_) player_.Pause();
}

void ReadingDrive::stop() {
  if (!sound_) return;
  sound_->cancel();
  sound_.reset();
  player_.Stop();
}

void ReadingDrive::eject() {
  stop();
  if (open_) watch_->eject();
}

DiscDrive::Mode ReadingDrive::mode() const {
  if (!disc()) return look_ && look_->state == DiscLook::DoorOpen ? Open : NotReady;
  if (!sound_) return Stopped;
  switch (player_.playState()) {
    case MediaPlayer::Playing:
      return sound_->begun() && player_.CurrentPosition() > 0 ? Playing : Seek;
    case MediaPlayer::Paused:
      return Paused;
    case MediaPlayer::Stopped:
    case MediaPlayer::Closed:
      break;
  }
  return Stopped;
}

int ReadingDrive::sector() const {
  const double seconds = sound_->begun() ? player_.CurrentPosition() : 0;
  return sound_->first() + static_cast<int>(seconds * kSectorsPerSecond);
}

DiscDrive::Place ReadingDrive::place() const {
  const Disc* at = disc();
  if (!at) return {};
  const int now = sound_ ? sector() : at->tracks.front().first;
  int track = static_cast<int>(at->tracks.size());
  while (track > 1 && at->at(track).first > now) --track;
  return {track, std::clamp(now - at->at(track).first, 0, at->at(track).sectors - 1)};
}

}  // namespace korvane

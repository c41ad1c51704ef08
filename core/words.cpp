#include "core/words.h"

namespace korvane {

std::optional<PlayMode> playModeOf(int report) {
  enum { Stopped, Paused, Playing, Waiting, ScanningOn, ScanningBack, Closed };
  switch (report) {
    case Stopped:
    case Closed:
      return PlayMode::Stopped;
    case Paused:
      return PlayMode::Paused;
    case Playing:
    case Waiting:
    case ScanningOn:
    case ScanningBack:
      return PlayMode::Playing;
    default:
      return {};
  }
}

MusicState musicStateOf(PlayMode mode) {
  switch (mode) {
    case PlayMode::Stopped:
      return MusicState::Stop;
    case PlayMode::Paused:
      return MusicState::Paused;
    case PlayMode::Playing:
      return MusicState::Play;
  }
  Q_UNREACHABLE();
}

PlayMode playModeOf(MusicState state) {
  switch (state) {
    case MusicState::Stop:
      return PlayMode::Stopped;
    case MusicState::Play:
      return PlayMode::Playing;
    case MusicState::Paused:
      return PlayMode::Paused;
  }
  Q_UNREACHABLE();
}

MovieType movieTypeOf(const QString& stored) {
  return stored.startsWith("DVD"_L1) ? MovieType::Dvd : MovieType::Digital;
}

QString stored(MovieType type) {
  switch (type) {
    case MovieType::Digital:
      return u"DIGITAL"_s;
    case MovieType::Dvd:
      return u"DVD"_s;
    case MovieType::ListenerDvd:
      return u"DVDL"_s;
  }
  Q_UNREACHABLE();
}

}  // namespace korvane

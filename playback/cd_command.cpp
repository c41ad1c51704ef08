#include "playback/cd_command.h"

namespace korvane {
namespace {

constexpr int kDriveWaitMs = 3000;

QString twoDigits(int number) {
  return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
}

QString minutes(int sectors) {
  const int seconds = sectors / kSectorsPerSecond;
  return twoDigits(seconds / 60) + u':' + twoDigits(seconds % 60);
}

QString minutesAndFrames(int sectors) {
  return minutes(sectors) + u':' + twoDigits(sectors % kSectorsPerSecond);
}

QString nameOf(DiscDrive::Mode mode) {
  switch (mode) {
    case DiscDrive::NotReady:
      return u"NOT READY"_s;
    case DiscDrive::Open:
      return u"OPEN"_s;
    case DiscDrive::Stopped:
      return u"STOPPED"_s;
    case DiscDrive::Seek:
      return u"SEEK"_s;
    case DiscDrive::Playing:
      return u"PLAYING"_s;
    case DiscDrive::Paused:
      return u"PAUSED"_s;
  }
  return {};
}

}  // namespace

bool CdCommands::open() {
  drive_.open(state_.gCdDrive);
  pump_.wait(kDriveWaitMs, [this] { return drive_.looked(); });
  return drive_.disc() != nullptr;
}

QString CdCommands::startDisc(int track) {
  if (!open()) return u"false"_s;
  drive_.play(std::max(track, 1), 0);
  return {};
}

QString CdCommands::lengthOfDisc() const {
  const Disc* disc = drive_.disc();
  return disc ? minutesAndFrames(disc->tracks.back().first + disc->tracks.back().sectors)
              : QString();
}

QString CdCommands::lengthOfTrack(int track) const {
  const Disc* disc = drive_.disc();
  return disc && disc->has(track) ? minutes(disc->at(track).sectors) : QString();
}

QString CdCommands::position() const {
  if (!drive_.disc()) return u"false"_s;
  const DiscDrive::Place place = drive_.place();
  return twoDigits(place.track) + u':' + minutesAndFrames(place.sectors);
}

QString CdCommands::cdCommand(int function, int track, int seconds) {
  switch (function) {
    case 0:
      drive_.play(track, seconds);
      return {};
    case 1:
      return startDisc(track);
    case 2:
      drive_.stop();
      return {};
    case 3:
      drive_.pause();
      return {};
    case 4:
      return open() ? u"true"_s : u"false"_s;
    case 5:
      drive_.close();
      return {};
    case 6:
      return drive_.disc() ? QString::number(drive_.disc()->tracks.size()) : u"false"_s;
    case 7:
      return lengthOfDisc();
    case 8:
      return lengthOfTrack(track);
    case 9:
      drive_.eject();
      return {};
    case 10:
      return position();
    case 11:
      return nameOf(drive_.mode());
    case 12:
      return open() && drive_.disc()->at(1).audio ? u"AUDIO"_s : u"DATA"_s;
    default:
      return {};
  }
}

}  // namespace korvane

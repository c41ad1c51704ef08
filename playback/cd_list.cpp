// What the list of the CD shows. Cells of a row: name, length, path (of a song on a data disc), the
// words "CD" and "AUDIO" or "MP3".
#include "playback/cd_player.h"

namespace korvane {
namespace {

using Columns = std::vector<Grid::Column>;

Columns columnsFor(bool lengths) {
  const Grid::Column hidden{QString(), 0, true};
  return lengths ? Columns{{QString(), 78}, {QString(), 22}, hidden, hidden, hidden}
                 : Columns{{}, {QString(), 0, true}, hidden, hidden, hidden};
}

QString nameOf(const Disc& disc, int number) {
  const DiscTrack& track = disc.at(number);
  if (!track.audio) return u"Track %1 (data)"_s.arg(number);
  if (track.title.isEmpty()) return u"Track %1"_s.arg(number);
  const bool other = !track.performer.isEmpty() && track.performer != disc.performer;
  return u"%1. %2"_s.arg(number).arg(track.title) +
         (other ? u" - "_s + track.performer : QString());
}

QString captionOf(const Disc& disc) {
  QStringList words{u"CD Player"_s};
  for (const QString& word : {disc.performer, disc.title})
    if (!word.isEmpty()) words << word;
  return words.join(u" - "_s);
}

}  // namespace

void CdPlayer::getCDTracks() {
  panel_.grid->header = u"CD Player"_s;
  panel_.grid->clear();
  panel_.grid->emptyText = u"Looking for a CD"_s;
  looking_ = true;
  cdCommand(4);
  looking_ = false;
  if (uses_.state.gMusicType != MusicSource::Cd) return;
  panel_.grid->emptyText = u"No CD in the drive"_s;
  showDisc();
}

void CdPlayer::showDisc() {
  const Disc* disc = uses_.drive.disc();
  const QString trouble = uses_.drive.trouble();
  if (!trouble.isEmpty()) uses_.log.logIt(u"CD: "_s + trouble);
  uses_.state.discHoldsFiles = disc && cdCommand(12) == "DATA"_L1;
  panel_.grid->columns = columnsFor(disc && !uses_.state.discHoldsFiles);
  if (!disc)
    panel_.grid->setRows({{{u"NO CD Double click to refresh"_s}}});
  else if (uses_.state.discHoldsFiles)
    showSongs(*disc);
  else
    showTracks(*disc);
  panel_.grid->header = disc ? captionOf(*disc) : u"CD Player"_s;
  if (!trouble.isEmpty()) panel_.grid->header = u"CD Player: "_s + trouble;
  if (uses_.state.gridMode == MusicList::DiscTracks && panel_.grid->visible())
    uses_.browsing.showGrid(MusicList::DiscTracks);
}

void CdPlayer::showTracks(const Disc& disc) {
  const int count = cdCommand(6).toInt();
  std::vector<RowTable::Row> rows;
  for (int track = 1; track <= count; ++track)
    rows.push_back({{nameOf(disc, track), cdCommand(8, track), {}, u"CD"_s, u"AUDIO"_s}});
  panel_.grid->setRows(std::move(rows));
}

void CdPlayer::showSongs(const Disc& disc) {
  std::vector<RowTable::Row> rows;
  for (const QString& path : disc.songs) {
    const QString name = path.section(u'/', -1);
    rows.push_back({{name.left(name.lastIndexOf(u'.')), {}, path, u"CD"_s, u"MP3"_s}});
  }
  if (rows.empty()) rows.push_back({{uses_.drive.trouble()}});
  panel_.grid->setRows(std::move(rows));
}

void CdPlayer::discChanged() {
  if (uses_.state.gMusicType != MusicSource::Cd || looking_) return;
  if (uses_.state.gPlayMode != PlayMode::Stopped) {
    if (uses_.state.discHoldsFiles)
      uses_.transport.press(TransportButton::Stop);
    else if (cdCommand(11) == "OPEN"_L1)
      return MusicTimer_Timer();
    else
      stop();
  }
  showDisc();
}

}  // namespace korvane

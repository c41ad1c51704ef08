#include "ripper/screens/track_list.h"

#include "ripper/rip_names.h"
#include "ripper/rip_run.h"

namespace korvane {
namespace {

constexpr QStringView kTick = u"\u2713", kData = u"\u2013";
constexpr Colour kRowColour = 155 << 16 | 120 << 8 | 102, kRowInk = 0;

QString readingText(const RipResult& result) {
  switch (result.reading) {
    case RipResult::Unchecked:
      return {};
    case RipResult::Clean:
      return u"clean"_s;
    case RipResult::Repaired:
      return u"repaired"_s;
    case RipResult::Doubtful:
      return u"not at "_s + placesText(result.doubtful);
  }
  Q_UNREACHABLE();
}

}  // namespace

void TrackList::setGrid(bool readings) {
  ss_.columns = {{u"RIP"_s, 12, false, Grid::CellKind::Button},
                 {u"Track"_s, readings ? 34 : 54},
                 {u"Duration"_s, 19},
                 {u"IN DB"_s, 15},
                 {u"Read"_s, 20, !readings}};
  Colours colours = ss_.colours();
  colours.selected = kRowColour;
  colours.selectedFore = kRowInk;
  ss_.colours = colours;
}

void TrackList::fill(const Disc& disc) {
  std::vector<RowTable::Row> rows;
  int number = 0;
  for (const DiscTrack& track : disc.tracks)
    rows.push_back({{track.audio ? QString() : kData.toString(), madeTitle(++number),
                     durationText(track.sectors / kSectorsPerSecond), QString(), QString()}});
  ss_.setRows(std::move(rows));
}

bool TrackList::holdsSound(int row) const {
  return ss_.cell(Rip, row) != kData;
}

bool TrackList::ticked(int row) const {
  return ss_.cell(Rip, row) == kTick;
}

void TrackList::tick(int row, bool on) {
  if (row >= 1 && row <= rows() && holdsSound(row))
    ss_.setCell(Rip, row, on ? kTick.toString() : QString());
}

void TrackList::tickAll(bool on) {
  for (int row = 1; row <= rows(); ++row) tick(row, on);
}

QStringList TrackList::titles() const {
  QStringList all;
  for (int row = 1; row <= rows(); ++row) all << title(row);
  return all;
}

void TrackList::setInLibrary(int row, bool on) {
  ss_.setCell(InLibrary, row, on ? kTick.toString() : QString());
}

void TrackList::setReading(int row, const RipResult& result) {
  ss_.setCell(Reading, row, readingText(result));
}

}  // namespace korvane

#include "ripper/ripper_side.h"

namespace korvane {
namespace {

// Music that plays from the disc in that drive.
bool playsFrom(const Desk& desk, const PlaybackSide& playback, const QString& source) {
  if (playback.cd.mode() == PlayMode::Stopped) return false;
  const std::vector<SwdCDRipper::Drive> drives = desk.system.ripper.drives();
  const QString& played = desk.state.gCdDrive;
  return played.isEmpty() ? !drives.empty() && drives.front().source == source : played == source;
}

}  // namespace

RipperSide::RipperSide(Desk& d, LibrarySide& library, ListenerSide&, PlaybackSide& playback,
                       CustomSide& custom)
    : run({d.system.ripper, library.database, d.messages, d.log, d.system.pump}),
      form({d.dialogs, d.system, d.settings, d.log, d.chooser, library.database, library.import,
            run, [&library] { library.songsChanged(); },
            [&custom] { return custom.keyboardFiles.chosen(); },
            [&d, &playback](const QString& source) {
              const bool plays = playsFrom(d, playback, source);
              if (plays) playback.cd.press(TransportButton::Stop);
              return plays;
            }}),
      mark(d.frmMain, d.state, run, [&d] {
        return d.tabs.open(kMusicTab) || d.tabs.open(kMoviesTab) || d.tabs.open(kPhotosTab);
      }) {
  run.news.push_back(&mark);
  d.tabs.entered.push_back([this] { mark.show(); });
  for (const QStringView door : {u"cmdRip", u"cmdRipMark"}) {
    d.on(door, Event::Click, [this](int) { form.open(); });
    d.guard(d.frmMain, door, Event::Click);
  }
  d.words.add({u"RIPPER"_s, u"btnripper"_s, {}, d.guarded([this] { form.open(); })});
  d.window.mayEnd.push_back([this, &d] { return mayEnd(d.messages); });
  d.steps.at(Step::StopDisc, [this] { run.stop(); });
}

bool RipperSide::mayEnd(Messages& messages) const {
  if (!run.atWork()) return true;
  return messages.confirm(
      u"A CD is being ripped: %1 of %2 tracks are done. The track at hand is lost when the console "
      "ends now. End it all the same?"_s.arg(run.finishedCount())
          .arg(run.selectedCount()));
}

}  // namespace korvane

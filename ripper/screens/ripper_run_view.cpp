// The part of frmRipper that begins a run and shows how far it is.
#include <QDir>
#include <QLocale>

#include "ripper/names/my_cddb.h"
#include "ripper/ripped_songs.h"
#include "ripper/screens/ripper_form.h"

namespace korvane {

std::vector<RipRequest::Row> RipperForm::tickedRows(const Disc& disc) const {
  std::vector<RipRequest::Row> rows;
  for (int row = 1; row <= tracks_.rows(); ++row)
    if (tracks_.ticked(row) && disc.has(row))
      rows.push_back({row, tracks_.title(row), disc.at(row).sectors / kSectorsPerSecond});
  return rows;
}

// Why these cannot be ripped as they stand; empty when they can.
QString RipperForm::notYet(const std::vector<RipRequest::Row>& rows) const {
  if (rows.empty()) return u"You did not select any tracks to rip"_s;
  if (rows.size() > RipPlan::kMost)
    return u"%1 tracks are chosen, and %2 is the most that one run takes. Rip these in two runs."_s
        .arg(rows.size())
        .arg(RipPlan::kMost);
  const bool fromDatabase =
      names_.from == FoundNames::LocalDatabase || names_.from == FoundNames::MyDatabase;
  for (const RipRequest::Row& row : rows)
    if (fromDatabase && row.track > DiscNames::kTitles && row.title == madeTitle(row.track))
      return u"A database keeps %1 titles of a disc, and track %2 has none. Type its title, or "
             "choose the tracks up to %1."_s.arg(DiscNames::kTitles)
                 .arg(row.track);
  return {};
}

QString RipperForm::ripPath() const {
  const QString path = FileSystem::slashed(panel_.txtFilename->text().trimmed());
  return QDir::isAbsolutePath(path) ? path : FileSystem::BuildPath(uses_.settings.home(), path);
}

void RipperForm::cmdExtract_Click() {
  if (uses_.run.atWork()) return;
  editor_.end();
  Messages& messages = uses_.dialog.messages;
  QString why;
  if (!makeMyCddb(uses_.system.files, uses_.settings.home(), &why)) messages.say(why);
  if (panel_.txtFilename->text().trimmed().isEmpty()) {
    messages.say(u"Enter a rip path first"_s);
    return;
  }
  const QString from = source();
  const auto noDisc = [&] {
    status(u"No audio cd found"_s);
    messages.say(u"No audio cd found"_s);
  };
  if (!audioDisc(from) || tracks_.rows() == 0) return noDisc();
  const std::vector<RipRequest::Row> rows = tickedRows(*audioDisc(from));
  if (why = notYet(rows); !why.isEmpty()) {
    messages.say(why);
    return;
  }
  const bool played = uses_.stopDisc(from);
  if (!audioDisc(from)) return noDisc();
  const auto order = plan_.make({ripPath(), from, panel_.lblArtist->text(), panel_.lblAlbum->text(),
                                 names_.year, names_.genre, rows},
                                &why);
  if (!order) {
    messages.say(why);
    return;
  }
  lookUp_.cancel();
  saveNames();
  waiting_.clear();
  uses_.run.start(*order);
  if (played) panel_.txtStatus->text = u"The music of this disc was stopped\n"_s;
}

// Names that no database gave are the user's: the disc has them the next time.
void RipperForm::saveNames() {
  if (names_.known() || discId_.isEmpty()) return;
  if (!editor_.edited() && uses_.settings.flag(key::CddbAlways)) return;
  QString why;
  if (insertMyDisc(uses_.settings.home(), discId_, panel_.lblArtist->text(),
                   panel_.lblAlbum->text(), tracks_.titles(), &why))
    return;
  uses_.log.logIt(why);
  status(why);
}

void RipperForm::cmdFilename_Click() {
  ChooserRequest request;
  request.title = u"Select Folder for Ripped Songs"_s;
  request.pattern = uses_.import.musicPattern();
  request.places = {ripPath(), FileSystem::GetParentFolderName(ripPath())};
  request.keep = [this](const QString& directory) {
    QString folder = directory;
    while (folder.size() > 1 && folder.endsWith(u'/')) folder.chop(1);
    panel_.txtFilename->text = folder;
    const bool kept =
        uses_.settings.SaveSetting(u"KRVRipper"_s, u"startup"_s, u"ripPath"_s, folder);
    return kept ? QString() : u"The folder is used now, and could not be stored: see log.txt."_s;
  };
  uses_.chooser.open(request);
  showFreeSpace();
}

void RipperForm::showFreeSpace() {
  const QLocale thousands(QLocale::English, QLocale::UnitedStates);
  panel_.lblFreeSpace->caption = u"Free space "_s + thousands.toString(plan_.freeSpace(ripPath()));
}

void RipperForm::showRun(bool on) {
  choices_.show(!on);
  progress_.show(on);
  editor_.setEnabled(!on);
  panel_.cmdExtract->enabled = !on;
  panel_.cmdEnd->enabled = !on;
  panel_.DriveCombo->enabled = !on;
}

void RipperForm::runBegan() {
  panel_.txtStatus->text = QString();
  panel_.cmdRipStop->caption = u"Cancel"_s;
  showRun(true);
  runMoved();
}

void RipperForm::runMoved() {
  const auto show = [](Progress& bar, const QString& what, double percent) {
    bar.value = percent;
    bar.caption = what + u' ' + QString::number(static_cast<int>(percent)) + u" %"_s;
  };
  show(*panel_.prgTotal, u"All"_s, uses_.run.total());
  show(*panel_.prgTrack, u"This track"_s, uses_.run.track());
}

void RipperForm::trackBegan(const RipTrack& track) {
  status(u"Ripping Track..."_s);
  panel_.ss->row = track.gridRow;
}

void RipperForm::trackEnded(const RipTrack& track, const RipResult& result, bool entered) {
  panel_.txtStatus->text =
      u"Finished track %1\n"_s.arg(uses_.run.finishedCount()) + panel_.txtStatus->text();
  tracks_.setReading(track.gridRow, result);
  tracks_.setInLibrary(track.gridRow, entered);
  tracks_.tick(track.gridRow, false);
}

void RipperForm::runEnds() {
  status(u"Hold... Ejecting CD"_s);
}

void RipperForm::runEnded(bool whole) {
  panel_.cmdRipStop->visible = false;
  tracks_.clear();
  names_ = {};
  discId_.clear();
  editor_.forget();
  panel_.lblArtist->text = panel_.lblAlbum->text = QString();
  panel_.lblID->caption = QString();
  showRun(false);
  showFreeSpace();
  status(QString());
  const bool away = !form_.shown();
  if (away) refreshLibrary();
  const QString next = whole ? std::exchange(waiting_, {}) : QString();
  if (audioDisc(next)) return takeNext(next);
  if (!away) return;
  endedAt_ = uses_.system.clock.monotonicMs();
  if (!whole) forgetDrives();
}

}  // namespace korvane

#include "ripper/screens/ripper_form.h"

#include "ripper/ripped_songs.h"
#include "ripper/screens/ripper_rows.h"

namespace korvane {
namespace {

constexpr qint64 kNextDiscMs = 10 * 60 * 1000;  // a disc put in within this is the next one

}  // namespace

RipperForm::RipperForm(Uses uses)
    : Dialog(uses.dialog, u"frmRipper"_s, ripperInventory()),
      uses_(std::move(uses)),
      panel_(form_),
      tracks_(*panel_.ss),
      editor_(form_, tracks_, uses_.dialog.host, uses_.dialog.palette),
      lookUp_({uses_.system.files, uses_.system.packets, uses_.system.http, uses_.system.pump,
               uses_.settings, uses_.log}),
      plan_({uses_.system.files, uses_.settings,
             [this](const QString& folder) { return uses_.import.freeSpace(folder); }}),
      choices_(form_, {"cmdSelectAll", "BtnFrom", "cmdDeselect", "cmdFilename", "txtFilename"}),
      progress_(form_, {"frameRip", "prgTotal", "prgTrack", "txtStatus", "cmdRipStop"}) {
  panel_.DriveCombo->columns = {{QString()}};
  panel_.txtStatus->multiLine = true;
  panel_.txtStatus->enabled = false;  // it is read, not written
  lookUp_.status = [this](const QString& text) { status(text); };
  lookUp_.identified = [this](const QString& discId) {
    discId_ = discId;
    panel_.lblID->caption = discId;
  };
  lookUp_.found = [this](const FoundNames& names) { namesCame(names); };
  uses_.run.news.push_back(this);
  uses_.run.discChanged = [this](const QString& source) { CDRipper_OnCDChange(source); };
  connectButtons();
  connectList();
}

void RipperForm::connectButtons() {
  onClick(u"cmdSelectAll", [this](int) { tracks_.tickAll(true); });
  onClick(u"cmdDeselect", [this](int) { tracks_.tickAll(false); });
  onClick(u"cmdFilename", [this](int) { cmdFilename_Click(); });
  onClick(u"cmdExtract", [this](int) { cmdExtract_Click(); });
  onClick(u"cmdRipStop", [this](int) { uses_.run.cancel(); });
  onClick(u"cmdLeave", [this](int) { leave(); });
  onClick(u"cmdEnd", [this](int) { cmdEnd_Click(); });
}

void RipperForm::connectList() {
  form_.on(u"ss", Event::ButtonClicked, [this](Control&, const Event& event) {
    if (uses_.run.atWork()) return;
    if (!tracks_.holdsSound(event.row)) status(u"This track holds data and cannot be ripped"_s);
    tracks_.tick(event.row, !tracks_.ticked(event.row));
  });
  form_.on(u"ss", Event::Click, [this](Control&, const Event& event) {
    if (!uses_.run.atWork() && event.column == TrackList::Title) editor_.editTitle(event.row);
  });
  form_.on(u"DriveCombo", Event::Click, [this](Control&, const Event& event) {
    if (event.row > 0) DriveCombo_Click(event.row - 1);
  });
  editor_.typed = [this] { showInLibrary(); };
}

void RipperForm::open() {
  if (run([this] { Form_Load(); })) Form_Unload();
}

void RipperForm::Form_Load() {
  editor_.setLayout(uses_.layout());
  tracks_.setGrid(uses_.settings.flag(key::RipSecure));
  endedAt_.reset();
  watchDrives();
  listDrives();
  const bool kept = std::exchange(keepList_, false) || uses_.run.atWork() || lookUp_.running();
  if (kept) return;
  showRun(false);
  const QString path = uses_.settings.GetSetting(u"KRVRipper"_s, u"startup"_s, u"ripPath"_s);
  panel_.txtFilename->text = path.isEmpty() ? uses_.settings.home() + u"/Arips"_s : path;
  showFreeSpace();
  DriveCombo_Click(driveIndex_);
}

void RipperForm::Form_Unload() {
  editor_.end();
  if (uses_.run.atWork()) return;
  lookUp_.cancel();
  offers_ = false;
  editor_.forget();
  forgetDrives();
}

void RipperForm::watchDrives() {
  if (std::exchange(watching_, true)) return;
  const QString image = uses_.settings.str(key::CDDrive);
  uses_.system.ripper.open(image == "NO"_L1 ? QString() : image);
  answered_.clear();
  for (const SwdCDRipper::Drive& drive : uses_.system.ripper.drives())
    if (uses_.system.ripper.looked(drive.source)) answered_ << drive.source;
}

void RipperForm::forgetDrives() {
  uses_.system.ripper.close();
  watching_ = false;
}

void RipperForm::listDrives() {
  std::vector<RowTable::Row> rows;
  for (const SwdCDRipper::Drive& drive : uses_.system.ripper.drives())
    rows.push_back({{drive.name}});
  driveIndex_ = std::clamp(driveIndex_, 0, std::max(0, static_cast<int>(rows.size()) - 1));
  panel_.DriveCombo->setRows(std::move(rows));
  panel_.DriveCombo->row = driveIndex_ + 1;
}

QString RipperForm::source() const {
  const std::vector<SwdCDRipper::Drive> drives = uses_.system.ripper.drives();
  const auto at = static_cast<size_t>(driveIndex_);
  return at < drives.size() ? drives[at].source : QString();
}

const Disc* RipperForm::audioDisc(const QString& source) const {
  const Disc* disc = source.isEmpty() ? nullptr : uses_.system.ripper.disc(source);
  if (!disc) return nullptr;
  return std::ranges::any_of(disc->tracks, &DiscTrack::audio) ? disc : nullptr;
}

void RipperForm::DriveCombo_Click(int index) {
  driveIndex_ = index;
  panel_.DriveCombo->row = index + 1;
  fillGrid();
}

bool RipperForm::waitsForNext() const {
  return endedAt_ && uses_.system.clock.monotonicMs() - *endedAt_ < kNextDiscMs;
}

void RipperForm::CDRipper_OnCDChange(const QString& changed) {
  if (changed.isEmpty()) return listDrives();
  const bool first = !answered_.contains(changed);
  if (first) answered_ << changed;
  const bool holdsSound = audioDisc(changed) != nullptr;
  if (uses_.run.atWork()) {
    if (changed == uses_.run.source() || first) return;
    waiting_ = holdsSound ? changed : QString();
    if (holdsSound) status(u"The disc that was put in is next"_s);
  } else if (!form_.shown()) {
    if (holdsSound && waitsForNext()) takeNext(changed);
  } else if (changed == source()) {
    fillGrid();
  } else if (holdsSound && !audioDisc(source())) {
    take(changed);
  }
}

void RipperForm::take(const QString& of) {
  const std::vector<SwdCDRipper::Drive> drives = uses_.system.ripper.drives();
  const auto at = std::ranges::find(drives, of, &SwdCDRipper::Drive::source);
  if (at != drives.end()) DriveCombo_Click(static_cast<int>(at - drives.begin()));
}

void RipperForm::takeNext(const QString& of) {
  take(of);
  tracks_.tickAll(true);
  offers_ = !form_.shown() && lookUp_.running();
}

void RipperForm::namesCame(const FoundNames& names) {
  if (editor_.edited())
    status(u"The names that were typed stay"_s);
  else
    fillgrid2(names);
  if (std::exchange(offers_, false)) return offer();
  if (names.from == FoundNames::Nobody && form_.shown())
    uses_.dialog.messages.say(u"No records for your disk found."_s);
}

// Nobody is looking at the form: what it has found is asked about.
void RipperForm::offer() {
  if (form_.shown() || uses_.run.atWork()) return;
  endedAt_.reset();
  const bool named = names_.from != FoundNames::Nobody;
  const QString text =
      named
          ? u"Another disc was put in: %1, %2. Rip all its tracks now?"_s.arg(
                panel_.lblArtist->text(), panel_.lblAlbum->text())
          : u"Another disc was put in, and nobody knows its names. Open the ripper to type them?"_s;
  const bool wanted = uses_.dialog.messages.confirm(text);
  if (form_.shown() || uses_.run.atWork()) return;
  if (wanted && named) return cmdExtract_Click();
  if (!wanted) return forgetDrives();
  keepList_ = true;
  open();
}

void RipperForm::fillGrid() {
  lookUp_.cancel();
  editor_.end();
  editor_.forget();
  offers_ = false;
  names_ = {};
  discId_.clear();
  tracks_.clear();
  panel_.lblArtist->text = panel_.lblAlbum->text = QString();
  panel_.lblID->caption = QString();
  const QString from = source();
  const Disc* disc = audioDisc(from);
  if (!disc) {
    const bool looking = !from.isEmpty() && !uses_.system.ripper.looked(from);
    const QString trouble = from.isEmpty() ? QString() : uses_.system.ripper.trouble(from);
    status(looking ? u"Looking for an audio cd.."_s : u"No audio cd found"_s);
    if (!trouble.isEmpty()) status(u"No audio cd found: "_s + trouble);
    return;
  }
  tracks_.fill(*disc);
  fillgrid2({});
  lookUp_.begin(from, *disc);
}

void RipperForm::fillgrid2(const FoundNames& names) {
  names_ = names;
  const bool named = names.from != FoundNames::Nobody;
  if (!named || names.from == FoundNames::Disc) editor_.showNobody();
  // A disc's own text may name its tracks alone.
  const bool ofDisc = names.from == FoundNames::Disc;
  if (named && !(ofDisc && names.artist.isEmpty())) panel_.lblArtist->text = names.artist;
  if (named && !(ofDisc && names.album.isEmpty())) panel_.lblAlbum->text = names.album;
  for (int row = 1; row <= tracks_.rows(); ++row) {
    QString title = names.titles.value(row - 1);
    if (names.from == FoundNames::Internet) title = cleanName(title);
    title = title.trimmed();
    tracks_.setTitle(row, title.isEmpty() ? madeTitle(row) : title);
  }
  showInLibrary();
}

void RipperForm::showInLibrary() {
  uses_.log.guard("fillgrid2", "Form frmRipper", [this] {
    const OpenedDatabase open(uses_.database);
    for (int row = 1; row <= tracks_.rows(); ++row)
      tracks_.setInLibrary(row, inLibrary(uses_.database, storedNames(panel_.lblArtist->text(),
                                                                      panel_.lblAlbum->text(), row,
                                                                      tracks_.title(row))));
  });
}

void RipperForm::cmdEnd_Click() {
  if (uses_.run.atWork()) return;
  leave();
  refreshLibrary();
}

void RipperForm::refreshLibrary() {
  if (!uses_.run.takeAnyRipped()) return;
  uses_.log.guard("cmdEnd_Click", "Form frmRipper", [this] { uses_.songsChanged(); });
}

}  // namespace korvane

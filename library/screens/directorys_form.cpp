#include "library/screens/directorys_form.h"

#include "core/dressing.h"
#include "library/screens/directory_lists.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr int kMeaningSize = 12;

// Volumes, folders, files, and below them the folder and their number: without and with the actions
// of a custom button before them.
constexpr Rect kPlaces[] = {{24, 80, 300, 428},
                            {340, 80, 452, 428},
                            {808, 80, 448, 428},
                            {24, 516, 768, 44},
                            {808, 516, 448, 44}};
constexpr Rect kNarrowPlaces[] = {{680, 80, 144, 476},
                                  {832, 80, 208, 476},
                                  {1048, 80, 208, 476},
                                  {680, 564, 576, 40},
                                  {680, 608, 576, 40}};

constexpr InventoryRow kDirectorys[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 60}, TL, "Title"},
    {"Drive1", -1, Kind::Grid, kPlaces[0], TL, "Volumes"},
    {"Dir1", -1, Kind::Grid, kPlaces[1], TL, "Folders"},
    {"File1", -1, Kind::Grid, kPlaces[2], TL, "Files"},
    {"lblPath", -1, Kind::Label, kPlaces[3], TL, "Folder"},
    {"lblfiles", -1, Kind::Label, kPlaces[4], TL, "Files found"},
    {"lblListener", -1, Kind::Label, {24, 572, 280, 72}, TL, ""},
    {"txtListenerDrive", -1, Kind::Text, {304, 572, 136, 72}, TL, "Listener Drive Letter"},
    {"txtStatus", -1, Kind::Label, {464, 564, 792, 44}, TL, "Status"},
    {"lblRate", -1, Kind::Label, {464, 608, 792, 44}, TL, "Progress"},
    {"frameCustomButton", -1, Kind::Frame, {24, 80, 640, 572}, TL, "Actions", "", false},
    {"customSelect", -1, Kind::Grid, {12, 60, 616, 500}, TL, "Actions", "frameCustomButton"},
    {"cmdCancel", -1, Kind::Button, {664, 664, 288, 88}, TL, "Cancel"},
    {"cmdok", -1, Kind::Button, {968, 664, 288, 88}, TL, "OK"},
};

std::vector<RowTable::Row> rowsOf(const QStringList& names) {
  std::vector<RowTable::Row> rows;
  for (const QString& name : names) rows.push_back({{name}});
  return rows;
}

// Where a chosen directory is kept; null for nowhere.
const SettingKey* keyOf(DirectoryRequest::Store store) {
  switch (store) {
    case DirectoryRequest::Movies:
      return &key::MDirectory;
    case DirectoryRequest::Playlist:
      return &key::PLDirectory;
    case DirectoryRequest::Photos:
      return &key::PDirectory;
    case DirectoryRequest::Nothing:
      break;
  }
  return nullptr;
}

}  // namespace

DirectorysForm::DirectorysForm(Uses uses)
    : uses_(uses), form_(u"frmDirectorys"_s, kDirectorys), panel_(form_) {
  panel_.lblTitle->fontUnits = 36;
  panel_.lblTitle->bold = true;
  panel_.lblListener->caption = u"Listener Drive Letter"_s;
  panel_.cmdok->caption = u"OK"_s;
  panel_.cmdok->look.accent = true;
  panel_.Drive1->columns = {{u"Volume"_s}};
  panel_.Dir1->columns = {{u"Folder"_s}};
  panel_.File1->columns = {{u"File"_s}};
  panel_.frameCustomButton->caption = u"What the button does"_s;
  // The entry as it is stored, and the two halves of it that are read.
  panel_.customSelect->columns = {{u"Entry"_s, 0, true, false},
                                  {u"Action"_s, 39, false, false},
                                  {u"Meaning"_s, 61, false, false}};

  form_.on(u"Drive1", Event::Click,
           [this](Control&, const Event& event) { Drive1_Change(event.row); });
  form_.on(u"Dir1", Event::Click, [this](Control&, const Event& event) { Dir1_Change(event.row); });
  // What was chosen last counts: an action or a file.
  form_.on(u"File1", Event::Click,
           [this](Control&, const Event&) { panel_.customSelect->row = 0; });
  form_.on(u"txtListenerDrive", Event::Click,
           [this](Control&, const Event&) { txtListenerDrive_Click(); });
  form_.on(u"cmdok", Event::Click, [this](Control&, const Event&) { cmdok_Click(); });
  form_.on(u"cmdCancel", Event::Click, [this](Control&, const Event&) { cmdCancel_Click(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) cmdCancel_Click();
  });
}

std::optional<QString> DirectorysForm::open(const DirectoryRequest& request) {
  if (form_.shown() || scanning_) return std::nullopt;
  request_ = request;
  chosen_.reset();
  Form_Load();
  if (request_.runAtLoad) {
    dofiles(path_);
    return std::nullopt;
  }
  uses_.host.showModal(form_);
  return chosen_;
}

void DirectorysForm::Form_Load() {
  dress(form_, uses_.palette);
  panel_.lblTitle->caption = request_.caption;
  panel_.txtStatus->caption = QString();
  panel_.lblRate->caption = QString();
  const bool byFolders = request_.mode == "DIR"_L1;
  panel_.lblListener->visible = byFolders;
  panel_.txtListenerDrive->visible = byFolders;
  panel_.txtListenerDrive->text = QString();
  panel_.Drive1->setRows(rowsOf(uses_.files.volumes()));
  if (request_.pattern.isEmpty()) request_.pattern = uses_.import.musicPattern();
  lookScanning(false);
  showCustomButton();
  showFolder(beginning());
}

void DirectorysForm::showCustomButton() {
  const bool shown = !request_.customEntries.isEmpty();
  Control* const placed[] = {panel_.Drive1, panel_.Dir1, panel_.File1, panel_.lblPath,
                             panel_.lblfiles};
  for (size_t i = 0; i < std::size(placed); ++i)
    placed[i]->rect = shown ? kNarrowPlaces[i] : kPlaces[i];
  panel_.frameCustomButton->visible = shown;
  std::vector<RowTable::Row> rows;
  for (const QString& entry : std::as_const(request_.customEntries))
    rows.push_back({{entry, entry.section(u' ', 0, 0), entry.section(u' ', 1).trimmed()}});
  panel_.customSelect->fontSize = kMeaningSize;
  panel_.customSelect->setRows(std::move(rows));
  panel_.customSelect->row = 0;
}

QStringList DirectorysForm::filesOf(const QString& path) const {
  if (!request_.alsoShown) return fileRows(uses_.files, path, request_.pattern);
  QStringList found = fileRows(uses_.files, path, u"*"_s);
  found.removeIf([&](const QString& name) {
    return !fitsPattern(name, request_.pattern) &&
           !request_.alsoShown(FileSystem::BuildPath(path, name));
  });
  return found;
}

// The place told, else what is stored for this purpose, else the user's home.
QString DirectorysForm::beginning() const {
  const Settings& settings = uses_.settings;
  QStringList places{request_.path};
  switch (request_.store) {
    case DirectoryRequest::Movies:
      places << settings.str(key::MDirectory);
      break;
    case DirectoryRequest::Playlist:
      places << settings.str(key::PLDirectory);
      break;
    case DirectoryRequest::Photos:
      places << settings.str(key::PDirectory);
      break;
    case DirectoryRequest::Nothing:
      places << settings.str(key::MusicRoot);
      break;
  }
  places << qEnvironmentVariable("HOME");
  for (const QString& place : std::as_const(places)) {
    if (place.isEmpty() || !uses_.files.FolderExists(place)) continue;
    QString found = uses_.files.resolve(place).value_or(place);
    while (found.size() > 1 && found.endsWith(u'/')) found.chop(1);
    return found;
  }
  return u"/"_s;
}

void DirectorysForm::showFolder(const QString& path) {
  path_ = path;
  const QStringList found = filesOf(path);
  panel_.lblPath->caption = path;
  panel_.Dir1->setRows(rowsOf(folderRows(uses_.files, path)));
  panel_.File1->setRows(rowsOf(found));
  panel_.File1->row = 0;
  panel_.lblfiles->caption = u"Files found = "_s + QString::number(found.size());
  const int volume = volumeOf(uses_.files.volumes(), path);
  panel_.Drive1->row = volume + 1;
}

void DirectorysForm::Drive1_Change(int row) {
  if (!scanning_ && row > 0) showFolder(panel_.Drive1->cell(1, row));
}

void DirectorysForm::Dir1_Change(int row) {
  if (!scanning_ && row > 0) showFolder(folderAt(path_, panel_.Dir1->cell(1, row)));
}

void DirectorysForm::txtListenerDrive_Click() {
  const QString typed = uses_.messages.ask(panel_.lblListener->caption());
  if (!typed.isEmpty()) panel_.txtListenerDrive->text = typed;
}

void DirectorysForm::cmdok_Click() {
  if (scanning_) return;
  if (request_.mode == "DIR"_L1) return dofiles(path_);
  if (request_.mode == "MP3"_L1) return scanTagged();
  if (request_.mode == "SINGLE"_L1) return takeFile();
  storeDirectory();
}

void DirectorysForm::cmdCancel_Click() {
  if (scanning_) return uses_.import.stop();
  uses_.host.hide(form_);
}

void DirectorysForm::dofiles(const QString& path) {
  const QString drive = panel_.txtListenerDrive->text();
  run([&] { return uses_.import.dofiles(path, drive, *this); });
}

void DirectorysForm::scanTagged() {
  run([&] { return uses_.import.scanTagged(path_, *this); });
}

template <class Scan>
void DirectorysForm::run(Scan scan) {
  if (scanning_) return;
  uses_.settings.write(key::MusicRoot, path_);
  watched_ = form_.shown();
  lookScanning(true);
  guarded([&] {
    const Busy busy(uses_.screen);
    finished(scan());
  });
  lookScanning(false);
  guarded([this] { uses_.news.songsChanged(); });
}

void DirectorysForm::guarded(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& failure) {
    uses_.messages.say(QString::fromUtf8(failure.what()));
  }
}

void DirectorysForm::lookScanning(bool scanning) {
  scanning_ = scanning;
  panel_.cmdCancel->caption = scanning ? u"Stop"_s : u"Cancel"_s;
  for (Control* control : std::initializer_list<Control*>{panel_.cmdok, panel_.Drive1, panel_.Dir1,
                                                          panel_.File1, panel_.txtListenerDrive})
    control->enabled = !scanning;
}

void DirectorysForm::importProgress(const ImportProgress& progress) {
  if (watched_ && !form_.shown()) uses_.import.stop();  // the window goes
  panel_.txtStatus->caption = progress.text;
  panel_.lblRate->caption = u"%1 songs, %2 new, %3 songs a second"_s.arg(
      QString::number(progress.files), QString::number(progress.added),
      QString::number(std::lround(progress.filesPerSecond)));
}

void DirectorysForm::finished(const ImportResult& result) {
  const double rate = result.seconds > 0 ? result.files / result.seconds : result.files;
  importProgress({result.stopped ? u"Stopped"_s : u"Finished"_s, result.files, result.added, rate});
  if (result.failed > 0)
    panel_.txtStatus->caption = u"%1, %2 could not be read (see log.txt)"_s.arg(
        panel_.txtStatus->caption(), QString::number(result.failed));
}

void DirectorysForm::takeFile() {
  const int row = panel_.File1->row();
  QString taken = customSelected(request_.customEntries, panel_.customSelect->row() - 1);
  if (taken.isEmpty()) {
    if (row < 1 || row > panel_.File1->maxRows()) {
      uses_.messages.say(u"Select a file first"_s);
      return;
    }
    taken = FileSystem::BuildPath(path_, panel_.File1->cell(1, row));
  }
  chosen_ = taken;
  uses_.host.hide(form_);
}

void DirectorysForm::storeDirectory() {
  const QString directory = withSeparator(path_);
  QString error;
  const SettingKey* key = keyOf(request_.store);
  if (key && !uses_.settings.write(*key, directory, &error)) {
    uses_.messages.say(error);
    return;
  }
  chosen_ = directory;
  uses_.host.hide(form_);
  switch (request_.store) {
    case DirectoryRequest::Movies:
      uses_.news.movieDirectoryChanged();
      break;
    case DirectoryRequest::Playlist:
      uses_.state.gPlaylistDir = directory;
      break;
    case DirectoryRequest::Photos:
      uses_.news.photoDirectoryChanged();
      break;
    case DirectoryRequest::Nothing:
      break;
  }
}

}  // namespace korvane

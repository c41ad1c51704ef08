#include "core/chooser.h"

#include "core/chooser_lists.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr int kMeaningSize = 12;

// Volumes, folders, files, and below them the folder and their number: without and with the entries
// of a client before them.
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

// What a client asks for, and the name of a file to be saved.
constexpr Rect kAsked{304, 572, 136, 72}, kNamed{304, 572, 952, 72};

constexpr Look kTitle{.text = 36, .bold = true};
constexpr Look kWhatItDoes{.caption = "What the button does"};
constexpr Look kCancel{.caption = "Cancel", .cancels = true};
constexpr Look kOk{.caption = "OK", .accent = true};

constexpr InventoryRow kDirectorys[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 60}, TL, "Title", "", true, kTitle},
    {"Drive1", -1, Kind::Grid, kPlaces[0], TL, "Volumes"},
    {"Dir1", -1, Kind::Grid, kPlaces[1], TL, "Folders"},
    {"File1", -1, Kind::Grid, kPlaces[2], TL, "Files"},
    {"lblPath", -1, Kind::Label, kPlaces[3], TL, "Folder"},
    {"lblfiles", -1, Kind::Label, kPlaces[4], TL, "Files found"},
    {"lblListener", -1, Kind::Label, {24, 572, 280, 72}, TL, ""},
    {"txtListenerDrive", -1, Kind::Text, kAsked, TL, "Listener Drive Letter"},
    {"txtStatus", -1, Kind::Label, {464, 564, 792, 44}, TL, "Status"},
    {"lblRate", -1, Kind::Label, {464, 608, 792, 44}, TL, "Progress"},
    {"frameCustomButton",
     -1,
     Kind::Frame,
     {24, 80, 640, 572},
     TL,
     "Actions",
     "",
     false,
     kWhatItDoes},
    {"customSelect", -1, Kind::Grid, {12, 60, 616, 500}, TL, "Actions", "frameCustomButton"},
    {"cmdCancel", -1, Kind::Button, {664, 664, 288, 88}, TL, "Cancel", "", true, kCancel},
    {"cmdok", -1, Kind::Button, {968, 664, 288, 88}, TL, "OK", "", true, kOk},
};

std::vector<RowTable::Row> rowsOf(const QStringList& names) {
  std::vector<RowTable::Row> rows;
  for (const QString& name : names) rows.push_back({{name}});
  return rows;
}

}  // namespace

Chooser::Chooser(const DialogUses& dialogs, const FileSystem& files)
    : Dialog(dialogs, u"frmDirectorys"_s, kDirectorys), files_(files), panel_(form_) {
  panel_.Drive1->columns = {{u"Volume"_s}};
  panel_.Dir1->columns = {{u"Folder"_s}};
  panel_.File1->columns = {{u"File"_s}};
  // The entry as it is stored, and the two halves of it that are read.
  panel_.customSelect->columns = {{u"Entry"_s, 0, true}, {u"Action"_s, 39}, {u"Meaning"_s, 61}};
  form_.on(u"Drive1", Event::Click,
           [this](Control&, const Event& event) { Drive1_Change(event.row); });
  form_.on(u"Dir1", Event::Click, [this](Control&, const Event& event) { Dir1_Change(event.row); });
  // What was chosen last counts: an entry or a file.
  onClick(u"File1", [this](int) { File1_Click(); });
  onClick(u"txtListenerDrive", [this](int) { askInto(*panel_.txtListenerDrive, request_.asks); });
  onClick(u"cmdok", [this](int) { cmdok_Click(); });
  onClick(u"cmdCancel", [this](int) { cmdCancel_Click(); });
}

std::optional<QString> Chooser::open(const ChooserRequest& request) {
  if (form_.shown() || working_) return std::nullopt;
  request_ = request;
  if (request_.kind == ChooserRequest::Save) request_.asks = u"File name"_s;
  chosen_.reset();
  run([this] { Form_Load(); });
  return chosen_;
}

void Chooser::Form_Load() {
  panel_.lblTitle->caption = request_.title;
  panel_.txtStatus->caption = QString();
  panel_.lblRate->caption = QString();
  panel_.lblListener->caption = request_.asks;
  panel_.lblListener->visible = panel_.txtListenerDrive->visible = !request_.asks.isEmpty();
  panel_.txtListenerDrive->text = request_.name;
  const bool saves = request_.kind == ChooserRequest::Save;
  panel_.txtListenerDrive->rect = saves ? kNamed : kAsked;
  panel_.txtStatus->visible = panel_.lblRate->visible = !saves;
  panel_.Drive1->setRows(rowsOf(files_.volumes()));
  lookWorking(false);
  showEntries();
  showFolder(beginning());
}

void Chooser::showEntries() {
  const bool shown = !request_.entries.isEmpty();
  Control* const placed[] = {panel_.Drive1, panel_.Dir1, panel_.File1, panel_.lblPath,
                             panel_.lblfiles};
  for (size_t i = 0; i < std::size(placed); ++i)
    placed[i]->rect = shown ? kNarrowPlaces[i] : kPlaces[i];
  panel_.frameCustomButton->visible = shown;
  std::vector<RowTable::Row> rows;
  for (const QString& entry : std::as_const(request_.entries))
    rows.push_back({{entry, entry.section(u' ', 0, 0), entry.section(u' ', 1).trimmed()}});
  panel_.customSelect->fontSize = kMeaningSize;
  panel_.customSelect->setRows(std::move(rows));
  panel_.customSelect->row = 0;
}

QStringList Chooser::filesOf(const QString& path) const {
  if (!request_.alsoShown) return fileRows(files_, path, request_.pattern);
  QStringList found = fileRows(files_, path, u"*"_s);
  found.removeIf([&](const QString& name) {
    return !fitsPattern(name, request_.pattern) &&
           !request_.alsoShown(FileSystem::BuildPath(path, name));
  });
  return found;
}

QString Chooser::beginning() const {
  QStringList places = request_.places;
  places << qEnvironmentVariable("HOME");
  for (const QString& place : std::as_const(places)) {
    if (place.isEmpty() || !files_.FolderExists(place)) continue;
    QString found = files_.resolve(place).value_or(place);
    while (found.size() > 1 && found.endsWith(u'/')) found.chop(1);
    return found;
  }
  return u"/"_s;
}

void Chooser::showFolder(const QString& path) {
  path_ = path;
  const QStringList found = filesOf(path);
  panel_.lblPath->caption = path;
  panel_.Dir1->setRows(rowsOf(folderRows(files_, path)));
  panel_.File1->setRows(rowsOf(found));
  panel_.File1->row = 0;
  panel_.lblfiles->caption = u"Files found = "_s + QString::number(found.size());
  panel_.Drive1->row = volumeOf(files_.volumes(), path) + 1;
}

void Chooser::Drive1_Change(int row) {
  if (!working_ && row > 0) showFolder(panel_.Drive1->cell(1, row));
}

void Chooser::Dir1_Change(int row) {
  if (!working_ && row > 0) showFolder(folderAt(path_, panel_.Dir1->cell(1, row)));
}

void Chooser::File1_Click() {
  panel_.customSelect->row = 0;
  if (request_.kind == ChooserRequest::Save)
    panel_.txtListenerDrive->text = panel_.File1->cell(1, panel_.File1->row());
}

void Chooser::cmdok_Click() {
  if (working_) return;
  if (request_.work) return doWork();
  if (request_.kind == ChooserRequest::File) return takeFile();
  if (request_.kind == ChooserRequest::Save) return takeName();
  take(withSeparator(path_));
}

void Chooser::cmdCancel_Click() {
  if (working_) return request_.work->stop();
  leave();
}

void Chooser::doWork() {
  lookWorking(true);
  QString failure;
  try {
    request_.work->run(path_, panel_.txtListenerDrive->text());
  } catch (const std::exception& thrown) {
    failure = QString::fromUtf8(thrown.what());
  }
  lookWorking(false);
  if (!failure.isEmpty()) dialog_.messages.say(failure);
}

void Chooser::lookWorking(bool working) {
  working_ = working;
  panel_.cmdCancel->caption = working ? u"Stop"_s : u"Cancel"_s;
  for (Control* control : std::initializer_list<Control*>{panel_.cmdok, panel_.Drive1, panel_.Dir1,
                                                          panel_.File1, panel_.txtListenerDrive})
    control->enabled = !working;
}

void Chooser::showStatus(const QString& text, const QString& progress) {
  if (!working_) return;
  if (!form_.shown()) request_.work->stop();
  panel_.txtStatus->caption = text;
  panel_.lblRate->caption = progress;
}

void Chooser::takeFile() {
  const QString word = customSelected(request_.entries, panel_.customSelect->row() - 1);
  if (!word.isEmpty()) return take(word);
  const int row = panel_.File1->row();
  if (row < 1 || row > panel_.File1->maxRows()) {
    dialog_.messages.say(u"Select a file first"_s);
    return;
  }
  take(FileSystem::BuildPath(path_, panel_.File1->cell(1, row)));
}

void Chooser::takeName() {
  const QString name = panel_.txtListenerDrive->text().trimmed();
  if (name.isEmpty() || name.contains(u'/')) {
    dialog_.messages.say(u"Type the name of the file first"_s);
    return;
  }
  take(FileSystem::BuildPath(path_, name));
}

void Chooser::take(const QString& chosen) {
  const QString error = request_.keep ? request_.keep(chosen) : QString();
  if (!error.isEmpty()) {
    dialog_.messages.say(error);
    return;
  }
  chosen_ = chosen;
  leave();
}

}  // namespace korvane

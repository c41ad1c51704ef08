#include "library/screens/single_song_form.h"

#include <QLocale>
#include <atomic>
#include <future>

#include "core/chooser_lists.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Kind kButton = Kind::Button, kLabel = Kind::Label;
constexpr std::chrono::milliseconds kLook{20};  // at a copy on its thread

constexpr InventoryRow kSingleSong[] = {
    {"lblTitle",
     -1,
     kLabel,
     {24, 12, 1232, 64},
     TL,
     "Title",
     "",
     true,
     {.caption = "Add Misc Songs", .text = 44, .bold = true}},
    {"cmdSource",
     -1,
     kButton,
     {24, 96, 368, 88},
     TL,
     "Locate Music",
     "",
     true,
     {.caption = "Locate Music "}},
    {"lblSource", -1, kLabel, {416, 96, 840, 88}, TL, "Source"},
    {"cmdDestination",
     -1,
     kButton,
     {24, 200, 368, 88},
     TL,
     "Music Destination",
     "",
     true,
     {.caption = "Music Destination "}},
    {"lblDestination", -1, kLabel, {416, 200, 840, 88}, TL, "Destination"},
    {"lblArtist", -1, kLabel, {24, 320, 368, 76}, TL, "", "", true, {.caption = "Artist"}},
    {"txtArtist", -1, Kind::Text, {416, 320, 840, 76}, TL, "Artist"},
    {"lblAlbum", -1, kLabel, {24, 412, 368, 76}, TL, "", "", true, {.caption = "Album"}},
    {"txtAlbum", -1, Kind::Text, {416, 412, 840, 76}, TL, "Album"},
    {"txtStatus", -1, kLabel, {24, 520, 1232, 120}, TL, "Status", "", true, {.wraps = true}},
    {"cmdCancel",
     -1,
     kButton,
     {664, 664, 288, 88},
     TL,
     "Cancel",
     "",
     true,
     {.caption = "Cancel", .cancels = true}},
    {"cmdCopy",
     -1,
     kButton,
     {968, 664, 288, 88},
     TL,
     "Copy and add",
     "",
     true,
     {.caption = "Copy and add", .accent = true}},
};

// "###,###,###,###,###": groups of three, and no digit at all for zero.
QString grouped(qint64 number) {
  return number == 0 ? QString() : QLocale(QLocale::English).toString(number);
}

[[noreturn]] void fail(const QString& words) {
  throw std::runtime_error(words.toStdString());
}

}  // namespace

QString folderName(const QString& text) {
  QString name = text.trimmed();
  for (QChar& c : name)
    if (c == u'/' || c == u'\\' || c < u' ') c = u'_';
  if (name.startsWith(u'.')) name[0] = u'_';
  return name;
}

SingleSongForm::SingleSongForm(Uses uses)
    : Dialog(uses.dialog, u"frmSingleSong"_s, kSingleSong), uses_(uses), panel_(form_) {
  onClick(u"cmdSource", [this](int) { choose(*panel_.lblSource, u"Locate Music "_s); });
  onClick(u"cmdDestination",
          [this](int) { choose(*panel_.lblDestination, u"Music Destination "_s); });
  onClick(u"txtArtist", [this](int) { askInto(*panel_.txtArtist, u"Artist"_s); });
  onClick(u"txtAlbum", [this](int) { askInto(*panel_.txtAlbum, u"Album"_s); });
  onClick(u"cmdCopy", [this](int) { cmdCopy_Click(); });
  onClick(u"cmdCancel", [this](int) { cmdCancel_Click(); });
}

void SingleSongForm::open() {
  if (copying_) return;
  run([this] {
    panel_.txtStatus->caption = QString();
    panel_.cmdCancel->caption = u"Cancel"_s;
  });
}

void SingleSongForm::choose(Label& shown, const QString& caption) {
  ChooserRequest request;
  request.title = caption;
  request.pattern = uses_.import.musicPattern();
  request.places = {shown.caption(), uses_.settings.str(key::MusicRoot)};
  if (const auto chosen = uses_.chooser.open(request)) shown.caption = *chosen;
}

QString SingleSongForm::refusal() const {
  for (const Label* folder : {panel_.lblSource, panel_.lblDestination}) {
    if (folder->caption().isEmpty()) return u"Select a directory first"_s;
    if (!uses_.files.FolderExists(folder->caption())) return u"That folder does not exist"_s;
  }
  const bool named =
      !panel_.txtAlbum->text().trimmed().isEmpty() && !panel_.txtArtist->text().trimmed().isEmpty();
  return named ? QString() : u"You must enter a Album and an Artist name "_s;
}

void SingleSongForm::cmdCopy_Click() {
  if (copying_) return;
  if (const QString why = refusal(); !why.isEmpty()) {
    dialog_.messages.say(why);
    return;
  }
  copying_ = true;
  stopped_ = false;
  panel_.cmdCancel->caption = u"Stop"_s;
  QString failure;
  try {
    {
      const Busy busy(uses_.screen);
      copySongs();
    }
    uses_.news.songsChanged();
  } catch (const std::exception& thrown) {
    panel_.txtStatus->caption = QString();
    failure = QString::fromUtf8(thrown.what());
  }
  panel_.cmdCancel->caption = u"Cancel"_s;
  copying_ = false;
  if (!failure.isEmpty()) dialog_.messages.say(failure);
}

void SingleSongForm::cmdCancel_Click() {
  stopped_ = true;
  if (!copying_) leave();
}

void SingleSongForm::copySongs() {
  const QString root = panel_.lblDestination->caption();
  const QString artist = FileSystem::BuildPath(root, folderName(panel_.txtArtist->text()));
  const QString folder = FileSystem::BuildPath(artist, folderName(panel_.txtAlbum->text()));
  const QStringList names =
      fileRows(uses_.files, panel_.lblSource->caption(), uses_.import.musicPattern());
  checkRoom(folder, names);
  status(u"  Creating folder "_s + folder);
  if (!uses_.files.CreateFolder(folder))
    fail(u"The folder %1 cannot be made. Is the disk full or write-protected?"_s.arg(folder));
  for (const QString& name : names) {
    status(u"Loading..  "_s + name);
    if (!stopped_) copySong(folder, name);
    if (stopped_) return status(u"Stopped"_s);
  }
  const QString space = grouped(uses_.import.freeSpace(root));
  status(u"Free space "_s + space + u"\nFinished !!"_s);
}

void SingleSongForm::checkRoom(const QString& folder, const QStringList& names) const {
  qint64 needed = 0;
  for (const QString& name : names)
    if (!uses_.files.FileExists(FileSystem::BuildPath(folder, name)))
      needed += std::max<qint64>(
          uses_.files.size(FileSystem::BuildPath(panel_.lblSource->caption(), name)), 0);
  const QString root = panel_.lblDestination->caption();
  const qint64 free = uses_.import.freeSpace(root);
  if (needed > free)
    fail(
        u"There is no room in %1 for these songs: they have %2 bytes, and %3 are free. Free some "
        "room, or choose another destination."_s.arg(root, grouped(needed), QString::number(free)));
}

// A file that is there already stays as it is.
void SingleSongForm::copySong(const QString& folder, const QString& name) {
  const QString target = FileSystem::BuildPath(folder, name);
  const QString source = FileSystem::BuildPath(panel_.lblSource->caption(), name);
  if (!uses_.files.FileExists(target) && !copyFile(source, target)) return;
  uses_.import.addSong(panel_.txtArtist->text(), panel_.txtAlbum->text(), name, target);
}

// On a thread of its own: a slow disk takes minutes for a large file, and the window goes on.
bool SingleSongForm::copyFile(const QString& from, const QString& to) {
  const QString heading = panel_.txtStatus->caption();
  const qint64 size = std::max<qint64>(uses_.files.size(from), 1);
  std::atomic<qint64> done = 0;
  std::atomic<bool> stop = false;
  QString error;
  const auto watch = [&done, &stop](qint64 bytes) {
    done = bytes;
    return !stop;
  };
  // Behind what the thread refers to: it is waited for when an exception leaves.
  auto copy = std::async(std::launch::async,
                         [&] { return uses_.files.copyInPieces(from, to, watch, &error); });
  while (copy.wait_for(kLook) != std::future_status::ready) {
    status(
        u"%1\n%2 % of %3 bytes"_s.arg(heading, QString::number(100 * done / size), grouped(size)));
    stopped_ = stopped_ || !form_.shown();  // the window goes
    stop = stopped_;
  }
  if (copy.get()) return true;
  if (!stop) fail(error);
  return false;
}

void SingleSongForm::status(const QString& text) {
  panel_.txtStatus->caption = text;
  uses_.pump.doEvents();
}

}  // namespace korvane

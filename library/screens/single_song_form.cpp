#include "library/screens/single_song_form.h"

#include <QLocale>

#include "core/dressing.h"
#include "library/screens/directory_lists.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;

constexpr InventoryRow kSingleSong[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 1232, 64}, TL, "Title"},
    {"cmdSource", -1, Kind::Button, {24, 96, 368, 88}, TL, "Locate Music"},
    {"lblSource", -1, Kind::Label, {416, 96, 840, 88}, TL, "Source"},
    {"cmdDestination", -1, Kind::Button, {24, 200, 368, 88}, TL, "Music Destination"},
    {"lblDestination", -1, Kind::Label, {416, 200, 840, 88}, TL, "Destination"},
    {"lblArtist", -1, Kind::Label, {24, 320, 368, 76}, TL, ""},
    {"txtArtist", -1, Kind::Text, {416, 320, 840, 76}, TL, "Artist"},
    {"lblAlbum", -1, Kind::Label, {24, 412, 368, 76}, TL, ""},
    {"txtAlbum", -1, Kind::Text, {416, 412, 840, 76}, TL, "Album"},
    {"txtStatus", -1, Kind::Label, {24, 520, 1232, 120}, TL, "Status"},
    {"cmdCancel", -1, Kind::Button, {664, 664, 288, 88}, TL, "Cancel"},
    {"cmdCopy", -1, Kind::Button, {968, 664, 288, 88}, TL, "Copy and add"},
};

// "###,###,###,###,###": groups of three, and no digit at all for zero.
QString grouped(qint64 number) {
  return number == 0 ? QString() : QLocale(QLocale::English).toString(number);
}

}  // namespace

SingleSongForm::SingleSongForm(Uses uses)
    : uses_(uses), form_(u"frmSingleSong"_s, kSingleSong), panel_(form_) {
  title(*panel_.lblTitle, u"Add Misc Songs"_s);
  panel_.cmdSource->caption = u"Locate Music "_s;
  panel_.cmdDestination->caption = u"Music Destination "_s;
  panel_.lblArtist->caption = u"Artist"_s;
  panel_.lblAlbum->caption = u"Album"_s;
  panel_.cmdCopy->caption = u"Copy and add"_s;
  panel_.cmdCopy->look.accent = true;
  panel_.txtStatus->wraps = true;

  const auto onClick = [this](const char* control, auto handler) {
    form_.on(QString::fromLatin1(control), Event::Click,
             [handler](Control&, const Event&) { handler(); });
  };
  onClick("cmdSource", [this] { choose(*panel_.lblSource, u"Locate Music "_s); });
  onClick("cmdDestination", [this] { choose(*panel_.lblDestination, u"Music Destination "_s); });
  onClick("txtArtist", [this] { askInto(*panel_.txtArtist, u"Artist"_s); });
  onClick("txtAlbum", [this] { askInto(*panel_.txtAlbum, u"Album"_s); });
  onClick("cmdCopy", [this] { cmdCopy_Click(); });
  onClick("cmdCancel", [this] { cmdCancel_Click(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) cmdCancel_Click();
  });
}

void SingleSongForm::open() {
  if (form_.shown() || copying_) return;
  dress(form_, uses_.palette);
  panel_.txtStatus->caption = QString();
  panel_.cmdCancel->caption = u"Cancel"_s;
  uses_.host.showModal(form_);
  stopped_ = true;
}

void SingleSongForm::askInto(TextBox& box, const QString& prompt) {
  const QString typed = uses_.messages.ask(prompt);
  if (!typed.isEmpty()) box.text = typed;
}

void SingleSongForm::choose(Label& shown, const QString& caption) {
  DirectoryRequest request;
  request.caption = caption;
  request.path = shown.caption();
  if (const auto chosen = uses_.directorys.open(request)) shown.caption = *chosen;
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
    uses_.messages.say(why);
    return;
  }
  copying_ = true;
  stopped_ = false;
  panel_.cmdCancel->caption = u"Stop"_s;
  try {
    {
      const Busy busy(uses_.screen);
      copySongs();
    }
    uses_.news.songsChanged();
  } catch (const std::exception& failure) {
    panel_.txtStatus->caption = QString();
    uses_.messages.say(QString::fromUtf8(failure.what()));
  }
  panel_.cmdCancel->caption = u"Cancel"_s;
  copying_ = false;
}

void SingleSongForm::cmdCancel_Click() {
  stopped_ = true;
  if (!copying_) uses_.host.hide(form_);
}

void SingleSongForm::copySongs() {
  const QString root = panel_.lblDestination->caption();
  const QString artist = FileSystem::BuildPath(root, folderName(panel_.txtArtist->text()));
  const QString folder = FileSystem::BuildPath(artist, folderName(panel_.txtAlbum->text()));
  status(u"  Creating folder "_s + folder);
  if (!uses_.files.CreateFolder(folder))
    throw std::runtime_error("The folder " + folder.toStdString() +
                             " cannot be made. Is the disk full or write-protected?");
  const QStringList names =
      fileRows(uses_.files, panel_.lblSource->caption(), uses_.import.musicPattern());
  for (const QString& name : names) {
    status(u"Loading..  "_s + name);
    if (stopped_) return status(u"Stopped"_s);
    copySong(folder, name);
  }
  const QString space = grouped(uses_.import.freeSpace(root));
  status(u"Free space "_s + space + u"\nFinished !!"_s);
}

// A file that is there already stays as it is.
void SingleSongForm::copySong(const QString& folder, const QString& name) {
  const QString target = FileSystem::BuildPath(folder, name);
  const QString source = FileSystem::BuildPath(panel_.lblSource->caption(), name);
  if (!uses_.files.FileExists(target) && !uses_.files.CopyFile(source, target))
    throw std::runtime_error(source.toStdString() + " cannot be copied to " + folder.toStdString() +
                             ". Is the disk full or write-protected?");
  uses_.import.addSong(panel_.txtArtist->text().trimmed(), panel_.txtAlbum->text().trimmed(), name,
                       target);
}

void SingleSongForm::status(const QString& text) {
  panel_.txtStatus->caption = text;
  uses_.pump.doEvents();
}

}  // namespace korvane

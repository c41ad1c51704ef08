#include "library/screens/mp3_setup_form.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Rect kCommands{24, 92, 812, 360};
constexpr Kind kButton = Kind::Button;

constexpr InventoryRow kMp3Setup[] = {
    {"lblTitle",
     -1,
     Kind::Label,
     {24, 12, 812, 64},
     TL,
     "Digital Music Setup",
     "",
     true,
     {.caption = "Digital Music Setup", .text = 44, .bold = true}},
    {"cmdMp3", 0, kButton, kCommands, TL, "Delete", "", true, {.caption = "Delete"}},
    {"cmdMp3",
     1,
     kButton,
     kCommands,
     TL,
     "Copy Directories",
     "",
     true,
     {.caption = "Copy Directories"}},
    {"cmdMp3",
     2,
     kButton,
     kCommands,
     TL,
     "Scan Existing Directories",
     "",
     true,
     {.caption = "Scan Existing Directories"}},
    {"cmdMp3",
     3,
     kButton,
     kCommands,
     TL,
     "Add Misc Songs",
     "",
     true,
     {.caption = "Add Misc Songs"}},
    {"cmdaddfile",
     -1,
     kButton,
     kCommands,
     TL,
     "Add One File",
     "",
     true,
     {.caption = "Add One File"}},
    {"cmdListing",
     -1,
     kButton,
     kCommands,
     TL,
     "Artists from a listing",
     "",
     true,
     {.caption = "Artists from a listing"}},
    {"optScan",
     0,
     Kind::Check,
     {440, 92, 176, 104},
     TL,
     "Scan by tags",
     "",
     true,
     {.caption = "by tags"}},
    {"optScan",
     1,
     Kind::Check,
     {616, 92, 220, 104},
     TL,
     "Scan by folder names",
     "",
     true,
     {.caption = "by folders"}},
    {"cmdOK",
     -1,
     kButton,
     {572, 476, 264, 88},
     TL,
     "Exit",
     "",
     true,
     {.caption = "Exit", .accent = true}},
};

}  // namespace

Mp3SetupForm::Mp3SetupForm(Uses uses)
    : Dialog(uses.dialog, u"frmMp3Setup"_s, kMp3Setup, {0, 0, 860, 588}),
      uses_(uses),
      panel_(form_) {
  onClick(u"cmdMp3", [this](int index) { cmdMp3_Click(index); });
  onClick(u"optScan", [this](int index) { chooseScan(index); });
  onClick(u"cmdaddfile", [this](int) { cmdaddfile_Click(); });
  onClick(u"cmdListing", [this](int) { cmdListing_Click(); });
  onClick(u"cmdOK", [this](int) { leave(); });
}

void Mp3SetupForm::open() {
  run([this] {
    chooseScan(uses_.settings.upper(key::Tags) == "FULL"_L1 ? 0 : 1);
    showCommands();
  });
}

void Mp3SetupForm::showCommands() {
  for (const Command later : {Delete, CopyDirectories})
    panel_.cmdMp3[later]->visible = doors_.find(*panel_.cmdMp3[later]) != nullptr;
  const std::vector<Control*> commands{panel_.cmdMp3[AddMisc], panel_.cmdaddfile, panel_.cmdListing,
                                       panel_.cmdMp3[CopyDirectories], panel_.cmdMp3[Delete]};
  layOut(commands);
}

// The ways of a scan stand beside its button, the other commands below it, two to a row.
void Mp3SetupForm::layOut(std::span<Control* const> commands) {
  const auto shown =
      std::ranges::count_if(commands, [](const Control* command) { return command->visible(); });
  const int rows = 1 + static_cast<int>(shown + 1) / 2, gap = 16;
  const int height = (kCommands.height - gap * (rows - 1)) / rows;
  Rect first = kCommands, below = kCommands;
  first.width = (kCommands.width - gap) / 2;
  first.height = height;
  panel_.cmdMp3[Scan]->rect = first;
  for (Check* way : panel_.optScan) {
    Rect place = way->design;
    place.height = height;
    way->rect = place;
  }
  below.top += height + gap;
  flow(commands, below, 2, height, gap);
}

void Mp3SetupForm::chooseScan(int index) {
  panel_.optScan[0]->checked = index == 0;
  panel_.optScan[1]->checked = index == 1;
}

void Mp3SetupForm::cmdMp3_Click(int index) {
  switch (static_cast<Command>(index)) {
    case Delete:
    case CopyDirectories:
      doors_.open(*panel_.cmdMp3[static_cast<size_t>(index)]);
      return;
    case Scan:
      uses_.scan.open(panel_.optScan[0]->checked() ? DirectoryScan::ByTags
                                                   : DirectoryScan::ByFolders);
      return;
    case AddMisc:
      uses_.singleSong.open();
      return;
  }
}

void Mp3SetupForm::cmdaddfile_Click() {
  ChooserRequest request;
  request.title = u"MP3 Files"_s;
  request.kind = ChooserRequest::File;
  request.pattern = u"*.mp3"_s;
  request.places = {uses_.settings.str(key::MusicRoot)};
  const std::optional<QString> path = uses_.chooser.open(request);
  if (!path) return;
  const QString name = path->mid(path->lastIndexOf(u'/') + 1);
  try {
    const bool added = uses_.import.AddOneSong(*path, name);
    dialog_.messages.say(
        added ? name + u" is in the library now."_s
              : u"The library has a song of that artist, album and title already."_s);
    if (added) uses_.news.songsChanged();
  } catch (const std::exception& failure) {
    dialog_.messages.say(u"Error in frmsetup,cmdaddfile.click  \n"_s +
                         QString::fromUtf8(failure.what()));
  }
}

void Mp3SetupForm::cmdListing_Click() {
  ChooserRequest request;
  request.title = u"Artists from a listing"_s;
  request.kind = ChooserRequest::File;
  request.pattern = u"*.txt"_s;
  request.places = {uses_.settings.str(key::MusicRoot)};
  const std::optional<QString> path = uses_.chooser.open(request);
  if (!path) return;
  const std::optional<QByteArray> listing = uses_.files.read(*path);
  if (!listing) {
    dialog_.messages.say(u"%1 cannot be read. Is it still there, and under 64 MB?"_s.arg(*path));
    return;
  }
  try {
    const int added = uses_.import.addArtistsFromListing(*listing);
    dialog_.messages.say(u"%1 artists came from %2."_s.arg(QString::number(added), *path));
    if (added > 0) uses_.news.songsChanged();
  } catch (const std::exception& failure) {
    dialog_.messages.say(QString::fromUtf8(failure.what()));
  }
}

}  // namespace korvane

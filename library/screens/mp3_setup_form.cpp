#include "library/screens/mp3_setup_form.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Rect kCommands{24, 92, 812, 360};

constexpr InventoryRow kMp3Setup[] = {
    {"lblTitle", -1, Kind::Label, {24, 12, 812, 64}, TL, "Digital Music Setup"},
    {"cmdMp3", 0, Kind::Button, kCommands, TL, "Delete"},
    {"cmdMp3", 1, Kind::Button, kCommands, TL, "Copy Directories"},
    {"cmdMp3", 2, Kind::Button, kCommands, TL, "Scan Existing Directories"},
    {"cmdMp3", 3, Kind::Button, kCommands, TL, "Add Misc Songs"},
    {"cmdaddfile", -1, Kind::Button, kCommands, TL, "Add One File"},
    {"optScan", 0, Kind::Check, {440, 92, 176, 104}, TL, "Scan by tags"},
    {"optScan", 1, Kind::Check, {616, 92, 220, 104}, TL, "Scan by folder names"},
    {"cmdOK", -1, Kind::Button, {572, 476, 264, 88}, TL, "Exit"},
};

constexpr const char* kCaptions[] = {"Delete", "Copy Directories", "Scan Existing Directories",
                                     "Add Misc Songs"};

}  // namespace

Mp3SetupForm::Mp3SetupForm(Uses uses)
    : uses_(uses), form_(u"frmMp3Setup"_s, kMp3Setup, {0, 0, 860, 588}), panel_(form_) {
  title(*panel_.lblTitle, u"Digital Music Setup"_s);
  panel_.optScan[0]->caption = u"by tags"_s;
  panel_.optScan[1]->caption = u"by folders"_s;
  for (size_t i = 0; i < panel_.cmdMp3.size(); ++i)
    panel_.cmdMp3[i]->caption = QString::fromLatin1(kCaptions[i]);
  panel_.cmdaddfile->caption = u"Add One File"_s;
  panel_.cmdOK->caption = u"Exit"_s;
  panel_.cmdOK->look.accent = true;

  form_.on(u"cmdMp3", Event::Click,
           [this](Control& command, const Event&) { cmdMp3_Click(command.index); });
  form_.on(u"optScan", Event::Click,
           [this](Control& chosen, const Event&) { chooseScan(chosen.index); });
  form_.on(u"cmdaddfile", Event::Click, [this](Control&, const Event&) { cmdaddfile_Click(); });
  form_.on(u"cmdOK", Event::Click, [this](Control&, const Event&) { uses_.host.hide(form_); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) uses_.host.hide(form_);
  });
}

void Mp3SetupForm::open() {
  if (form_.shown()) return;
  dress(form_, uses_.palette);
  chooseScan(uses_.settings.upper(key::Tags) == "FULL"_L1 ? 0 : 1);
  showCommands();
  uses_.host.showModal(form_);
}

void Mp3SetupForm::showCommands() {
  for (const Command later : {Delete, CopyDirectories})
    panel_.cmdMp3[later]->visible = doors_.find(*panel_.cmdMp3[later]) != nullptr;
  const std::vector<Control*> commands{panel_.cmdMp3[AddMisc], panel_.cmdaddfile,
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
    case Scan: {
      DirectoryRequest request;
      request.mode = panel_.optScan[0]->checked() ? u"MP3"_s : u"DIR"_s;
      uses_.directorys.open(request);
      return;
    }
    case AddMisc:
      uses_.singleSong.open();
      return;
  }
}

void Mp3SetupForm::cmdaddfile_Click() {
  DirectoryRequest request;
  request.caption = u"MP3 Files"_s;
  request.mode = u"SINGLE"_s;
  request.pattern = u"*.mp3"_s;
  const std::optional<QString> path = uses_.directorys.open(request);
  if (!path) return;
  const QString name = path->mid(path->lastIndexOf(u'/') + 1);
  try {
    const bool added = uses_.import.AddOneSong(*path, name);
    uses_.messages.say(added
                           ? name + u" is in the library now."_s
                           : u"The library has a song of that artist, album and title already."_s);
    if (added) uses_.news.songsChanged();
  } catch (const std::exception& failure) {
    uses_.messages.say(u"Error in frmsetup,cmdaddfile.click  \n"_s +
                       QString::fromUtf8(failure.what()));
  }
}

}  // namespace korvane

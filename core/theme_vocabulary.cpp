#include "core/theme_vocabulary.h"

#include "core/dressing.h"
#include "core/prompt.h"
#include "core/startup.h"
#include "core/window_buttons.h"

namespace korvane {
namespace {

struct Inventory {
  std::span<const InventoryRow> rows;
  QStringView ground;  // the colour element of its form
};

std::vector<Inventory> inventories() {
  return {{mainInventory(), u"Status"},
          {messageBoxInventory(), u"Messagebox"},
          {splashInventory(), u"Surface"},
          {stripInventory(), u"Surface"}};
}

// Pictures that a control of the main form wears later, at its size.
constexpr struct {
  const char *group, *names, *like;
  int index;
} kLater[] = {
    {"radio", "radio", "imgTabs", kMapsTab},
    {"music", "jukebox", "cmdTop", 2},
    {"music", "delete", "cmdControls", 5},
    {"movies", "bigpause", "cmdMovie", 0},
};

// Pictures of other sizes and of other folders' forms, in form units.
constexpr struct {
  const char *group, *names;
  int width, height;
} kSized[] = {
    {"main",
     "btnmusic btnmovies btnphotos btnmaps btnmore btnartists btnalbums btnsongs btnsearch "
     "btnplaylists btnfavourites btnjukebox btnshuffle btnplaypause btncd btnmute btnsetup "
     "btnminimise btnexit btnripper btnrestart btnshutdown btnconnect btnpictureedit btnprogram",
     96, 96},
    {"photos", "UpDirectory folderclosed file", 96, 96},
    {"root", "capslockon", 96, 64},
    {"movies", "noposter noposterdvd", 96, 72},
    {"music", "pluseplaylist pldone plrename pldelete pledit plcreate", 292, 96},
};

// The same of pictures with one state.
constexpr struct {
  const char *group, *names;
  int width, height;
} kAlone[] = {{"more", "lampunknown lamp0 lamp20 lamp40 lamp60 lamp80 lamp100", 120, 120}};

// Pictures with one state, as large as the screen.
constexpr const char* kGrounds[] = {"root/splash",       "main/background",   "music/background",
                                    "movies/background", "photos/background", "maps/background",
                                    "more/background",   "radio/background"};

// Colours that no row wears at first.
constexpr const char* kElements =
    "Edge ButtonPressed DurationSliderON DurationSliderOFF DurationSliderKNOB "
    "JUKEBOXGRID JUKEBOXGridSelected MovieFullScreen "
    "plwindow plslider plcreate plrename pledit pldelete pluseplaylist pldone";

class Pictures {
 public:
  void add(const QString& group, const QString& name, int width, int height) {
    const auto same = [&](const ThemePicture& other) {
      return other.group.compare(group, Qt::CaseInsensitive) == 0 &&
             other.name.compare(name, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::ranges::find_if(all, same);
    if (found == all.end()) return all.push_back({group, name, width, height});
    found->width = std::max(found->width, width);
    found->height = std::max(found->height, height);
  }
  // Names with a space between, each with its other state.
  void addBoth(const QString& group, const QString& names, int width, int height) {
    for (const QString& name : names.split(u' ')) {
      add(group, name, width, height);
      add(group, otherState(name), width, height);
    }
  }
  void add(const InventoryRow& row) {
    const QString picture = QString::fromLatin1(row.look.picture);
    if (picture.isEmpty()) return;
    const QString group = picture.section(u'/', 0, 0), name = picture.section(u'/', 1);
    add(group, name, row.rect.width, row.rect.height);
    if (row.kind != Kind::PictureArea)
      add(group, otherState(name), row.rect.width, row.rect.height);
  }

  std::vector<ThemePicture> all;
};

}  // namespace

QString otherState(const QString& name) {
  if (name.endsWith("on"_L1, Qt::CaseInsensitive)) return name.chopped(2) + u"Off"_s;
  if (name.endsWith("off"_L1, Qt::CaseInsensitive)) return name.chopped(3) + u"On"_s;
  return name.endsWith(u'b') ? name.chopped(1) : name + u'b';
}

std::vector<ThemePicture> themePictures() {
  Pictures pictures;
  for (const Inventory& inventory : inventories())
    for (const InventoryRow& row : inventory.rows) pictures.add(row);
  const Form form(u"frmMain"_s, mainInventory());
  for (const auto& [group, names, like, index] : kLater) {
    const Rect size = controlOf<Image>(form, QString::fromLatin1(like), index).design;
    pictures.addBoth(QString::fromLatin1(group), QString::fromLatin1(names), size.width,
                     size.height);
  }
  for (const auto& [group, names, width, height] : kSized)
    pictures.addBoth(QString::fromLatin1(group), QString::fromLatin1(names), width, height);
  for (const auto& [group, names, width, height] : kAlone)
    for (const QString& name : QString::fromLatin1(names).split(u' '))
      pictures.add(QString::fromLatin1(group), name, width, height);
  for (const char* ground : kGrounds) {
    const QString picture = QString::fromLatin1(ground);
    pictures.add(picture.section(u'/', 0, 0), picture.section(u'/', 1), form.design.width,
                 form.design.height);
  }
  return pictures.all;
}

QStringList themeColours() {
  QStringList elements = QString::fromLatin1(kElements).split(u' ');
  for (const auto& [rows, ground] : inventories()) {
    elements << ground.toString();
    for (const InventoryRow& row : rows) elements << colourElements(row.kind, row.look, ground);
  }
  elements.removeDuplicates();
  return elements;
}

}  // namespace korvane

#include "photos/photo_album.h"

#include "core/dressing.h"
#include "core/log.h"
#include "photos/cls_picture.h"

namespace korvane {
namespace {

// A disk at hand answers within it, and the list goes from one directory to the next at once.
constexpr int kAtOnceMs = 60;

QString withSeparator(const QString& path) {
  return path.endsWith(u'/') ? path : path + u'/';
}

QString withoutSeparator(const QString& path) {
  return path.size() > 1 && path.endsWith(u'/') ? path.chopped(1) : path;
}

}  // namespace

PhotoAlbum::PhotoAlbum(Uses uses)
    : uses_(uses), rows_(std::make_shared<const PhotoRows>(QString(), false)) {
  uses_.PhotoListTimer.interval = kAnswerMs;
}

void PhotoAlbum::setUpList() {
  Grid& list = uses_.PhotoList;
  list.fontSize = uses_.state.gGridFontSize;
  list.rowHeight = uses_.state.gGridHeight;
  say(u"Photos"_s);
  dressControl(list, uses_.palette);
}

void PhotoAlbum::say(const QString& title) {
  std::vector<Grid::Column> columns{{u" "_s, 10, false, Grid::CellKind::Picture},
                                    {title, 90, false, Grid::CellKind::Text},
                                    {{}, 0, true, Grid::CellKind::Text}};
  uses_.PhotoList.columns = std::move(columns);
}

bool PhotoAlbum::isRoot(const QString& path) const {
  return withSeparator(path).compare(root_, Qt::CaseInsensitive) == 0;
}

void PhotoAlbum::open(bool pressedAgain) {
  open_ = true;
  again_ = pressedAgain;
  const QString root = photoRoot(uses_.settings);
  const bool first = !std::exchange(known_, true) || root != root_;
  root_ = root;
  if (root == "NO"_L1) {
    ++fill_;
    look_ = {};
    uses_.PhotoList.clear();
    filled();
    return sayNoRoot();
  }
  if (!first) return refresh();
  photoTopRow_ = 1;
  list({.directory = withoutSeparator(root), .create = true});
}

void PhotoAlbum::refresh() {
  if (look_.directory.isEmpty()) return;
  Look again = look_;
  if (!awaited_) again.row = uses_.PhotoList.row();
  list(again);
}

void PhotoAlbum::PhotoList_Click(int row) {
  if (uses_.state.moveControlsMode || row < 1 || row > uses_.PhotoList.maxRows()) return;
  const bool root = isRoot(rows_->directory());
  if (row == 1 && root) return;
  uses_.PhotoList.SetActiveCell(1, row);
  if (row == 1) return goTo(FileSystem::GetParentFolderName(rows_->directory()));
  if (!rows_->isFolder(row)) return fileTouched(row, rows_->cell(PhotoRows::Name, row));
  if (root) photoTopRow_ = uses_.PhotoList.topRow();
  goTo(rows_->cell(PhotoRows::Path, row));
}

// Whoever has come out of the tree is back at its root.
void PhotoAlbum::goTo(const QString& target) {
  const bool toRoot = target.isEmpty() || isRoot(target);
  moved(toRoot);
  if (!toRoot) return list({.directory = target, .files = true, .up = true});
  list({.directory = withoutSeparator(root_), .files = true, .row = photoTopRow_});
}

void PhotoAlbum::list(const Look& look) {
  look_ = look;
  const int fill = ++fill_;
  awaited_ = true;
  const auto rows = std::make_shared<PhotoRows>(look.directory, look.up);
  const auto there = std::make_shared<bool>(false);
  uses_.system.pump.aside(
      [look, rows, there, order = photoOrderOf(uses_.settings),
       most = uses_.settings.number(key::PhotoRows), &files = uses_.system.files,
       &imaging = uses_.system.imaging] {
        *there = files.FolderExists(look.directory) ||
                 (look.create && files.CreateFolder(look.directory));
        if (!*there) return;
        rows->PICdoallfolders(files, order);
        if (look.files) rows->PICdoallfiles(files, imaging, order, most);
      },
      [this, alive = std::weak_ptr<bool>(alive_), fill, rows, there] {
        if (alive.expired() || fill != fill_) return;
        came(*there ? rows : nullptr);
      });
  uses_.system.pump.wait(kAtOnceMs, [this, fill] { return fill != fill_ || !awaited_; });
  if (fill == fill_ && awaited_) PICinitialSetup(look.directory);
}

void PhotoAlbum::PICinitialSetup(const QString& path) {
  if (path != rows_->directory()) show(std::make_shared<const PhotoRows>(path, look_.up));
  say(u"Looking for photos..."_s);
  uses_.PhotoListTimer.enabled = true;
}

void PhotoAlbum::PhotoListTimer_Timer() {
  uses_.PhotoListTimer.enabled = false;
  if (!awaited_) return;
  uses_.log.logIt(u"The directory %1 does not answer"_s.arg(look_.directory));
  say(u"This folder does not answer"_s);
}

void PhotoAlbum::came(std::shared_ptr<const PhotoRows> rows) {
  awaited_ = false;
  uses_.PhotoListTimer.enabled = false;
  const bool there = rows != nullptr;
  if (!there) rows = std::make_shared<const PhotoRows>(look_.directory, look_.up);
  const bool same = *rows == *rows_ && &uses_.PhotoList.rows() == rows_.get();
  say(!there        ? u"This folder is not there any more"_s
      : rows->cut() ? u"The first %1 rows"_s.arg(rows->rowCount())
                    : u"Photos"_s);
  if (!same) show(std::move(rows));
  if (there || !isRoot(look_.directory)) return;
  uses_.PhotoList.clear();
  filled();
  sayNoRoot();
}

void PhotoAlbum::show(std::shared_ptr<const PhotoRows> rows) {
  rows_ = std::move(rows);
  uses_.PhotoList.setRows(rows_);
  uses_.PhotoList.SetActiveCell(1, look_.row);
  filled();
}

// The box comes once; after that the empty list says it, and the box only to who presses the open
// tab again.
void PhotoAlbum::sayNoRoot() {
  if (!open_) return;
  const bool first = !std::exchange(warned_, true);
  if (!first && !std::exchange(again_, false)) return;
  uses_.messages.say(
      u"Photos directory has not be set up or is INVALID. Click on setup, then click on Setup "
      "Movies Directory to select where the photos are located"_s);
  if (first && root_ != "NO"_L1) uses_.messages.say(u"Could not create photo directory "_s);
}

}  // namespace korvane

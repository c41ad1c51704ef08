#include "photos/screens/view_pic_form.h"

#include "core/chooser_lists.h"
#include "photos/screens/view_pic_rows.h"

namespace korvane {
namespace {

constexpr int kLeastCell = 142, kMostCell = 238;   // form units: five of them, or three, abreast
constexpr int kCellFrame = 18, kCellCaption = 24;  // around a thumbnail; of a square one
constexpr int kRowHeight = 38;                     // of the lists, in the unit of GridHeight
constexpr int kTakeBackMs = 10'000;
enum Print { kCrop, kSize, kKeepAspect };

template <size_t N>
void choose(const std::array<Button*, N>& of, int index) {
  for (Button* each : of) each->marked = each->index == index;
}

template <size_t N>
int chosen(const std::array<Button*, N>& of) {
  const auto found = std::ranges::find_if(of, [](const Button* each) { return each->marked(); });
  return static_cast<int>(found - of.begin());
}

std::vector<RowTable::Row> rowsOf(const QStringList& names) {
  std::vector<RowTable::Row> rows;
  for (const QString& name : names) rows.push_back({{name}});
  return rows;
}

// What File1 lists: these five, and the further kinds of key PhotoKinds that can be decoded.
QString patternOf(const Settings& settings, const Imaging& imaging) {
  QString pattern = u"*.jpg;*.tif;*.bmp;*.gif;*.mng"_s;
  const QString kinds = settings.upper(key::PhotoKinds);
  if (kinds == "NO"_L1) return pattern;
  for (const QString& kind : kinds.split(u' ', Qt::SkipEmptyParts))
    if (imaging.mayRead(u"a."_s + kind)) pattern += u";*."_s + kind;
  return pattern;
}

}  // namespace

ViewPicForm::ViewPicForm(Uses uses)
    : Dialog(uses.dialog, u"frmViewPic"_s, viewPicInventory()),
      uses_(std::move(uses)),
      panel_(form_),
      split_({form_, *panel_.picSplit, *panel_.picControl, *panel_.picFrame}),
      work_(form_, uses_.screen),
      cells_(std::make_shared<PictureCells>(
          PictureCells::Uses{uses_.system.imaging, uses_.system.pump, uses_.log,
                             [this] {
                               panel_.picSlide->cellsChanged();
                               fitSlider();
                             },
                             [this] { panel_.picSlide->picturesCame(); }})),
      thumbnails_({uses_.system.files, uses_.system.imaging, uses_.system.pump, uses_.log,
                   uses_.dialog.messages, *cells_, work_,
                   [this](const QStringList& names) {
                     panel_.File1->setRows(rowsOf(names));
                     showCount();
                   },
                   [this] {
                     showCount();
                     showSelected();
                   }}),
      actions_({uses_.system.files, uses_.system.imaging, uses_.system.trash, uses_.system.pump,
                uses_.log, uses_.settings, uses_.dialog.messages, *cells_, work_, thumbnails_,
                [this] { listFolders(); }, [this] { offerToTakeBack(); },
                [this] { showSelected(); }}) {
  for (Grid* list : {panel_.Drive1, panel_.Dir1, panel_.File1}) {
    list->columns = {{QString()}};
    list->rowHeight = kRowHeight;
  }
  panel_.picSlide->setCells(cells_);
  panel_.mnuMove->enabled = false;  // nothing is attached to it
  panel_.tmrTakeBack->interval = kTakeBackMs;
  onClick(u"imgExit", [this](int) { leave(); });
  connectFolders();
  connectSheet();
  connectMenu();
}

void ViewPicForm::connectFolders() {
  form_.on(u"Drive1", Event::Click, [this](Control&, const Event& event) {
    if (event.row > 0) Dir1_Change(panel_.Drive1->cell(1, event.row));
  });
  form_.on(u"Dir1", Event::Click, [this](Control&, const Event& event) {
    if (event.row > 0) Dir1_Change(folderAt(path_, panel_.Dir1->cell(1, event.row)));
  });
  // Another way of thumbnails counts for what is shown, at once.
  onClick(u"optThumbs", [this](int index) {
    if (work_.busy()) return;
    choose(panel_.optThumbs, index);
    loadCells();
  });
  onClick(u"optSize", [this](int index) { choose(panel_.optSize, index); });
  onClick(u"optPrint", [this](int index) { choose(panel_.optPrint, index); });
}

void ViewPicForm::connectSheet() {
  form_.on(u"picSlide", Event::Click,
           [this](Control&, const Event& event) { picSlide_Click(event.row); });
  form_.on(u"picSlide", Event::DblClick,
           [this](Control&, const Event& event) { picSlide_DblClick(event.row); });
  form_.on(u"picSlide", Event::Scroll, [this](Control&, const Event&) { fitSlider(); });
  for (const Event::Type moved : {Event::Change, Event::Scroll})
    form_.on(u"vsbSlide", moved, [this](Control&, const Event&) {
      panel_.picSlide->top = static_cast<int>(std::lround(panel_.vsbSlide->value()));
    });
  onClick(u"cmdTakeBack", [this](int) {
    if (work_.busy()) return;
    actions_.takeBack();
    endTakeBack();
  });
  form_.on(u"tmrTakeBack", Event::Tick, [this](Control&, const Event&) { endTakeBack(); });
}

void ViewPicForm::connectMenu() {
  onClick(u"cmdOptions", [this](int) { cmdOptions_Click(); });
  const auto entry = [this](QStringView name, std::function<void()> act) {
    onClick(name, [this, act = std::move(act)](int) {
      panel_.mnuOptions->visible = false;
      if (work_.busy()) return;
      act();
      showSelected();
    });
  };
  entry(u"mnuGroup", [this] { actions_.mnuGroup(*picture_, panel_.File1->maxRows() > 0); });
  entry(u"mnuRotate", [this] { actions_.Rotate(90); });
  entry(u"mnuRotate180", [this] { actions_.Rotate(180); });
  entry(u"mnuPrint", [this] { mnuPrint_Click(); });
  entry(u"mnuDeleted", [this] { actions_.mnuDeleted(); });
  entry(u"mnuSelect", [this] { cells_->selectAll(true); });
  entry(u"mnuUnSelect", [this] { cells_->selectAll(false); });
}

void ViewPicForm::open(const QString& directory) {
  if (run([this, directory] { Form_Load(directory); })) Form_Unload();
}

void ViewPicForm::Form_Load(const QString& directory) {
  picture_.emplace(clsPicture::Uses{uses_.settings, uses_.system.files, uses_.system.imaging,
                                    uses_.system.pump, uses_.log});
  panel_.mnuOptions->visible = false;
  choose(panel_.optThumbs, Thumbnails::Automatic);
  choose(panel_.optSize, 0);
  choose(panel_.optPrint, kKeepAspect);
  endTakeBack();
  panel_.Drive1->setRows(rowsOf(uses_.system.files.volumes()));
  Dir1_Change(directory);
}

void ViewPicForm::Form_Unload() {
  thumbnails_.drop();
  actions_.drop();
  endTakeBack();
  cells_->begin({});
  panel_.File1->clear();
  picture_.reset();
}

void ViewPicForm::Dir1_Change(const QString& path) {
  if (work_.busy()) return;
  path_ = path;
  while (path_.size() > 1 && path_.endsWith(u'/')) path_.chop(1);
  panel_.lblPhotoFolder->caption = u"Pictue folder = "_s + path_;
  panel_.lblPhotoFolder->toolTip = panel_.lblPhotoFolder->caption();
  panel_.Drive1->row = volumeOf(uses_.system.files.volumes(), path_) + 1;
  listFolders();
  loadCells();
}

void ViewPicForm::listFolders() {
  panel_.Dir1->setRows(rowsOf(folderRows(uses_.system.files, path_)));
  panel_.Dir1->row = 0;  // they are ways to go, and none is chosen
}

void ViewPicForm::loadCells() {
  const int size = uses_.settings.number(key::ThumbSize);
  Imaging::Reading reading = picture_->readingFor(size, size);
  reading.enlarge = true;
  panel_.picSlide->cellWidth = std::clamp(size + kCellFrame, kLeastCell, kMostCell);
  panel_.picSlide->cellHeight = panel_.picSlide->cellWidth() + kCellCaption;
  panel_.picSlide->top = 0;
  thumbnails_.begin(
      AlbumThumbs({uses_.system.files, uses_.system.imaging, uses_.cache}, withSeparator(path_),
                  reading, uses_.settings.flag(key::PairByName)),
      patternOf(uses_.settings, uses_.system.imaging),
      static_cast<Thumbnails::Way>(chosen(panel_.optThumbs)));
}

void ViewPicForm::showCount() {
  const QLocale thousands(QLocale::English, QLocale::UnitedStates);
  panel_.lblCount->caption = u"Images: "_s + thousands.toString(panel_.File1->maxRows());
}

void ViewPicForm::showSelected() {
  const size_t count = cells_->selected().size();
  panel_.sbrMain->caption = count > 0 ? QString::number(count) + u" selected"_s : QString();
}

void ViewPicForm::fitSlider() {
  panel_.vsbSlide->maximum = std::max(1, panel_.picSlide->mostTop);
  panel_.vsbSlide->value = panel_.picSlide->top();
}

void ViewPicForm::picSlide_Click(int cell) {
  panel_.mnuOptions->visible = false;
  if (cell < 0 || cell >= cells_->count()) return;
  cells_->toggle(cells_->indexOf(cell));
  showSelected();
}

void ViewPicForm::picSlide_DblClick(int cell) {
  if (work_.busy() || cell < 0 || cell >= cells_->count()) return;
  std::vector<QString> paths;
  paths.reserve(static_cast<size_t>(cells_->count()));
  for (int each = 0; each < cells_->count(); ++each)
    paths.push_back((*cells_)[cells_->indexOf(each)].path());
  uses_.big.open(std::move(paths), cell);
}

void ViewPicForm::cmdOptions_Click() {
  if (!work_.busy()) panel_.mnuOptions->visible = !panel_.mnuOptions->visible();
}

std::vector<QString> ViewPicForm::selectedPaths() const {
  std::vector<QString> paths;
  for (const int index : cells_->selected()) paths.push_back((*cells_)[index].path());
  return paths;
}

void ViewPicForm::mnuPrint_Click() {
  const std::vector<QString> paths = selectedPaths();
  if (!print || paths.empty()) return;
  panel_.cmdStop->enabled = true;
  print(paths, chosen(panel_.optSize), chosen(panel_.optPrint), *panel_.picProgress,
        [this] { return !panel_.cmdStop->enabled(); });
  panel_.cmdStop->enabled = false;
}

void ViewPicForm::offerToTakeBack() {
  panel_.lblTakeBack->caption = u"In the trash: "_s + counted(actions_.inTrash(), u"picture"_s);
  panel_.fraTakeBack->visible = true;
  panel_.tmrTakeBack->enabled = false;  // from now on, also where it runs
  panel_.tmrTakeBack->enabled = true;
}

void ViewPicForm::endTakeBack() {
  panel_.tmrTakeBack->enabled = false;
  panel_.fraTakeBack->visible = false;
  actions_.forgetTrash();
}

}  // namespace korvane

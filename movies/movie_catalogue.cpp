#include "movies/movie_catalogue.h"

#include <QScopedValueRollback>

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr const char* kClass = "Class Module clsMovies";

}  // namespace

MovieCatalogue::MovieCatalogue(Uses uses)
    : uses_(uses), rows_(std::make_shared<MovieRows>(std::vector<MovieRow>(), uses.facts)) {}

void MovieCatalogue::setUpList() {
  Grid& list = uses_.MovieList;
  const bool posters = uses_.settings.flag(key::MoviePosters);
  const bool resumes = uses_.settings.flag(key::MovieResume);
  std::vector<Grid::Column> columns{
      {u"Movie"_s, 66, false, posters ? Grid::CellKind::Picture : Grid::CellKind::Text},
      {u"Path"_s, 1, true},
      {u"Length"_s, 17, !posters},
      {u"Seen"_s, 17, !resumes}};
  list.columns = std::move(columns);
  list.fontSize = uses_.state.gGridFontSize;
  list.rowHeight = uses_.state.gGridHeight;
  dressControl(list, uses_.palette);
}

void MovieCatalogue::SetupFilesDigital() {
  uses_.log.guard("SetupFilesDVD", kClass, [this] { list(0, kDvdDirectories); });
}

void MovieCatalogue::SetupFiles() {
  uses_.log.guard("SetupFiles", kClass, [this] { list(kDvdDirectories, kMovieDirectories); });
}

void MovieCatalogue::list(int first, int last) {
  setUpList();
  const int fill = ++fill_;
  found_.clear();
  waiting_.clear();
  awaited_ = 0;
  showing_ = false;
  const QString kinds = uses_.settings.upper(key::MovieKinds);
  for (int index = first; index < last; ++index) {
    const QString directory = uses_.directories.directory(index);
    if (directory.isEmpty()) continue;
    ++awaited_;
    const auto listing = std::make_shared<Listing>();
    const bool dvds = index < kDvdDirectories;
    uses_.pump.aside(
        [listing, directory, dvds, kinds, &files = uses_.files] {
          const auto at = files.resolve(directory);
          listing->there = at && files.FolderExists(*at);
          if (!listing->there) return;
          for (const QString& name : dvds ? files.SubFolders(*at) : files.Files(*at))
            if (dvds || isMovieName(name, kinds))
              listing->rows.push_back({name, FileSystem::BuildPath(*at, name), dvds});
        },
        [this, alive = std::weak_ptr<bool>(alive_), fill, index, listing] {
          if (!alive.expired()) came(fill, index, *listing);
        });
  }
  if (awaited_ == 0) show();
  sayState();
}

void MovieCatalogue::came(int fill, int index, const Listing& listing) {
  if (fill != fill_) return;
  waiting_.emplace_back(index, listing);
  if (asking_) return;
  const QScopedValueRollback asking(asking_, true);
  while (!waiting_.empty()) {
    const auto [of, came] = std::move(waiting_.front());
    waiting_.erase(waiting_.begin());
    const int begun = fill_;
    const bool opens = came.there && admits(of);
    if (begun != fill_) continue;  // filled anew while the user was asked
    --awaited_;
    if (opens) found_[of] = came.rows;
  }
  showSoon();
}

void MovieCatalogue::showSoon() {
  if (std::exchange(showing_, true)) return;
  uses_.pump.later([this, alive = std::weak_ptr<bool>(alive_), fill = fill_] {
    if (alive.expired() || fill != fill_) return;
    showing_ = false;
    show();
  });
}

bool MovieCatalogue::admits(int index) {
  if (uses_.directories.opened(index)) return true;
  const QString password = uses_.directories.password(index);
  if (!password.isEmpty()) {
    const QString asks = u"Enter Password for "_s + uses_.directories.directory(index);
    if (uses_.messages.ask(asks, true) != password) return false;
  }
  uses_.directories.open(index);
  return true;
}

void MovieCatalogue::show() {
  std::vector<MovieRow> all;
  for (const auto& [index, rows] : found_) all.insert(all.end(), rows.begin(), rows.end());
  auto made = std::make_shared<MovieRows>(std::move(all), uses_.facts);
  sayState();
  if (made->all() == rows_->all() && &uses_.MovieList.rows() == rows_.get()) return;
  const MovieRow* before = active();
  const int row = before ? made->rowOf(before->path) : 0;
  rows_ = std::move(made);
  uses_.MovieList.setRows(rows_);
  uses_.MovieList.SetActiveCell(1, std::max(row, std::min(1, rows_->rowCount())));
  rowsChanged();
}

void MovieCatalogue::sayState() {
  uses_.MovieList.emptyText =
      awaited_ > 0 ? u"Looking for movies..."_s : QString::fromUtf8(uses_.MovieList.look.caption);
}

const MovieRow* MovieCatalogue::active() const {
  return rows_->at(uses_.MovieList.row());
}

}  // namespace korvane

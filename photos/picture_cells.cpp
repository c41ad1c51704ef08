#include "photos/picture_cells.h"

#include <thread>

namespace korvane {
namespace {

constexpr size_t kMostWishes = 128;  // what was scrolled past longer ago waits for the next look

}  // namespace

PictureCells::PictureCells(Uses uses)
    : uses_(std::move(uses)), loader_({uses_.imaging, uses_.pump, uses_.log}) {}

QString PictureCells::caption(int cell) const {
  return (*this)[indexOf(cell)].name();
}

Colour PictureCells::back(int cell) const {
  return (*this)[indexOf(cell)].BackColor;
}

std::optional<Picture> PictureCells::picture(int cell) const {
  const int index = indexOf(cell);
  const auto kept = kept_.find(index);
  if (kept != kept_.end()) return kept->second.picture;
  if (!(*this)[index].coming) wish(index);
  return std::nullopt;
}

void PictureCells::begin(const Imaging::Reading& reading) {
  reading_ = reading;
  loader_.forget();
  atWork_.clear();
  wishes_.clear();
  kept_.clear();
  order_.clear();
  bytes_ = 0;
  cells_.clear();
  listVisible();
}

void PictureCells::listVisible() {
  visible_.clear();
  for (int index = 0; index < size(); ++index)
    if ((*this)[index].Visible) visible_.push_back(index);
  uses_.changed();
}

std::vector<int> PictureCells::selected() const {
  std::vector<int> found;
  for (int index = 0; index < size(); ++index)
    if ((*this)[index].selected()) found.push_back(index);
  return found;
}

// While a pass shows more pictures than are kept, those of the first stay: they are in view.
void PictureCells::put(int index, PictureCell cell, std::shared_ptr<const Pixels> pixels) {
  if (index >= size()) {
    index = size();
    visible_.push_back(index);
    cells_.push_back(std::move(cell));
  } else {
    forget(index);
    cells_[static_cast<size_t>(index)] = std::move(cell);
  }
  if (pixels && bytes_ < kMostBytes) keep(index, std::move(pixels));
  uses_.changed();
}

void PictureCells::give(int index, std::shared_ptr<const Pixels> pixels, const QString& thumb) {
  PictureCell& cell = cells_[static_cast<size_t>(index)];
  cell.thumb = thumb;
  cell.coming = false;
  if (!pixels || kept_.contains(index) || bytes_ < kMostBytes) keep(index, std::move(pixels));
  uses_.came();
}

void PictureCells::truncate(int size) {
  if (size >= this->size()) return;
  for (int index = size; index < this->size(); ++index) forget(index);
  cells_.resize(static_cast<size_t>(size));
  listVisible();
}

void PictureCells::nothingComes() {
  for (PictureCell& cell : cells_) cell.coming = false;
  uses_.came();
}

void PictureCells::toggle(int index) {
  Colour& colour = cells_[static_cast<size_t>(index)].BackColor;
  colour = colour == PictureCell::kSelected ? PictureCell::kUnselected : PictureCell::kSelected;
  uses_.changed();
}

void PictureCells::selectAll(bool selected) {
  for (PictureCell& cell : cells_)
    if (cell.Visible) cell.BackColor = selected ? PictureCell::kSelected : PictureCell::kUnselected;
  uses_.changed();
}

void PictureCells::setVisible(int index, bool visible) {
  cells_[static_cast<size_t>(index)].Visible = visible;
  listVisible();
}

void PictureCells::keep(int index, std::shared_ptr<const Pixels> pixels) {
  forget(index);
  Kept kept;
  if (pixels) {
    kept.bytes = pixels->bytesPerLine * pixels->height;
    kept.picture = Picture{{}, {}, nullptr, std::move(pixels)};
  }
  bytes_ += kept.bytes;
  kept_[index] = std::move(kept);
  order_.push_back(index);
  while (bytes_ > kMostBytes && order_.front() != index) forget(order_.front());
}

void PictureCells::forget(int index) {
  const auto kept = kept_.find(index);
  if (kept == kept_.end()) return;
  bytes_ -= kept->second.bytes;
  kept_.erase(kept);
  std::erase(order_, index);
}

void PictureCells::wish(int index) const {
  if (atWork_.contains(index)) return;
  std::erase(wishes_, index);
  wishes_.push_front(index);
  if (wishes_.size() > kMostWishes) wishes_.pop_back();
  if (std::exchange(asked_, true)) return;
  uses_.pump.later([&looks = looks_, alive = std::weak_ptr<bool>(alive_)] {
    if (!alive.expired()) looks();
  });
}

void PictureCells::look() {
  asked_ = false;
  const size_t most = 2 * std::max(1U, std::thread::hardware_concurrency());
  while (atWork_.size() < most && !wishes_.empty()) {
    const int index = wishes_.front();
    wishes_.pop_front();
    if (index < size() && !kept_.contains(index) && !(*this)[index].coming) read(index);
  }
}

// A thumbnail that cannot be read is as good as none: the picture itself is.
void PictureCells::read(int index) {
  const QString thumb = (*this)[index].thumb;
  Imaging::Reading reading = reading_;
  if (!thumb.isEmpty()) reading.upright = reading.enlarge = false;
  atWork_.insert(index);
  loader_.loadNext(thumb.isEmpty() ? (*this)[index].path() : thumb, reading,
                   [this, index, thumb](const Imaging::Loaded& loaded) {
                     atWork_.erase(index);
                     // What a pass has changed meanwhile is asked for anew.
                     const bool stands = index < size() && (*this)[index].thumb == thumb &&
                                         !(*this)[index].coming && !kept_.contains(index);
                     if (stands && !loaded.pixels && !thumb.isEmpty())
                       cells_[static_cast<size_t>(index)].thumb.clear();
                     else if (stands)
                       keep(index, loaded.pixels);
                     uses_.came();
                     look();
                   });
}

}  // namespace korvane

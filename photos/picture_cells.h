// The cells of the sheet: which pictures it shows, which of them are chosen, and their thumbnails,
// which are read when they are looked at and kept in memory up to kMostBytes. Of the event loop.
#pragma once

#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "core/form/control.h"
#include "photos/picture_loader.h"

namespace korvane {

// A pair of optThumb and PLabel.
struct PictureCell {
  static constexpr Colour kUnselected = 9811903, kSelected = 65535;

  QString Tag{};  // the path of the picture, a character of value 0, its name
  Colour BackColor = kUnselected;
  bool Visible = true;
  QString thumb{};      // the file it is shown from; empty for the picture itself
  bool coming = false;  // a pass makes its thumbnail: it is not read meanwhile

  static PictureCell of(const QString& directory, const QString& name, const QString& thumb = {}) {
    return {directory + name + QChar(0) + name, kUnselected, true, thumb};
  }
  QString path() const { return Tag.section(QChar(0), 0, 0); }
  QString name() const { return Tag.section(QChar(0), 1); }
  bool selected() const { return Visible && BackColor == kSelected; }
};

class PictureCells : public CellSource {
 public:
  static constexpr qint64 kMostBytes = 48 << 20;

  struct Uses {
    const Imaging& imaging;
    Pump& pump;
    Log& log;
    std::function<void()> changed;  // there are others, or one looks different
    std::function<void()> came;     // one has the picture that it lacked
  };
  explicit PictureCells(Uses uses);

  // CellSource, of the visible ones
  int count() const override { return static_cast<int>(visible_.size()); }
  QString caption(int cell) const override;
  std::optional<Picture> picture(int cell) const override;
  Colour back(int cell) const override;

  // None from now on; further ones are read as `reading` says.
  void begin(const Imaging::Reading& reading);

  int size() const { return static_cast<int>(cells_.size()); }  // of all, and `index` among them
  const PictureCell& operator[](int index) const { return cells_[static_cast<size_t>(index)]; }
  int indexOf(int cell) const { return visible_[static_cast<size_t>(cell)]; }
  std::vector<int> selected() const;  // indexes

  // In the place of the visible cell of that index, or behind the last. Without pixels it is read
  // when it is looked at.
  void put(int index, PictureCell cell, std::shared_ptr<const Pixels> pixels = {});
  // What the cell is shown from by now; without pixels it has no picture.
  void give(int index, std::shared_ptr<const Pixels> pixels, const QString& thumb);
  void truncate(int size);
  void nothingComes();  // what was to come is read when it is looked at

  void toggle(int index);
  void selectAll(bool selected);  // the visible ones
  void setVisible(int index, bool visible);

 private:
  struct Kept {
    Picture picture;
    qint64 bytes = 0;
  };
  void listVisible();
  void keep(int index, std::shared_ptr<const Pixels> pixels);
  void forget(int index);
  void wish(int index) const;
  void look();
  void read(int index);

  Uses uses_;
  PictureLoader loader_;
  Imaging::Reading reading_;
  std::vector<PictureCell> cells_;
  std::vector<int> visible_;
  std::unordered_map<int, Kept> kept_;
  std::deque<int> order_;  // of kept_, the oldest first
  qint64 bytes_ = 0;
  mutable std::deque<int> wishes_;  // the next one first
  mutable bool asked_ = false;      // to look at them from the event loop
  std::unordered_set<int> atWork_;
  // What a wish brings about, behind the paint that asks.
  const std::function<void()> looks_ = [this] { look(); };
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

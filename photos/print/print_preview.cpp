#include "photos/print/print_preview.h"

namespace korvane {
namespace {

constexpr quint32 kMargin = 0xffdfe3e8, kPaper = 0xffffffff, kNoPicture = 0xffb0b8c0;

// Pixels of the sheet, the right and lower edge outside.
struct Area {
  int left, top, right, bottom;
};

class SheetPixels {
 public:
  SheetPixels(const PrintPage& page, int longest)
      : perMillimetre_(longest / std::max(page.width, page.height)),
        width_(std::max(1, pixels(page.width))),
        height_(std::max(1, pixels(page.height))),
        words_(std::make_shared<std::vector<quint32>>(
            static_cast<size_t>(width_) * static_cast<size_t>(height_), kMargin)) {}

  Area area(const PrintRect& of) const {
    return {std::clamp(pixels(of.left), 0, width_), std::clamp(pixels(of.top), 0, height_),
            std::clamp(pixels(of.left + of.width), 0, width_),
            std::clamp(pixels(of.top + of.height), 0, height_)};
  }

  void fill(const Area& area, quint32 colour) {
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x) at(x, y) = colour;
  }

  // Over what is there, where it lies inside of `seen`.
  void put(const Pixels& picture, int left, int top, const Area& seen) {
    const int bottom = std::min(seen.bottom, top + picture.height);
    const int right = std::min(seen.right, left + picture.width);
    for (int y = std::max(seen.top, top); y < bottom; ++y) {
      const auto* row =
          reinterpret_cast<const quint32*>(picture.bits + (y - top) * picture.bytesPerLine);
      for (int x = std::max(seen.left, left); x < right; ++x) at(x, y) = onWhite(row[x - left]);
    }
  }

  int pixels(double millimetres) const {
    return static_cast<int>(std::lround(millimetres * perMillimetre_));
  }

  std::shared_ptr<const Pixels> taken() const {
    constexpr int kPixelBytes = 4;
    return std::make_shared<const Pixels>(Pixels{width_, height_, qsizetype{width_} * kPixelBytes,
                                                 reinterpret_cast<const uchar*>(words_->data()),
                                                 true, words_});
  }

 private:
  quint32& at(int x, int y) {
    return (*words_)[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)];
  }

  // A premultiplied colour: white shows where it lets it through.
  static quint32 onWhite(quint32 colour) {
    const quint32 through = 0xff - (colour >> 24);
    return (colour | 0xff000000) + (through << 16) + (through << 8) + through;
  }

  double perMillimetre_;
  int width_, height_;
  std::shared_ptr<std::vector<quint32>> words_;
};

}  // namespace

std::shared_ptr<const Pixels> previewOf(const PrintPage& page,
                                        std::shared_ptr<const Pixels> picture,
                                        const Imaging& imaging, int longest) {
  SheetPixels sheet(page, longest);
  sheet.fill(sheet.area(page.printable), kPaper);
  const Area box = sheet.area(page.box);
  const Printing::Placed seen = seenPart(placedOn(page, std::move(picture)));
  if (!seen.pixels) {
    sheet.fill(box, kNoPicture);
    return sheet.taken();
  }
  const auto shown = imaging.scaled(*seen.pixels, std::max(1, sheet.pixels(seen.width)),
                                    std::max(1, sheet.pixels(seen.height)));
  if (shown) sheet.put(*shown, sheet.pixels(seen.left), sheet.pixels(seen.top), box);
  return sheet.taken();
}

}  // namespace korvane

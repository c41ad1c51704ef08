#include "photos/print/print_layout.h"

namespace korvane {
namespace {

constexpr double kInch = 25.4;
constexpr double kTwip = kInch / 1440;
constexpr int kDotsPerInch = 300;

struct Twips {
  int width, height;
};
constexpr Twips kBoxes[] = {{5950, 8830}, {7390, 10270}};  // upright, as in PrintSize

PrintRect printableOf(const Printing::Paper& paper, bool sideways) {
  if (!sideways)
    return {paper.left, paper.top, paper.width - paper.left - paper.right,
            paper.height - paper.top - paper.bottom};
  const double side = std::max(paper.top, paper.bottom);
  const double above = std::max(paper.left, paper.right);
  return {side, above, paper.height - 2 * side, paper.width - 2 * above};
}

PrintRect boxOn(const PrintRect& printable, PrintSize size, bool sideways) {
  const Twips& twips = kBoxes[static_cast<size_t>(size)];
  double width = twips.width * kTwip, height = twips.height * kTwip;
  if (sideways) std::swap(width, height);
  const double smaller = std::min({1.0, printable.width / width, printable.height / height});
  return {printable.left, printable.top, width * smaller, height * smaller};
}

PrintRect fitted(int width, int height, PrintFit fit, const PrintRect& box) {
  const double across = box.width / width, down = box.height / height;  // of a pixel
  double scale = 0;
  switch (fit) {
    case PrintFit::Size:
      return box;
    case PrintFit::Crop:
      scale = std::max(across, down);
      break;
    case PrintFit::KeepAspect:
      scale = std::min(across, down);
      break;
  }
  const double wide = width * scale, high = height * scale;
  return {box.left + (box.width - wide) / 2, box.top + (box.height - high) / 2, wide, high};
}

}  // namespace

PrintPage layOut(int width, int height, PrintSize size, PrintFit fit, PrintTurn turn,
                 const Printing::Paper& paper) {
  PrintPage page;
  page.sideways = turn == PrintTurn::AsPicture && width > height;
  page.width = page.sideways ? paper.height : paper.width;
  page.height = page.sideways ? paper.width : paper.height;
  page.printable = printableOf(paper, page.sideways);
  page.box = boxOn(page.printable, size, page.sideways);
  page.picture = fitted(std::max(width, 1), std::max(height, 1), fit, page.box);
  return page;
}

Printing::Placed placedOn(const PrintPage& page, std::shared_ptr<const Pixels> pixels) {
  const auto& [left, top, width, height] = page.picture;
  return {std::move(pixels), left,           top, width, height, page.box.left, page.box.top,
          page.box.width,    page.box.height};
}

PrintPixels printPixels(const PrintRect& box) {
  const auto pixels = [](double millimetres) {
    return std::max(1, static_cast<int>(std::lround(millimetres / kInch * kDotsPerInch)));
  };
  return {pixels(box.width), pixels(box.height)};
}

}  // namespace korvane

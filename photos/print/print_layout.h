// Where a picture stands on its page. Millimetres; the origin is the upper left corner of the paper
// as it lies.
#pragma once

#include "platform/printing.h"

namespace korvane {

enum class PrintSize { FourBySix, FiveBySeven };  // inches, as in optSize
enum class PrintFit {                             // as in optPrint
  Crop,        // covers the box; what lies outside of it is left out
  Size,        // is stretched to the box
  KeepAspect,  // lies whole inside of the box, in its middle
};
enum class PrintTurn {
  AsPicture,  // paper and box lie on their long edge for a picture that is wider than high
  Upright,
};

struct PrintRect {
  double left = 0, top = 0, width = 0, height = 0;
};

struct PrintPage {
  bool sideways = false;  // the paper lies on its long edge
  double width = 0, height = 0;
  PrintRect printable;  // without the margins
  PrintRect box;        // in the upper left corner of that
  PrintRect picture;    // all of it, also what is left out
};

// For a picture of that many pixels. A box that the printable part cannot hold is made smaller, its
// shape kept. Of paper that lies sideways both margins of a pair are the wider one, since printers
// turn it either way.
PrintPage layOut(int width, int height, PrintSize size, PrintFit fit, PrintTurn turn,
                 const Printing::Paper& paper);

// The picture in its place, for the printer and for the preview.
Printing::Placed placedOn(const PrintPage& page, std::shared_ptr<const Pixels> pixels);

// Pixels of a box that is printed at 300 of them an inch.
struct PrintPixels {
  int width = 0, height = 0;
};
PrintPixels printPixels(const PrintRect& box);

}  // namespace korvane

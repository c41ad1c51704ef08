// The printers of the machine. Millimetres everywhere; a page's origin is the upper left corner of
// its paper as it lies. All members may be called from any thread; they wait for the print service
// and the disk, so the event loop calls none of them.
#pragma once

#include <optional>
#include <vector>

#include "platform/pixels.h"

namespace korvane {

class Printing {
 public:
  virtual ~Printing() = default;

  struct Paper {
    QString id, name;                                 // id as the printer knows it
    double width = 0, height = 0;                     // upright
    double left = 0, top = 0, right = 0, bottom = 0;  // margins that it cannot print on
  };
  struct Printer {
    QString name, description;
    std::vector<Paper> papers;  // the printer's own one first
    bool copies = true;         // it makes several by itself
  };
  // The standard printer first; empty for none. May wait for the print service.
  virtual std::vector<Printer> printers() = 0;

  struct Job {
    QString printer;  // by name, in any case
    QString paper;    // by id; empty for the printer's own
    int copies = 1;
    bool sideways = false;  // the paper lies on its long edge
    QString title;          // of the document
  };
  // A picture in a box; `cut` leaves out what lies outside it.
  struct Placed {
    std::shared_ptr<const Pixels> pixels;
    double left = 0, top = 0, width = 0, height = 0;              // of the picture
    double boxLeft = 0, boxTop = 0, boxWidth = 0, boxHeight = 0;  // of what may be seen of it
  };
  // Prints one document of one page. False when the printer is gone or refuses, with `error` in
  // words; then nothing comes out.
  virtual bool print(const Job& job, const Placed& picture, QString* error) = 0;
};

// What may be seen of it, in its place: the same pixels without those that lie outside of the box.
// They are whole ones, so up to one on each side reaches over the box. Its pixels are null where
// there is nothing to see.
Printing::Placed seenPart(const Printing::Placed& picture);

}  // namespace korvane

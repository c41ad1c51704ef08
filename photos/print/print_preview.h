// The page that will be printed, as a small picture: white paper, the margins grey.
#pragma once

#include "photos/print/print_layout.h"
#include "platform/imaging.h"

namespace korvane {

// In true proportions, its longer side `longest` pixels. A page without `picture` shows its box in
// grey. Any thread; it waits for the processor.
std::shared_ptr<const Pixels> previewOf(const PrintPage& page,
                                        std::shared_ptr<const Pixels> picture,
                                        const Imaging& imaging, int longest);

}  // namespace korvane

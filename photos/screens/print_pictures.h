// How a screen has pictures printed.
#pragma once

#include <functional>
#include <vector>

#include "core/form/control.h"

namespace korvane {

// The files in their order, each a document: `optSize` 0 for 4 x 6 inches, else 5 x 7; `optPrint` 0
// crops to fit, 1 stretches, else the picture keeps its shape. `bar` shows how far it is, and it
// ends early when `stopped` says so. Yields.
using PrintPictures = std::function<void(std::vector<QString> paths, int optSize, int optPrint,
                                         Progress& bar, const std::function<bool()>& stopped)>;

}  // namespace korvane

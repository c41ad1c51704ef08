// Movies and DVDs: the Movies tab.
#pragma once

#include "core/desk.h"
#include "movies/movies_tab.h"

namespace korvane {

class MoviesSide {
 public:
  explicit MoviesSide(Desk& desk);

  MoviesTab tab;
};

}  // namespace korvane

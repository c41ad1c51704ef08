#include "playback/cover_view.h"

namespace korvane {

void CoverView::coverArt_Click() {
  if (before_) return shrink();
  before_ = panel_.coverArt->rect();
  panel_.coverArt->visible = false;
  panel_.coverArt->rect = browsing_.shownGrid().rect();
  panel_.coverArt->visible = true;
}

void CoverView::shrink() {
  if (!before_) return;
  panel_.coverArt->rect = *before_;
  before_.reset();
}

}  // namespace korvane

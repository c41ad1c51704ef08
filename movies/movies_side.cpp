#include "movies/movies_side.h"

namespace korvane {

MoviesSide::MoviesSide(Desk& desk) : tab(desk.parts) {
  desk.tabs.setTab(kMoviesTab, tab);
  desk.addTabWord(kMoviesTab, u"MOVIES"_s, u"btnmovies"_s, u"open the Movies tab"_s);
  desk.on(u"lblMoviesPlay", Event::Click, [this](int i) { tab.lblMoviesPlay_Click(i); });
  desk.steps.at(Step::MovieRole,
                [this, &desk] { tab.lblMoviesPlay_Click(desk.state.gMovieListener ? 1 : 0); });
}

}  // namespace korvane

// The steps of start and stop that the sides of the console have a part in. core/startup owns their
// order; who has something to do at a step says so once, before the start.
#pragma once

#include <functional>
#include <map>
#include <vector>

namespace korvane {

enum class Step {
  // Before anything of a start: what throws here is said and ends the program
  Requirements,
  // Of Form_Load, which a reload runs again
  Map,
  MasterListener,  // Yields.
  SetUpLists,      // columns and look of every list
  FillArtists,
  FillAlbums,
  FillSongs,
  MovedControls,
  MainPage,
  MovieRole,
  // Behind it, once
  Ads,
  // Of the stop
  ReleasePhotos,
  StopDisc,
  CloseMap,
  CloseMovieLink,
  CloseLightsLink,
  CloseMasterLink,
  CloseMusicLink,
};

class Steps {
 public:
  // Does `work` at that step, behind what was said before.
  void at(Step step, std::function<void()> work) { works_[step].push_back(std::move(work)); }
  const std::vector<std::function<void()>>& works(Step step) const {
    static const std::vector<std::function<void()>> none;
    const auto found = works_.find(step);
    return found == works_.end() ? none : found->second;
  }

 private:
  std::map<Step, std::vector<std::function<void()>>> works_;
};

}  // namespace korvane

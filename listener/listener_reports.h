// What a Listener, or this console in its place, has reported of its level, and whether what it
// reports may be shown.
#pragma once

#include <functional>

#include "listener/listener_record.h"
#include "listener/play_presenter.h"

namespace korvane {

struct ListenerReports {
  double listenerMaxVolume = 0, listenerVolume = 0;
  std::function<void()> volumeTold;  // a VOLUME report has come
  // Whether the status line, the slider, the times and the state of the transport, which all that
  // plays shares, are this Listener's now. While they are not, its reports leave them alone.
  std::function<bool()> shows = [] { return true; };

  // The records MAXVOLUME and VOLUME.
  void takeMaxVolume(const ListenerRecord& record);
  void takeVolume(const ListenerRecord& record, PlayPresenter& presenter);
};

}  // namespace korvane

#include "listener/listener_reports.h"

namespace korvane {

void ListenerReports::takeMaxVolume(const ListenerRecord& record) {
  listenerMaxVolume = record.whole(1).value_or(listenerMaxVolume);
}

void ListenerReports::takeVolume(const ListenerRecord& record, PlayPresenter& presenter) {
  listenerVolume = record.whole(1).value_or(listenerVolume);
  if (shows()) presenter.showVolume(listenerVolume, listenerMaxVolume);
  if (volumeTold) volumeTold();
}

}  // namespace korvane

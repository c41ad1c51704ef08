#include "listener/song_requests.h"

#include <QScopedValueRollback>

namespace korvane {

void SongRequests::asked() {
  ++number_;
  awaited_ = true;
}

void SongRequests::stopped() {
  ++number_;
  awaited_ = false;
  failuresInARow_ = 0;
}

// In a later turn: the failure may be the answer to a press that is still at work.
void SongRequests::failed() {
  if (!std::exchange(awaited_, false)) return;
  pump_.later(
      [this, alive = std::weak_ptr<bool>(alive_), song = number_, inARow = ++failuresInARow_] {
        if (!alive.expired()) takeNext(song, inARow);
      });
}

void SongRequests::takeNext(int song, int inARow) {
  if (song != number_ || !news_) return;
  const QScopedValueRollback taking(takingNext_, true);
  news_->songFailed(inARow);
}

void SongRequests::ended() {
  failuresInARow_ = 0;
  if (news_) news_->endOfStream();
}

}  // namespace korvane

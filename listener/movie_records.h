// What the records of a Movie Listener do, be it another machine or this console: a table with a
// handler a record.
#pragma once

#include "core/app_state.h"
#include "listener/listener_reports.h"
#include "listener/movie_news.h"

namespace korvane {

class MovieRecords {
 public:
  // All of it outlives the records.
  struct Uses {
    AppState& state;
    PlayPresenter& presenter;
    ListenerReports& reports;
  };
  explicit MovieRecords(Uses uses) : uses_(uses) {}
  void setNews(MovieNews* news) { news_ = news; }  // not owned; null for silence

  // A delivery. Yields.
  void handle(QByteArrayView block, WireText encoding);

  // The player is told to do something by this console: what was reported before is out of date.
  void commanded() { waiting_.reset(); }
  // What a Listener played is out of reach: the front end stops. Yields.
  void listenerGone();

 private:
  struct Entry {
    QByteArrayView name;
    void (MovieRecords::*handle)(const ListenerRecord&);
  };
  static const Entry kRecords[];

  void dvdMovieTimer(const ListenerRecord&);
  void movieTimer(const ListenerRecord&);
  void movieDuration(const ListenerRecord&);
  void movieError(const ListenerRecord&);
  void maxVolume(const ListenerRecord&);
  void volume(const ListenerRecord&);
  void pauseToPlay(const ListenerRecord&);
  void moviePlayerState(const ListenerRecord&);
  void moviePlaying(const ListenerRecord&);
  void movieScreen(const ListenerRecord&);

  bool shows() const { return uses_.reports.shows(); }
  void showTime(const ListenerRecord& record);
  void showTitle();
  void takeState(MusicState now);

  const Uses uses_;
  MovieNews* news_ = nullptr;
  QString title_;                      // of what plays there
  std::optional<MusicState> waiting_;  // reported while the transport was another player's
  bool dropsRest_ = false;             // of the block at hand
};

}  // namespace korvane

// What the records of a Music Listener do, be it another machine or this console: a table with a
// handler a record.
#pragma once

#include "core/app_state.h"
#include "listener/cover_transfer.h"
#include "listener/listener_reports.h"
#include "listener/music_presenter.h"
#include "listener/song_requests.h"
#include "listener/trouble_box.h"

namespace korvane {

class MusicRecords {
 public:
  struct Uses {
    AppState& state;
    MusicPresenter& presenter;
    ListenerReports& reports;
    SongRequests& songs;
    Messages& messages;
    Pump& pump;
    FileSystem& files;
    QString home;  // the program directory
  };
  explicit MusicRecords(Uses uses);
  void setNews(TransportNews* news) { news_ = news; }  // not owned

  // A delivery of the socket: records, or a part of the picture that was announced. Yields.
  void deliver(const QByteArray& block, WireText encoding);
  // Records alone; what stands behind an announced picture is dropped. Yields.
  void handle(QByteArrayView block, WireText encoding);
  // Whether a delivery holds a whole answer of the Listener.
  bool isAnswer(QByteArrayView block) const;

  void connectionEnds() { cover_.cancel(); }  // and with it a picture that has begun
  // What a Listener played is out of reach: the front end stops, and both places can be chosen
  // again. Yields.
  void listenerGone();

 private:
  struct Entry {
    QByteArrayView name;
    void (MusicRecords::*handle)(const ListenerRecord&);
  };
  static const Entry kRecords[];

  void receiveJpg(const ListenerRecord&);
  void musicTimer(const ListenerRecord&);
  void musicDuration(const ListenerRecord&);
  void endOfStream(const ListenerRecord&);
  void error(const ListenerRecord&);
  void maxVolume(const ListenerRecord&);
  void volume(const ListenerRecord&);
  void pauseToPlay(const ListenerRecord&);
  void mediaPlayerState(const ListenerRecord&);
  void songPlaying(const ListenerRecord&);

  bool shows() const { return uses_.reports.shows(); }

  Uses uses_;
  CoverTransfer cover_;
  TroubleBox trouble_;
  TransportNews* news_ = nullptr;
};

}  // namespace korvane

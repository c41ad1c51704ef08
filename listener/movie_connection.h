// All movies go through here: commands out by ConnectionMovieSend, reports back as records. What
// plays, plays on this console (MovieSeat) or at the Movie Listener, over TCP; callers do not ask.
#pragma once

#include "listener/movie_records.h"
#include "listener/movie_seat.h"
#include "listener/record_link.h"
#include "listener/trouble_box.h"

namespace korvane {

class MovieConnection : public ListenerReports, private RecordLink::Owner {
 public:
  struct Uses {
    Form& form;
    AppState& state;
    const Settings& settings;
    Messages& messages;
    const Log& log;
    Pump& pump;
    Winsock& connectionMovie;
  };
  explicit MovieConnection(Uses uses);

  // None is owned. Without a seat the local role does nothing; no news is silence.
  void setSeat(MovieSeat* seat) { seat_ = seat; }
  void setNews(MovieNews* news) { records_.setNews(news); }
  void setLinkNews(LinkNews* news) { link_.setNews(news); }

  // Commands of "MOVIE" and "DVDP": STATUS, PLAY with path and title (alone for DVDP, and to go
  // on), STOP, PAUSE, DURATION, MUTE=TRUE, MUTE=FALSE, VOLUME with a level, CURRENTPOSITION with
  // seconds as numberText() writes them, FULLSCREEN, NORMALSCREEN; for DVDP also PREVCHAPTER,
  // NEXTCHAPTER, ENTER, UPPER, RIGHT, LOWER, LEFT. In the network role a command waits for a
  // connection that is being made, up to 3 s, and is dropped when there is none; for the
  // Listener's DVD one is made, and where that fails the status line says so. Yields.
  void ConnectionMovieSend(QString target, QString command, QString argument1 = {},
                           QString argument2 = {});

  void ConnectionMovieConnect();  // nothing while connected, nor without a port. Yields.
  void connectAgain();            // without a wait; it becomes known by the news
  void ConnectionMovieClose();    // without a report
  Winsock::State connectionState() const { return link_.state(); }

  // Whether a movie plays at the Listener, which then speaks about once a second.
  bool playsThere() const;

  // By the seat: a whole record of replyRecord(), handled before this returns. Yields.
  void localListenerReply(const QString& record);
  // Shown from the event loop; what comes while a box is up waits and is said together.
  void sayTrouble(const QString& text) { trouble_.say(text); }

 private:
  void linkStands() override;
  void linkDelivers(const QByteArray& block) override;
  void linkCloses() override;
  void linkFails(const QString& description) override;

  void sendRecord(const MovieCommand& command);
  bool standsForDvd();
  void connectionEnded();

  const Uses uses_;
  PlayPresenter presenter_;
  MovieRecords records_;
  TroubleBox trouble_;
  MovieSeat* seat_ = nullptr;
  RecordLink link_;
  bool stood_ = false;  // it stood, and nobody has heard that it is gone
};

}  // namespace korvane

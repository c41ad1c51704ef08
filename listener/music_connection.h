// All music goes through here: commands out by ConnectionMP3Send, reports back as records. The
// music plays on this console (LocalMusic) or at the Music Listener, over TCP; callers do not ask.
#pragma once

#include "listener/local_music.h"
#include "listener/music_records.h"
#include "listener/record_link.h"

namespace korvane {

class MusicConnection : public ListenerReports, private RecordLink::Owner, private LocalReplies {
 public:
  struct Uses {
    Form& form;
    AppState& state;
    Settings& settings;
    Messages& messages;
    const Log& log;
    Pump& pump;
    FileSystem& files;
    MediaPlayer& player;
    Mixer& mixer;
    Winsock& connectionMP3;
    LocalMusic::CoverArt coverArtBytes;
  };
  explicit MusicConnection(Uses uses);

  // Neither is owned; nullptr for silence.
  void setNews(TransportNews* news);
  void setLinkNews(LinkNews* news) { link_.setNews(news); }

  // Commands of "MUSIC": STATUS, PLAY with path and title, PLAY alone to resume, STOP, PAUSE,
  // DURATION, MUTE=TRUE, MUTE=FALSE, VOLUME with a level, CURRENTPOSITION with seconds as
  // numberText() writes them. In the server role a command waits for a connection that is being
  // made, up to 3 s, and is dropped when there is none. Yields.
  void ConnectionMP3Send(QString target, QString command, QString argument1 = {},
                         QString argument2 = {});

  void ConnectionMP3Connect();  // nothing while connected. Yields.
  void connectAgain();          // without a wait; it becomes known by the news
  void ConnectionMP3Close();    // without a report
  Winsock::State connectionState() const { return link_.state(); }

  // At seat or in the cabin: changes to the other one, or says why not while something plays.
  // Yields.
  void lblMusicPlay_Click();
  void MusicTimer_Timer();
  void levelChangedOutside() { local_.levelChangedOutside(); }  // of the mixer, by another program
  void DisplayDuration(double seconds) { presenter_.DisplayDuration(seconds); }
  void ShowSliderTimes() { presenter_.ShowSliderTimes(); }  // in Slider1's text and in TxtTime

 private:
  void linkStands() override;
  void linkDelivers(const QByteArray& block) override;
  void linkCloses() override;
  void linkFails(const QString& description) override;
  bool heedsFailures() const override { return uses_.state.gMusicType == MusicSource::Digital; }

  void localReply(const QString& record) override;
  void localCover(const QByteArray* image) override;
  void localSongFailed(const QString& description) override;
  void localEndOfStream() override;

  void note(const MusicCommand& command);
  void sendRecord(const QString& target, const MusicCommand& command);
  void connectionEnded();

  const Uses uses_;
  MusicPresenter presenter_;
  SongRequests songs_;
  MusicRecords records_;
  LocalMusic local_;
  RecordLink link_;
  bool stood_ = false;  // it stood, and nobody has heard that it is gone
};

}  // namespace korvane

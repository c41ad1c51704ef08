// All music goes through here: commands out by ConnectionMP3Send, reports back by DataArrival. The
// music plays on this console (LocalMusic) or at the Music Listener, over TCP; callers do not ask.
#pragma once

#include "core/form/form.h"
#include "core/form/panel.h"
#include "core/log.h"
#include "core/prompt.h"
#include "listener/cover_transfer.h"
#include "listener/link_news.h"
#include "listener/listener_record.h"
#include "listener/local_music.h"
#include "listener/transport_news.h"
#include "listener/trouble_box.h"
#include "platform/pump.h"
#include "platform/winsock.h"

namespace korvane {

class MusicConnection : private Winsock::Events, private LocalReplies {
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
  ~MusicConnection() override;

  void setNews(TransportNews* news) { news_ = news; }     // not owned
  void setLinkNews(LinkNews* news) { linkNews_ = news; }  // not owned

  // Commands of "MUSIC": STATUS, PLAY with path and title, PLAY alone to resume, STOP, PAUSE,
  // DURATION, MUTE=TRUE, MUTE=FALSE, VOLUME with a level, CURRENTPOSITION with seconds as
  // numberText() writes them. In the server role a command is dropped while there is no connection.
  // Yields.
  void ConnectionMP3Send(QString target, QString command, QString argument1 = {},
                         QString argument2 = {});

  void ConnectionMP3Connect();  // nothing while connected. Yields.
  void connectAgain();          // without a wait; it becomes known by the news
  void ConnectionMP3Close();    // without a report
  Winsock::State connectionState() const { return uses_.connectionMP3.state(); }

  // Reads a delivery of `bytesTotal` bytes from the socket, or localListenerReply when it is -1.
  void DataArrival(qint64 bytesTotal) override;

  void lblMusicPlay_Click();  // at seat or in cabin; only while Slider1 stands at 0
  void MusicTimer_Timer();
  void levelChangedOutside() { local_.levelChangedOutside(); }  // of the mixer, by another program
  void DisplayDuration(double seconds);
  void ShowSliderTimes();  // in Slider1's text and in TxtTime

  std::function<void()> volumeTold;  // a VOLUME report has come

  double listenerMaxVolume = 0, listenerVolume = 0;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* Slider1 = bind("Slider1");
    Label* TxtTime = bind("TxtTime");
    Label* lblDuration = bind("lblDuration");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* lblVolume = bind("lblVolume");
    Control* coverArt = bind("coverArt");
    Image* play = bind("cmdControls", 1);
    Image* pause = bind("cmdControls", 2);
    Image* stop = bind("cmdControls", 3);
    std::array<Image*, 2> lblMusicPlay = bind("lblMusicPlay");
    Image* musicTab = bind("imgTabs", 0);
    Timer* MusicTimer = bind("MusicTimer");
  };
  struct RecordHandler {
    QByteArrayView name;
    void (MusicConnection::*handle)(const ListenerRecord&);
  };
  static const RecordHandler kRecords[];

  void Connect() override;
  void Close() override;
  void Error(const QString& description) override;

  void localReply(const QString& record) override;
  void localCover(const QByteArray* image) override;
  void localSongFailed(const QString& description) override;
  void localEndOfStream() override;

  void connectNow();
  void sendRecord(const QString& target, const MusicCommand& command);
  void letConnect();
  void listenerGone();
  void hideCover();
  void showCover(const QByteArray& image);
  void note(const MusicCommand& command);
  void songEnded();
  void takeNextSong();

  void handleRecords(QByteArrayView block, WireText encoding);
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

  Uses uses_;
  Panel panel_;
  LocalMusic local_;
  CoverTransfer cover_;
  TroubleBox trouble_;
  TransportNews* news_ = nullptr;
  LinkNews* linkNews_ = nullptr;
  QByteArray localListenerReply_;              // UTF-8, whatever the encoding on the wire
  WireText wireText_ = WireText::Windows1252;  // of the connection, read when it is opened
  bool stood_ = false;                         // it stood, and nobody has heard that it is gone
  bool songAwaited_ = false;                   // a song was asked for and has not been answered
  bool takingNext_ = false;                    // the next song after a failed one is being sent
  int failuresInARow_ = 0;                     // songs that could not be played since one sounded
  int songNumber_ = 0;                         // counts songs asked for and stops
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

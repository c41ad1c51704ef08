// What each record of the Music Listener does: the table, and a handler a record. A statement whose
// field is missing or no number is skipped; the others of its record still run.
#include "listener/music_connection.h"

namespace korvane {
namespace {

bool isTime(double seconds) {
  return seconds >= -1 && seconds < 1e9;
}

}  // namespace

const MusicConnection::RecordHandler MusicConnection::kRecords[] = {
    {"MUSICTIMER", &MusicConnection::musicTimer},
    {"MUSICDURATION", &MusicConnection::musicDuration},
    {"MEDIAPLAYERSTATE", &MusicConnection::mediaPlayerState},
    {"SONGPLAYING", &MusicConnection::songPlaying},
    {"ENDOFSTREAM", &MusicConnection::endOfStream},
    {"ERROR", &MusicConnection::error},
    {"PAUSETOPLAY", &MusicConnection::pauseToPlay},
    {"VOLUME", &MusicConnection::volume},
    {"MAXVOLUME", &MusicConnection::maxVolume},
    {"RECEIVEJPG", &MusicConnection::receiveJpg},
};

void MusicConnection::DataArrival(qint64 bytesTotal) {
  if (bytesTotal == -1) {
    const QByteArray reply = localListenerReply_;  // a handler may answer anew
    return handleRecords(reply, WireText::Utf8);
  }
  if (connectionState() == Winsock::Connecting)
    uses_.pump.wait(3000, [this] { return connectionState() != Winsock::Connecting; });
  const QByteArray block = uses_.connectionMP3.GetData(bytesTotal);
  const bool heard = cover_.receivingCoverArt() || block.contains(kRecordEnd);
  if (linkNews_ && heard) linkNews_->linkHears();  // half a record is no answer
  if (uses_.state.gLocalListener) return;          // of a Listener that nobody listens to
  if (!cover_.receivingCoverArt()) return handleRecords(block, wireText_);
  if (const auto image = cover_.take(block)) showCover(*image);
}

void MusicConnection::handleRecords(QByteArrayView block, WireText encoding) {
  forEachRecord(block, [&](QByteArrayView bytes) {
    const ListenerRecord record(bytes, encoding);
    for (const RecordHandler& entry : kRecords) {
      if (entry.name != record.name()) continue;
      (this->*entry.handle)(record);
      break;
    }
    return !cover_.receivingCoverArt();
  });
}

void MusicConnection::receiveJpg(const ListenerRecord& record) {
  if (const auto coverArtSize = record.number(1)) cover_.begin(*coverArtSize);
}

void MusicConnection::musicTimer(const ListenerRecord& record) {
  const auto position = record.number(2);
  if (position.value_or(0) > 0) failuresInARow_ = 0;
  if (uses_.state.sliderHeld) return;
  if (position && isTime(*position)) panel_.Slider1->value = *position;
  ShowSliderTimes();
}

void MusicConnection::musicDuration(const ListenerRecord& record) {
  const auto seconds = record.number(1);
  if (!seconds || !isTime(*seconds)) return;
  DisplayDuration(*seconds);
  panel_.Slider1->maximum = std::max(*seconds, 0.0);
}

void MusicConnection::endOfStream(const ListenerRecord&) {
  songEnded();
}

void MusicConnection::error(const ListenerRecord& record) {
  if (const auto text = record.text(1)) trouble_.say(*text);
  if (std::exchange(songAwaited_, false)) takeNextSong();
}

void MusicConnection::maxVolume(const ListenerRecord& record) {
  listenerMaxVolume = record.number(1).value_or(listenerMaxVolume);
}

void MusicConnection::volume(const ListenerRecord& record) {
  listenerVolume = record.number(1).value_or(listenerVolume);
  if (listenerMaxVolume > 0)
    panel_.lblVolume->caption =
        u"Volume %1%"_s.arg(std::round(100 * listenerVolume / listenerMaxVolume));
  if (volumeTold) volumeTold();
}

void MusicConnection::pauseToPlay(const ListenerRecord&) {
  uses_.state.gPlayMode = PlayMode::Playing;
  uses_.state.gMusicState = MusicState::Play;
  panel_.play->setPicture(u"Music"_s, u"playb"_s);
  panel_.pause->setPicture(u"Music"_s, u"pause"_s);
  panel_.stop->setPicture(u"Music"_s, u"stop"_s);
}

void MusicConnection::mediaPlayerState(const ListenerRecord& record) {
  const auto told = record.number(1);
  if (!told || std::abs(*told) > 1000) return;
  const auto mode = playModeOf(static_cast<int>(std::lround(*told)));
  if (!mode || *mode == uses_.state.gPlayMode) return;
  uses_.state.gPlayMode = *mode;
  if (!news_) return;
  if (*mode == PlayMode::Paused) news_->playerPaused();
  if (*mode == PlayMode::Stopped) news_->playerStopped();
}

void MusicConnection::songPlaying(const ListenerRecord& record) {
  songAwaited_ = false;
  if (const auto title = record.text(1)) panel_.lblCurrentPlay->caption = u"Playing: "_s + *title;
}

}  // namespace korvane

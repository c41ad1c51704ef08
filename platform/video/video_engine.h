// The thread of the movie player: what it adds to VlcEngine is the check of a file, its frames, its
// subtitles beside it and its end.
#pragma once

#include "platform/video/subtitle_files.h"
#include "platform/video/video_frames.h"
#include "platform/video/video_player_vlc.h"
#include "platform/vlc/vlc_engine.h"

namespace korvane {

class VideoPlayerVlc::Engine final : public VlcEngine {
 public:
  Engine(VideoPlayerVlc& owner, Pump& pump, QStringList arguments);

  // On the thread only.
  void open(int file, const QString& path);
  void play(int run);
  void close();

  VideoFrames frames;

 private:
  void event(const libvlc_event_t& event) override;
  void prepare() override { frames.attach(*vlc_, player_); }
  void fail(int file, const QString& reason);  // from the thread
  QString checked() const;  // why the file cannot be played; empty when it may be
  void addSubtitles(libvlc_media_t* media);
  void look(int file);
  void conclude(int run, bool broken);
  bool decoded() const;
  VideoShape shape();

  VideoPlayerVlc& owner_;  // touched from the event loop only
  QString path_;
  std::vector<SubtitleFile> beside_;
  Tracks sounds_, subtitles_;  // as last told
  std::atomic<int> file_{0}, run_{0};
  std::atomic<bool> trackFound_{false};
  std::mutex shapeMutex_;  // of media_, for shape()
};

}  // namespace korvane

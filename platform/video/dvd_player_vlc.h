// The player of DVDs over libVLC, which draws into a window of X11. What is asked is only kept here
// and done, in order, on the thread of its VlcEngine, which looks twice a second where the disc is.
#pragma once

#include "platform/dvd_player.h"
#include "platform/pump.h"

namespace korvane {

// Where a disc is, as a whole.
struct DvdPlace {
  DvdPlayer::Domain domain = DvdPlayer::Nothing;
  int title = 0, chapter = 0, chapters = 0, time = 0, total = 0;
  QList<MediaTrack> sounds, subtitles;
  int sound = MediaTrack::kNone, subtitle = MediaTrack::kNone;
  bool operator==(const DvdPlace&) const = default;
};

class DvdPlayerVlc final : public DvdPlayer {
 public:
  // `arguments` as VlcEngine takes them; `device` in place of the machine's first drive. The pump
  // must outlive this; not owned.
  explicit DvdPlayerVlc(Pump& pump, QStringList arguments = {}, const QByteArray& device = {});
  ~DvdPlayerVlc() override;  // at most 1 s, even when the drive hangs

  void setEvents(Events* events) override;
  void setWindow(quintptr window) override;
  QString DVDDirectory() const override { return directory_; }
  void setDVDDirectory(const QString& path) override;
  void Play() override;
  void Pause() override;
  void Stop() override;
  State state() const override { return state_; }
  void ActivateButton() override;
  void SelectButton(Arrow towards) override;
  void ShowMenu(MenuId menu) override;
  void PlayPrevChapter() override;
  void PlayNextChapter() override;
  Domain CurrentDomain() const override { return place_.domain; }
  int CurrentTitle() const override { return place_.title; }
  int CurrentChapter() const override { return place_.chapter; }
  int chapters() const override { return place_.chapters; }
  int CurrentTime() const override { return place_.time; }
  int TotalTitleTime() const override { return place_.total; }
  void setCurrentTime(int seconds) override;
  void setVolume(int hundredthsOfDecibel) override;
  void setMute(bool on) override;
  QList<MediaTrack> tracks(TrackKind kind) const override {
    return kind == TrackKind::Sound ? place_.sounds : place_.subtitles;
  }
  int track(TrackKind kind) const override {
    return kind == TrackKind::Sound ? place_.sound : place_.subtitle;
  }
  void setTrack(TrackKind kind, int id) override;

 private:
  class Engine;
  friend class Engine;
  template <class Work>
  void post(Work work);
  void watch();
  void notify(Notice notice);
  void heardPlace(int run, const DvdPlace& place);
  void heardEnd(int run, const QString& failure);

  std::shared_ptr<Engine> engine_;
  Events* events_ = nullptr;
  QString directory_;
  State state_ = Stopped;
  DvdPlace place_;
  int run_ = 0;  // number of the playing since the last stop
  bool used_ = false;
};

}  // namespace korvane

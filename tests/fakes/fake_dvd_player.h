// A DVD player that keeps what was asked of it. Its disc moves between menus and titles, ends,
// fails or goes when the test says so, also without being asked.
#pragma once

#include "platform/dvd_player.h"

namespace korvane {

class FakeDvdPlayer : public DvdPlayer {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void setWindow(quintptr to) override { window = to; }
  QString DVDDirectory() const override { return directory_; }
  void setDVDDirectory(const QString& path) override {
    calls << u"directory "_s + path;
    directory_ = path;
    state_ = Stopped;
  }
  void Play() override {
    calls << u"Play"_s;
    state_ = Playing;
  }
  void Pause() override {
    calls << u"Pause"_s;
    if (state_ == Playing) state_ = Paused;
  }
  void Stop() override {
    calls << u"Stop"_s;
    state_ = Stopped;
    domain = Nothing;
  }
  State state() const override { return state_; }
  void ActivateButton() override { calls << u"ActivateButton"_s; }
  void SelectButton(Arrow towards) override { calls << u"SelectButton %1"_s.arg(towards); }
  void ShowMenu(MenuId menu) override { calls << u"ShowMenu %1"_s.arg(menu); }
  void PlayPrevChapter() override { calls << u"PlayPrevChapter"_s; }
  void PlayNextChapter() override { calls << u"PlayNextChapter"_s; }
  Domain CurrentDomain() const override { return domain; }
  int CurrentTitle() const override { return title; }
  int CurrentChapter() const override { return chapter; }
  int chapters() const override { return chapterCount; }
  int CurrentTime() const override { return time; }
  int TotalTitleTime() const override { return total; }
  void setCurrentTime(int seconds) override { calls << u"seek %1"_s.arg(seconds); }
  void setVolume(int level) override { calls << u"volume %1"_s.arg(level); }
  void setMute(bool on) override { calls << (on ? u"mute"_s : u"unmute"_s); }
  QList<MediaTrack> tracks(TrackKind kind) const override {
    return kind == TrackKind::Sound ? sounds : subtitles;
  }
  int track(TrackKind kind) const override { return kind == TrackKind::Sound ? sound : subtitle; }
  void setTrack(TrackKind kind, int id) override {
    (kind == TrackKind::Sound ? sound : subtitle) = id;
  }

  void tell(Notice notice) {
    if (events_) events_->DVDNotify(notice);
  }
  void end() {
    state_ = Stopped;
    if (events_) events_->endOfDisc();
  }
  void fail(const QString& description) {
    state_ = Stopped;
    if (events_) events_->failed(description);
  }

  quintptr window = 0;
  QStringList calls;
  Domain domain = Nothing;
  int title = 0, chapter = 0, chapterCount = 0, time = 0, total = 0;
  QList<MediaTrack> sounds, subtitles;
  int sound = MediaTrack::kNone, subtitle = MediaTrack::kNone;

 private:
  Events* events_ = nullptr;
  QString directory_;
  State state_ = Stopped;
};

}  // namespace korvane

// The DVD player over libVLC 3, which reads the disc by libdvdnav.
//
// The members here keep what was asked and what was last heard, and return at once; what is asked
// is done, in order, on the thread of the VlcEngine. News comes back through the pump, marked with
// the start of the disc that it belongs to; what is older is dropped.
//
// libVLC 3 cannot be given another window while it plays. So the disc is stopped when its window
// goes, and begun again at the same title and second when there is one again; a menu begins anew.
// What the disc's own program has remembered is lost by that, and by a menu of the disc that has to
// be reached by a new start.
#pragma once

#include <memory>

#include "platform/dvd_player.h"
#include "platform/pump.h"
#include "platform/video/dvd_drive.h"

namespace korvane {

class DvdPlayerVlc final : public DvdPlayer {
 public:
  // `arguments` as VlcEngine takes them. The pump must outlive this; not owned.
  explicit DvdPlayerVlc(Pump& pump, const QStringList& arguments = {},
                        std::shared_ptr<DvdDrive> drive = std::make_shared<DvdDriveLinux>());
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
  void PlayPrevChapter() override { stepChapter(-1); }
  void PlayNextChapter() override { stepChapter(1); }
  Domain CurrentDomain() const override { return view_.domain; }
  int CurrentTitle() const override { return view_.title; }
  int CurrentChapter() const override { return view_.chapter; }
  int chapters() const override { return view_.chapters; }
  int CurrentTime() const override { return static_cast<int>(view_.milliseconds / 1000); }
  int TotalTitleTime() const override { return static_cast<int>(view_.length / 1000); }
  void setCurrentTime(int seconds) override;
  void setVolume(int hundredthsOfDecibel) override;
  void setMute(bool on) override;
  QList<MediaTrack> tracks(TrackKind kind) const override;
  int track(TrackKind kind) const override;
  void setTrack(TrackKind kind, int id) override;

 private:
  class Engine;
  friend class Engine;

  // What shows; all but the domain is 0 and empty unless that is Title.
  struct View {
    Domain domain = Nothing;
    int title = 0, chapter = 0, chapters = 0;
    qint64 milliseconds = 0, length = 0;
    QList<MediaTrack> sounds, subtitles;
    int sound = MediaTrack::kNone, subtitle = MediaTrack::kNone;
    bool operator==(const View&) const = default;
  };
  struct Start;

  template <class Work>
  void post(Work work);  // runs work(engine) on its thread
  void begin();          // where view_ is, when there is a window
  void stepChapter(int by);
  void watchDrive();
  void heardView(int start, const View& view);
  void heardEnd(int start, const QString& trouble);  // empty for the end of the disc's program
  void heardDrive(Notice notice);

  std::shared_ptr<Engine> engine_;
  Events* events_ = nullptr;
  quintptr window_ = 0;
  QString directory_;
  State state_ = Stopped;
  View view_;
  int start_ = 0;  // counts the starts and stops of a disc
  bool watching_ = false;
};

}  // namespace korvane

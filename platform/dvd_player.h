// The DVD control: plays a disc, or a folder that holds one, with its menus, under the names of the
// control it stands for. Seconds everywhere; titles and chapters count from 1.
//
// The picture is drawn by the player itself into a native window of the face's, which takes the
// finger too: a press there lands on the disc's own button and reaches no handler of the console.
// The whole screen, whether the picture shows and the mark of its control are the face's matter.
//
// Called from the thread of the event loop only, and calls back there, never from inside a call. No
// call waits for the drive. What makes no sense at the moment (a menu of a disc that has none, a
// chapter while a menu shows) does nothing; a copied disc or a scratch must not stop the console.
#pragma once

#include "platform/media_track.h"

namespace korvane {

class DvdPlayer {
 public:
  enum State { Stopped, Paused, Playing };
  // What shows. The disc moves between them by its own program, at any time.
  enum Domain { Nothing, Menu, Title };
  // The menus of ShowMenu, with the numbers of DVD_MENU_ID: that of the disc and that of the title.
  enum MenuId { TitleMenu = 2, RootMenu = 3 };
  enum Arrow { Upper, Lower, Left, Right };

  // The codes of DVDNotify, with the numbers of DirectShow (EC_DVD_...).
  enum Notice {
    DomainChange = 257,  // CurrentDomain() is another
    TitleChange = 258,   // CurrentTitle() is another, and so are its length and its chapters
    ChapterStart = 259,  // CurrentChapter() is another
    DiscEjected = 280,
    DiscInserted = 281,
    CurrentTimeChange = 282,  // about twice a second while a title plays
  };

  class Events {
   public:
    virtual ~Events() = default;
    virtual void DVDNotify(Notice notice) = 0;
    virtual void endOfDisc() = 0;  // its program came to its end; Stopped

    // The disc cannot be read, or not any further; Stopped. For a message: what, and why.
    virtual void failed(const QString& description) = 0;
  };

  virtual ~DvdPlayer() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  // The native window to draw into, 0 for none: then nothing plays. It belongs to the face, which
  // gives 0 before it goes; its size may change at any time and the picture follows.
  virtual void setWindow(quintptr window) = 0;

  // A folder VIDEO_TS or the one above it; empty for the machine's first DVD drive. Another one
  // stops what plays; the next Play begins it.
  virtual QString DVDDirectory() const = 0;
  virtual void setDVDDirectory(const QString& path) = 0;

  virtual void Play() = 0;  // from the disc's beginning, or on from a pause
  virtual void Pause() = 0;
  virtual void Stop() = 0;  // to the disc's beginning; the window is left black
  virtual State state() const = 0;

  virtual void ActivateButton() = 0;             // presses the menu's button that is highlighted
  virtual void SelectButton(Arrow towards) = 0;  // highlights the next one in that direction
  virtual void ShowMenu(MenuId menu) = 0;
  virtual void PlayPrevChapter() = 0;
  virtual void PlayNextChapter() = 0;

  virtual Domain CurrentDomain() const = 0;
  // Of the title that plays; 0 while none does.
  virtual int CurrentTitle() const = 0;
  virtual int CurrentChapter() const = 0;
  virtual int chapters() const = 0;
  virtual int CurrentTime() const = 0;
  virtual int TotalTitleTime() const = 0;

  virtual void setCurrentTime(int seconds) = 0;         // nothing unless a title plays or is paused
  virtual void setVolume(int hundredthsOfDecibel) = 0;  // 0 is full, -10000 is silence
  virtual void setMute(bool on) = 0;                    // beside the volume, which it leaves alone

  // Of the title that plays; empty while none does.
  virtual QList<MediaTrack> tracks(TrackKind kind) const = 0;
  virtual int track(TrackKind kind) const = 0;  // the one chosen; MediaTrack::kNone for none
  virtual void setTrack(TrackKind kind, int id) = 0;
};

}  // namespace korvane

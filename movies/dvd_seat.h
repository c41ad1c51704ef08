// The DVD at this seat: MSWebDVD1, with a disc of this machine or a folder that holds one.
#pragma once

#include "core/app_state.h"
#include "core/form/panel.h"
#include "listener/play_presenter.h"
#include "platform/dvd_player.h"
#include "platform/pump.h"

namespace korvane {

class DvdSeat : private DvdPlayer::Events {
 public:
  // What happens to the disc without a press of the console's.
  class News {
   public:
    virtual ~News() = default;
    virtual void discIn() = 0;
    virtual void discOut() = 0;
    virtual void discEnded() = 0;
    virtual void discFailed(const QString& description) = 0;  // for the user to read
    virtual void discMoved() = 0;                             // time, chapter or menu
  };
  struct Uses {
    Form& form;
    const AppState& state;
    DvdPlayer& dvd;
    PlayPresenter& presenter;
    std::function<bool()> shows;  // whether the shared slider is the DVD's now
  };
  explicit DvdSeat(Uses uses);  // hears the player while it lives
  ~DvdSeat() override;
  void setNews(News* news) { news_ = news; }  // not owned

  void playDisc();                       // of the machine's drive
  void playFolder(const QString& path);  // that holds VIDEO_TS
  void goOn() { uses_.dvd.Play(); }
  void pause() { uses_.dvd.Pause(); }
  void stop() { uses_.dvd.Stop(); }
  void hitdvdButton() { uses_.dvd.ActivateButton(); }
  void cmdMenuforDVD_Click() { uses_.dvd.ShowMenu(DvdPlayer::RootMenu); }
  void previousChapter() { uses_.dvd.PlayPrevChapter(); }
  void nextChapter() { uses_.dvd.PlayNextChapter(); }
  void moveTo(double seconds) { uses_.dvd.setCurrentTime(static_cast<int>(seconds)); }
  void takeRealDisc();  // DVDDirectory is the drive's again after folders

  DvdPlayer& player() { return uses_.dvd; }
  bool inMenu() const { return uses_.dvd.CurrentDomain() == DvdPlayer::Menu; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Surface* MSWebDVD1 = bind("MSWebDVD1");
    Slider* Slider1 = bind("Slider1");
    Label* TxtTime = bind("TxtTime");
  };

  void DVDNotify(DvdPlayer::Notice notice) override;
  void endOfDisc() override;
  void failed(const QString& description) override;
  void showTime();

  Uses uses_;
  Panel panel_;
  News* news_ = nullptr;
};

}  // namespace korvane

#include "custom/home_panel.h"

#include <QLocale>

namespace korvane {
namespace {

enum { kPrevious, kPlayPause, kNext };
constexpr int kMinuteMs = 60'000, kSecondMs = 1000;
constexpr Rect kPlace{688, 16, 568, 216}, kBesideCamera{580, 16, 568, 216};
constexpr int kPast = 20;  // ms behind the full minute, so that it has come

QString timeText(const QTime& time) {
  const bool noons = QLocale::system().timeFormat(QLocale::ShortFormat).contains(u'A');
  return QLocale(QLocale::English).toString(time, noons ? u"h:mm AP"_s : u"HH:mm"_s);
}

}  // namespace

HomePanel::HomePanel(Form& form, Uses uses) : form_(form), uses_(uses), panel_(form) {
  form_.observe(this);
}

HomePanel::~HomePanel() {
  form_.forget(this);
}

void HomePanel::show() {
  if (!uses_.settings.flag(key::HomePanel)) return hide();
  form_.moveDesign(*panel_.frameHome, uses_.state.gCamera ? kBesideCamera : kPlace);
  for (Control* control :
       std::initializer_list<Control*>{panel_.lblHomeClock, panel_.lblHomeDate, panel_.frameHome})
    control->visible = true;
  HomeTimer_Timer();
  showMusic();
}

void HomePanel::hide() {
  for (Control* control :
       std::initializer_list<Control*>{panel_.lblHomeClock, panel_.lblHomeDate, panel_.frameHome})
    control->visible = false;
  panel_.HomeTimer->enabled = false;
}

void HomePanel::editing(bool on) {
  if (!panel_.frameHome->visible()) return;
  panel_.lblHomeClock->visible = panel_.lblHomeDate->visible = !on;
}

// Once a minute, at its beginning.
void HomePanel::HomeTimer_Timer() {
  const QDateTime now = uses_.clock.now();
  panel_.lblHomeClock->caption = timeText(now.time());
  panel_.lblHomeDate->caption = QLocale(QLocale::English).toString(now.date(), u"dddd, d MMMM"_s);
  const int gone = now.time().second() * kSecondMs + now.time().msec();
  panel_.HomeTimer->interval = kMinuteMs - gone + kPast;
  panel_.HomeTimer->enabled = true;
}

void HomePanel::controlChanged(Control& control, Aspect) {
  if (!panel_.frameHome->visible()) return;
  if (&control == panel_.lblCurrentPlay || &control == panel_.TxtTime ||
      &control == panel_.lblDuration || &control == panel_.coverArt || &control == panel_.cmdPlay)
    showMusic();
}

void HomePanel::showMusic() {
  const QString title = uses_.state.gSongPlayingTitle;
  const bool song = !title.isEmpty();
  panel_.lblHomeTitle->caption = song ? title : u"Nothing is playing"_s;
  panel_.lblHomeArtist->caption = song ? artist() : u"Press play for any song"_s;
  const QString time = panel_.TxtTime->caption();
  panel_.lblHomePosition->caption =
      song && !time.contains(u'-') ? time + u" / "_s + panel_.lblDuration->caption() : QString();
  const bool cover = song && panel_.coverArt->tag() == "TRUE"_L1;
  panel_.picHomeCover->picture =
      cover ? panel_.coverArt->picture() : Picture{u"root"_s, u"emptyart"_s, nullptr};
  panel_.cmdHome[kPlayPause]->setPicture(
      u"music"_s, uses_.state.gMusicState == MusicState::Play ? u"pause"_s : u"play"_s);
  panel_.cmdHome[kPrevious]->enabled = song && !uses_.state.jukeboxMode;
  panel_.cmdHome[kNext]->enabled = song;
}

void HomePanel::cmdHome_Click(int index) {
  if (index == kPlayPause) return playPause();
  pressTransport(index == kPrevious ? TransportButton::Previous : TransportButton::Next);
}

}  // namespace korvane

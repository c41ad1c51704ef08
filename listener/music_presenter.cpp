#include "listener/music_presenter.h"

#include "listener/listener_record.h"

namespace korvane {

MusicPresenter::MusicPresenter(Form& form) : panel_(form) {}

void MusicPresenter::showSong(const QString& title) {
  panel_.lblCurrentPlay->caption = u"Playing: "_s + title;
}

void MusicPresenter::showConnecting() {
  panel_.lblCurrentPlay->caption = u"Status:Idle"_s;
}

void MusicPresenter::showResumed() {
  panel_.play->setPicture(u"Music"_s, u"playb"_s);
  panel_.pause->setPicture(u"Music"_s, u"pause"_s);
  panel_.stop->setPicture(u"Music"_s, u"stop"_s);
}

void MusicPresenter::showPosition(double seconds) {
  panel_.Slider1->value = seconds;
}

void MusicPresenter::showLength(double seconds) {
  DisplayDuration(seconds);
  panel_.Slider1->maximum = std::max(seconds, 0.0);
}

void MusicPresenter::DisplayDuration(double seconds) {
  panel_.lblDuration->caption = minutesAndSeconds(seconds);
}

void MusicPresenter::ShowSliderTimes() {
  const double now = panel_.Slider1->value(), end = panel_.Slider1->maximum();
  panel_.Slider1->text =
      u"Current= "_s + minutesAndSeconds(now) + u" -- Remaining= "_s + minutesAndSeconds(end - now);
  panel_.TxtTime->caption = minutesAndSeconds(now);
}

void MusicPresenter::showVolume(double level, double maximum) {
  if (maximum > 0)
    panel_.lblVolume->caption = u"Volume %1%"_s.arg(std::round(100 * level / maximum));
}

void MusicPresenter::hideCover() {
  panel_.coverArt->visible = false;
  panel_.coverArt->tag = u"FALSE"_s;
}

void MusicPresenter::showCover(const QByteArray& image) {
  panel_.coverArt->picture = Picture{{}, {}, std::make_shared<const QByteArray>(image)};
  if (panel_.musicTab->tagged()) panel_.coverArt->visible = true;
  panel_.coverArt->tag = u"TRUE"_s;
}

void MusicPresenter::showPlace(bool local) {
  panel_.lblMusicPlay[0]->setPicture(u"music"_s, local ? u"AtSeaton"_s : u"AtSeatOff"_s);
  panel_.lblMusicPlay[1]->setPicture(u"music"_s, local ? u"InCabinOff"_s : u"InCabinOn"_s);
}

}  // namespace korvane

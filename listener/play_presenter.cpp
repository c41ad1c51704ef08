#include "listener/play_presenter.h"

#include "listener/listener_record.h"

namespace korvane {

PlayPresenter::PlayPresenter(Form& form) : panel_(form) {}

void PlayPresenter::showStatus(const QString& text) {
  panel_.lblCurrentPlay->caption = text;
}

void PlayPresenter::showConnecting() {
  showStatus(u"Status:Idle"_s);
}

void PlayPresenter::showResumed() {
  panel_.play->setPicture(u"Music"_s, u"playb"_s);
  panel_.pause->setPicture(u"Music"_s, u"pause"_s);
  panel_.stop->setPicture(u"Music"_s, u"stop"_s);
}

void PlayPresenter::showPosition(double seconds) {
  panel_.Slider1->value = seconds;
}

void PlayPresenter::showPositionWithin(double seconds) {
  const double end = panel_.Slider1->maximum();
  const double within = std::clamp(seconds, 0.0, end > 0 ? end : seconds + 1);
  showPosition(within);
  panel_.TxtTime->caption = minutesAndSeconds(within);
}

void PlayPresenter::showLength(double seconds) {
  DisplayDuration(seconds);
  panel_.Slider1->maximum = std::max(seconds, 0.0);
}

void PlayPresenter::DisplayDuration(double seconds) {
  panel_.lblDuration->caption = minutesAndSeconds(seconds);
}

void PlayPresenter::ShowSliderTimes() {
  const double now = panel_.Slider1->value(), end = panel_.Slider1->maximum();
  panel_.Slider1->text = fileTimes(now, end);
  panel_.TxtTime->caption = minutesAndSeconds(now);
}

void PlayPresenter::showNoTime() {
  backToStart();
  panel_.Slider1->text = u"--:--:--"_s;
  panel_.TxtTime->caption = u"--:--:--"_s;
  panel_.lblDuration->caption = QString();
}

void PlayPresenter::showVolume(double level, double maximum) {
  if (maximum > 0)
    panel_.lblVolume->caption = u"Volume %1%"_s.arg(std::round(100 * level / maximum));
}

}  // namespace korvane

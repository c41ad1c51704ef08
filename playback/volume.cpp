#include "playback/volume.h"

namespace korvane {
namespace {

constexpr double kBar = 2400;  // steps, 24 a percent
constexpr double kFirstStep = 0.02, kHeldStep = 0.05;
constexpr int kRepeat = 200;  // ms between the steps of a held button

}  // namespace

double levelOfBar(double bar, double maximum) {
  return maximum > 0 ? std::round(bar * maximum / kBar) : bar;
}

double barOfLevel(double level, double maximum) {
  return maximum > 0 ? std::round(std::clamp(level / maximum, 0.0, 1.0) * kBar) : 0;
}

Volume::Volume(Form& form, Uses uses) : uses_(uses), panel_(form) {
  panel_.scrollVolume->maximum = kBar;
  panel_.mute->tag = u"00"_s;
}

double Volume::ceiling() const {
  return uses_.music.listenerMaxVolume * uses_.settings.number(key::VolumeMax) / 100;
}

void Volume::send(double level) {
  if (uses_.music.listenerMaxVolume > 0) level = std::clamp(level, 0.0, ceiling());
  const QString value = QString::number(std::llround(level));
  if (uses_.tabs.open(kMoviesTab) && movies_)
    movies_->ConnectionMovieSend(u"MOVIE"_s, u"VOLUME"_s, value);
  else
    uses_.music.ConnectionMP3Send(u"MUSIC"_s, u"VOLUME"_s, value);
}

void Volume::scrollVolume_Change() {
  send(levelOfBar(panel_.scrollVolume->value(), uses_.music.listenerMaxVolume));
  panel_.lblVolume->caption = u"%1 %"_s.arg(static_cast<int>(panel_.scrollVolume->value()) / 24);
}

void Volume::scrollVolumeButton_Press(int by) {
  if (by < 0)
    panel_.ScrollVolumeDN->setPicture(u"music"_s, u"volminusb"_s);
  else
    panel_.ScrollVolumeUp->setPicture(u"music"_s, u"volplusb"_s);
  RepeatMode_ = by < 0 ? Quieter : Louder;
  panel_.RepeatTimer->interval = kRepeat;
  panel_.RepeatTimer->enabled = true;
  step(kFirstStep);
}

void Volume::scrollVolumeButton_Release() {
  panel_.ScrollVolumeDN->setPicture(u"music"_s, u"volminus"_s);
  panel_.ScrollVolumeUp->setPicture(u"music"_s, u"volplus"_s);
  if (RepeatMode_ == Still) return;
  RepeatMode_ = Still;
  panel_.RepeatTimer->enabled = false;
}

void Volume::RepeatTimer_Tick() {
  if (RepeatMode_ == Still || (RepeatMode_ == Quieter && uses_.music.listenerVolume == 0)) return;
  uses_.pump.doEvents();
  if (RepeatMode_ != Still) step(kHeldStep);
}

void Volume::step(double share) {
  const double by = uses_.music.listenerMaxVolume * share;
  send(uses_.music.listenerVolume + (RepeatMode_ == Quieter ? -by : by));
}

void Volume::mute_Click() {
  const bool movies = uses_.tabs.open(kMoviesTab);
  if (movies || uses_.tabs.open(kMusicTab)) toggleMute(movies);
}

void Volume::muteMusic() {
  toggleMute(false);
}

void Volume::toggleMute(bool movies) {
  QString flags = panel_.mute->tag().leftJustified(2, u'0', true);
  QChar& flag = flags[movies ? 1 : 0];
  const bool on = flag != u'1';
  flag = on ? u'1' : u'0';
  const QString command = on ? u"MUTE=TRUE"_s : u"MUTE=FALSE"_s;
  panel_.mute->tag = flags;
  panel_.mute->setPicture(u"music"_s, on ? u"muteb"_s : u"mute"_s);
  if (!movies)
    uses_.music.ConnectionMP3Send(u"MUSIC"_s, command);
  else if (movies_)
    movies_->ConnectionMovieSend(
        uses_.state.gMovieType == MovieType::ListenerDvd ? u"DVDP"_s : u"MOVIE"_s, command);
}

void Volume::showBar() {
  const double maximum = uses_.music.listenerMaxVolume;
  if (maximum > 0) panel_.scrollVolume->value = barOfLevel(uses_.music.listenerVolume, maximum);
}

void Volume::volumeTold() {
  if (uses_.music.listenerMaxVolume > 0 &&
      std::round(uses_.music.listenerVolume) > std::round(ceiling()))
    send(ceiling());
  showBar();
}

void Volume::mixerChanged() {
  if (!uses_.state.gLocalListener) return;
  if (uses_.mixer.maximum() == 0) {
    uses_.log.logIt(u"The mixer has gone; the player's own volume takes its place."_s);
    return;
  }
  uses_.music.levelChangedOutside();
}

}  // namespace korvane

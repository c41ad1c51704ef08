#include "playback/volume.h"

namespace korvane {
namespace {

constexpr double kBar = 2400;  // steps, 24 a percent
constexpr double kFirstStep = 0.02, kHeldStep = 0.05;
constexpr int kRepeatMs = 200;  // between the steps of a held button

// Of the tag of mute, which holds one for the music and one for the movies.
int flagOf(Player::Sound sound) {
  return sound == Player::Sound::Movies ? 1 : 0;
}

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

Player& Volume::meant() const {
  Player* player = uses_.players.meant();
  return player ? *player : uses_.music;
}

double Volume::ceilingOf(double maximum) const {
  return std::floor(maximum * uses_.settings.number(key::VolumeMax) / 100);
}

// A Listener that has not told its maximum is sent places of the bar.
void Volume::send(double level) {
  Player& player = meant();
  const double maximum = player.levelMaximum();
  player.setLevel(std::clamp(level, 0.0, ceilingOf(maximum > 0 ? maximum : kBar)));
}

void Volume::scrollVolume_Change() {
  const double bar = std::min(panel_.scrollVolume->value(), ceilingOf(kBar));
  panel_.scrollVolume->value = bar;
  send(levelOfBar(bar, meant().levelMaximum()));
  panel_.lblVolume->caption = u"%1 %"_s.arg(static_cast<int>(bar) / 24);
}

void Volume::scrollVolumeButton_Press(int by) {
  if (by < 0)
    panel_.ScrollVolumeDN->setPicture(u"music"_s, u"volminusb"_s);
  else
    panel_.ScrollVolumeUp->setPicture(u"music"_s, u"volplusb"_s);
  uses_.paging.repeat(kRepeatMs, [this, by] {
    uses_.pump.doEvents();  // the button may be let go meanwhile
    if (uses_.paging.repeats() && (by > 0 || meant().level() > 0)) step(by, kHeldStep);
    return true;
  });
  step(by, kFirstStep);
}

void Volume::scrollVolumeButton_Release() {
  panel_.ScrollVolumeDN->setPicture(u"music"_s, u"volminus"_s);
  panel_.ScrollVolumeUp->setPicture(u"music"_s, u"volplus"_s);
  uses_.paging.endRepeat();
}

void Volume::step(int by, double share) {
  send(meant().level() + by * meant().levelMaximum() * share);
}

Player::Sound Volume::soundMeant() const {
  if (const Player* player = uses_.players.meant()) return player->sound();
  return uses_.state.currentTab == kMoviesTab ? Player::Sound::Movies : Player::Sound::Music;
}

void Volume::mute_Click() {
  Player* player = uses_.players.meant();
  if (!player && uses_.state.currentTab != kMoviesTab) return;
  const bool on = toggleMute(soundMeant());
  if (player) player->setMute(on);
}

void Volume::muteMusic() {
  uses_.music.setMute(toggleMute(Player::Sound::Music));
}

void Volume::showMute() {
  panel_.mute->setPicture(
      u"music"_s, panel_.mute->tag()[flagOf(soundMeant())] == u'1' ? u"muteb"_s : u"mute"_s);
}

bool Volume::toggleMute(Player::Sound sound) {
  QString flags = panel_.mute->tag().leftJustified(2, u'0', true);
  QChar& flag = flags[flagOf(sound)];
  const bool on = flag != u'1';
  flag = on ? u'1' : u'0';
  panel_.mute->tag = flags;
  showMute();
  return on;
}

void Volume::volumeTold(Player& player) {
  const double maximum = player.levelMaximum();
  if (maximum > 0 && std::round(player.level()) > ceilingOf(maximum))
    player.setLevel(ceilingOf(maximum));
  if (&player == &meant()) showLevel();
}

void Volume::showLevel() {
  const Player& player = meant();
  if (player.levelMaximum() > 0)
    panel_.scrollVolume->value = barOfLevel(player.level(), player.levelMaximum());
}

void Volume::mixerOpened(bool there) {
  const Settings& settings = uses_.settings;
  const int percent = std::min(settings.number(key::VolumeStart), settings.number(key::VolumeMax));
  if (there)
    uses_.mixer.setLevel(uses_.mixer.maximum() * percent / 100);
  else
    holdCeiling();
}

void Volume::mixerChanged() {
  if (!uses_.state.gLocalListener && uses_.state.gMovieListener) return;
  if (uses_.mixer.maximum() == 0)
    uses_.log.logIt(u"The mixer has gone; the player's own volume takes its place."_s);
  uses_.level.changedOutside();
  holdCeiling();
  if (uses_.state.gLocalListener) uses_.connection.tellLevel();
}

// Whether or not the level is shown, and with no mixer by the player's own volume.
void Volume::holdCeiling() {
  const int percent = uses_.settings.number(key::VolumeMax);
  const int maximum = uses_.mixer.maximum();
  if (maximum > 0 && uses_.mixer.level() > ceilingOf(maximum))
    uses_.mixer.setLevel(static_cast<int>(ceilingOf(maximum)));
  if (maximum == 0) uses_.level.set(uses_.level.maximum() * percent / 100.0);
}

}  // namespace korvane

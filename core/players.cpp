#include "core/players.h"

namespace korvane {

Players::Players(Uses uses) : uses_(uses), panel_(uses.form) {}

Player* Players::heard() const {
  for (const PlayMode mode : {PlayMode::Playing, PlayMode::Paused}) {
    const auto is = [mode](const Player* player) {
      return player->mode() == mode && (mode == PlayMode::Playing || player->canGoOn());
    };
    if (started_ && is(started_)) return started_;
    const auto found = std::ranges::find_if(players_, is);
    if (found != players_.end()) return *found;
  }
  return nullptr;
}

void Players::starts(Player& player) {
  for (Player* other : players_)
    if (other != &player && other->mode() != PlayMode::Stopped) other->press(TransportButton::Stop);
  started_ = &player;
}

bool Players::shows(const Player& player) const {
  const Player* sounds = heard();
  return !sounds || sounds == &player;
}

Player* Players::silent() const {
  Player* shown = uses_.tabs.openTab().player();
  return shown && shown->silent() ? shown : nullptr;
}

Player* Players::meant() const {
  Player* follows = uses_.settings.flag(key::FollowSound) ? heard() : nullptr;
  if (follows) return follows;
  return silent() ? nullptr : uses_.tabs.openTab().player();
}

void Players::cmdControls_Click(TransportButton button) {
  Player* shown = silent();
  if (Player* player = shown ? shown : meant()) press(*player, button);
}

void Players::press(Player& player, TransportButton button) {
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  player.press(button);
}

// A thumb that moves nothing stays where it was.
void Players::Slider1_Press() {
  moved_ = meant();
  if (moved_ && moved_->mode() == PlayMode::Stopped) moved_ = nullptr;
  uses_.state.sliderHeld = moved_ != nullptr;
}

void Players::Slider1_Scroll() {
  if (moved_)
    moved_->showTimes();
  else
    panel_.Slider1->value = 0;
}

void Players::Slider1_Release() {
  Player* player = std::exchange(moved_, nullptr);
  if (!player) {
    panel_.Slider1->value = 0;
    return;
  }
  uses_.pump.doEvents();
  player->moveTo(std::round(panel_.Slider1->value()));
  uses_.state.sliderHeld = false;
  uses_.pump.doEvents();
}

}  // namespace korvane

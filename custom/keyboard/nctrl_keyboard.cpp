#include "custom/keyboard/nctrl_keyboard.h"

#include "core/form/panel.h"
#include "custom/keyboard/key_logic.h"
#include "custom/keyboard/send_keys.h"

namespace korvane {
namespace {

KeyPad::Place placeIn(const QString& frame) {
  KeyPad::Place place{frame, u"ekey"_s, u"evariant"_s, u"ebubble"_s, u"ekeyTimer"_s};
  place.enterGoesOn = true;
  place.hide = u"BtnEnh1"_s;
  return place;
}

bool canType(const Control* control) {
  const auto* box = dynamic_cast<const TextBox*>(control);
  if (!box || !box->enabled()) return false;
  for (const Control* each = box; each; each = each->container)
    if (!each->visible()) return false;
  return true;
}

}  // namespace

NctrlKeyboard::NctrlKeyboard(Form& parent, const QString& name, FormHost& host,
                             const Palette& palette)
    : parent_(parent),
      host_(host),
      frame_(controlOf<Frame>(parent, name)),
      pad_(parent, palette, placeIn(name), *this) {
  setLayout(usKeyboard());
  parent.on(u"BtnEnh1", Event::Click, [this](Control&, const Event&) { hide(); });
}

void NctrlKeyboard::showFor(Control& target) {
  target_ = &target;
  capsLock_ = shiftOnce_ = false;
  pad_.open();
  frame_.visible = true;
  parent_.setFocus(target_);
  if (shownChanged) shownChanged(true);
}

void NctrlKeyboard::hide() {
  if (!shown()) return;
  pad_.close();
  target_ = nullptr;
  frame_.visible = false;
  if (shownChanged) shownChanged(false);
}

bool NctrlKeyboard::focusTarget() {
  if (canType(parent_.focus())) target_ = parent_.focus();
  if (!target_) return false;
  parent_.setFocus(target_);
  return true;
}

void NctrlKeyboard::keyPressed(int code) {
  const Key* key = pad_.layout().key(code);
  if (!key || !focusTarget()) return;
  if (const QString named = namedKey(code); !named.isEmpty()) return SendKeys(named);
  switch (code) {
    case scan::Shift:
      shiftOnce_ = true;
      break;
    case scan::CapsLock:
      capsLock_ = !capsLock_;
      break;
    case scan::Clear:
      if (auto* box = dynamic_cast<TextBox*>(target_)) {
        box->text = QString();
        box->selStart = 0;
        parent_.fire(*box, {Event::Change});
      }
      break;
    default:
      return type(typed(*key, capsLock_ || shiftOnce_));
  }
  pad_.showShifts(capsLock_, shiftOnce_);
}

void NctrlKeyboard::variantPicked(const QString& character) {
  if (focusTarget()) type(capsLock_ || shiftOnce_ ? character.toUpper() : character);
}

void NctrlKeyboard::type(const QString& character) {
  if (character.isEmpty()) return;
  shiftOnce_ = false;
  pad_.showShifts(capsLock_, shiftOnce_);
  SendKeys(braced(character));
}

// What cannot take a key leaves it.
void NctrlKeyboard::SendKeys(const QString& keys) {
  for (const KeyStroke& stroke : keyStrokes(keys).value_or(std::vector<KeyStroke>()))
    if (!host_.sendKey(parent_, stroke.key, stroke.text)) return;
}

}  // namespace korvane

#include "custom/keyboard_form.h"

#include "core/form/binder.h"

namespace korvane {
namespace {

constexpr int kFirstRepeat = 400, kNextRepeat = 60;  // ms
constexpr int kVariants = 8;
constexpr int kIndexBelowCode = 2;  // KEY(index) is scan code index + 2

constexpr InventoryRow kKeyboard[] = {
    {"framKeyBoard", -1, Kind::Frame, {0, 0, 1280, 768}, Left | Top, ""},
    {"lblMsg", -1, Kind::Label, {32, 20, 1216, 60}, Left | Top, "Prompt"},
    {"txtInput", -1, Kind::Text, {16, 92, 1040, 84}, Left | Top, "Text"},
    {"cmdCancel", -1, Kind::Button, {1072, 92, 192, 84}, Left | Top, "Cancel"},
    {"RepeatTimer", -1, Kind::Timer, {0, 0, 0, 0}, Left | Top, ""},
};

std::vector<InventoryRow> inventory() {
  std::vector<InventoryRow> rows(std::begin(kKeyboard), std::end(kKeyboard));
  for (const Key& key : usKeyboard().keys)
    rows.push_back({"KEY", key.code - kIndexBelowCode, Kind::Button, key.rect, Left | Top, ""});
  for (int i = 0; i < kVariants; ++i)
    rows.push_back({"VARIANT", i, Kind::Button, {}, Left | Top, "", "", false});
  return rows;
}

// Where the variants of a key stand: in a row above it, below it for the keys next to the text.
Rect variantPlace(const Rect& key, int index, int count) {
  constexpr int kWidth = 84, kGap = 8, kRight = 1264, kTextBottom = 190;
  const int whole = count * (kWidth + kGap) - kGap;
  const int left = std::clamp(key.left + key.width / 2 - whole / 2, 16, kRight - whole);
  const int above = key.top - key.height - kGap;
  return {left + index * (kWidth + kGap), above > kTextBottom ? above : key.bottom() + kGap, kWidth,
          key.height};
}

}  // namespace

KeyboardForm::Panel::Panel(Form& form) {
  Binder bind(form, "keyboard");
  bind(framKeyBoard, "framKeyBoard");
  bind(lblMsg, "lblMsg");
  bind(txtInput, "txtInput");
  bind(cmdCancel, "cmdCancel");
  bind(RepeatTimer, "RepeatTimer");
}

KeyboardForm::KeyboardForm(FormHost& host, const Palette& palette)
    : host_(host), palette_(palette), form_(u"frmKeyboard"_s, inventory()), panel_(form_) {
  panel_.cmdCancel->caption = u"Cancel"_s;
  panel_.lblMsg->fontUnits = 36;
  setLayout(layout_);
  form_.on(u"KEY", Event::Press, [this](Control& key, const Event&) { KEY_Press(key.index); });
  form_.on(u"KEY", Event::Release,
           [this](Control&, const Event&) { panel_.RepeatTimer->enabled = false; });
  form_.on(u"KEY", Event::Click, [this](Control& key, const Event&) { KEY_Click(key.index); });
  form_.on(u"VARIANT", Event::Click,
           [this](Control& variant, const Event&) { VARIANT_Click(variant.index); });
  form_.on(u"RepeatTimer", Event::Tick, [this](Control&, const Event&) { RepeatTimer_Timer(); });
  form_.on(u"cmdCancel", Event::Click, [this](Control&, const Event&) { cmdcancel_Click(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) { Form_KeyDown(event.key); });
  form_.on(Event::KeyPress, [this](Control&, const Event& event) { Form_KeyPress(event.text); });
}

void KeyboardForm::setLayout(const KeyboardLayout& layout) {
  layout_ = layout;
  for (const Key& key : layout_.keys)
    form_.find(u"KEY", key.code - kIndexBelowCode)->spokenName = key.spoken;
}

void KeyboardForm::ask(QString& text, bool password) {
  const QString prompt = std::exchange(text, QString());
  if (form_.shown()) return;
  state_ = KeyState();
  cancelled_ = true;
  panel_.lblMsg->caption = prompt;
  panel_.txtInput->passwordChar = password ? u"*"_s : QString();
  panel_.txtInput->text = QString();
  panel_.txtInput->selStart = 0;
  applyColours();
  showKeys();
  form_.setFocus(panel_.txtInput);
  host_.showModal(form_);
  panel_.RepeatTimer->enabled = false;
  hideVariants();
  if (!cancelled_) text = panel_.txtInput->text();
  panel_.txtInput->text = QString();  // a password does not stay behind
}

void KeyboardForm::KEY_Press(int index) {
  heldCode_ = index + kIndexBelowCode;
  repeated_ = false;
  hideVariants();
  const Key* key = layout_.key(heldCode_);
  if (!repeats(heldCode_) && (!key || key->variants.isEmpty())) return;
  panel_.RepeatTimer->interval = kFirstRepeat;
  panel_.RepeatTimer->enabled = true;
}

void KeyboardForm::RepeatTimer_Timer() {
  repeated_ = true;
  const Key* key = layout_.key(heldCode_);
  if (key && !key->variants.isEmpty()) {
    panel_.RepeatTimer->enabled = false;
    showVariants(*key);
    return;
  }
  panel_.RepeatTimer->interval = kNextRepeat;
  press(heldCode_);
}

void KeyboardForm::showVariants(const Key& key) {
  const int count = std::min(kVariants, static_cast<int>(key.variants.size()));
  for (int i = 0; i < count; ++i) {
    auto* button = dynamic_cast<Button*>(form_.find(u"VARIANT", i));
    button->rect = variantPlace(key.rect, i, count);
    button->caption = state_.shifted() ? key.variants[i].toUpper() : key.variants[i];
    button->spokenName = key.variants[i];
    button->fontUnits = 40;
    button->colours = palette_.button(u"Accent");
    button->visible = true;
  }
}

void KeyboardForm::hideVariants() {
  for (int i = 0; i < kVariants; ++i) form_.find(u"VARIANT", i)->visible = false;
}

void KeyboardForm::VARIANT_Click(int index) {
  const Key* key = layout_.key(heldCode_);
  if (!key || index >= key->variants.size()) return;
  state_.text = panel_.txtInput->text();
  state_.selStart = panel_.txtInput->selStart();
  take(typeCharacter(key->variants[index], state_));
  hideVariants();
}

void KeyboardForm::KEY_Click(int index) {
  const int code = index + kIndexBelowCode;
  if (std::exchange(repeated_, false) && code == heldCode_) return;
  press(code);
}

// The keys of a hardware keyboard that the text field itself has not taken.
void KeyboardForm::Form_KeyDown(int keyCode) {
  constexpr int kEscape = 27;
  constexpr std::pair<int, int> codes[] = {
      {13, scan::Enter}, {8, scan::Backspace}, {46, scan::Delete}, {36, scan::Home},
      {35, scan::End},   {37, scan::Left},     {39, scan::Right}};
  if (keyCode == kEscape) return cmdcancel_Click();
  for (const auto& [key, code] : codes)
    if (key == keyCode) return press(code);
}

void KeyboardForm::Form_KeyPress(const QString& text) {
  if (text.isEmpty() || !text.front().isPrint()) return;
  KeyState state{panel_.txtInput->text(), panel_.txtInput->selStart()};
  state.selStart = std::clamp(state.selStart, 0, static_cast<int>(state.text.size()));
  panel_.txtInput->text = state.text.insert(state.selStart, text);
  panel_.txtInput->selStart = state.selStart + static_cast<int>(text.size());
}

void KeyboardForm::cmdcancel_Click() {
  cancelled_ = true;
  host_.hide(form_);
}

void KeyboardForm::press(int code) {
  state_.text = panel_.txtInput->text();  // a hardware keyboard may have typed
  state_.selStart = panel_.txtInput->selStart();
  const auto [state, accepted] = pressKey(layout_, code, state_);
  take(state);
  if (!accepted) return;
  cancelled_ = false;
  host_.hide(form_);
}

void KeyboardForm::take(const KeyState& state) {
  const bool sameFaces = state_.capsLock == state.capsLock && state_.shiftOnce == state.shiftOnce;
  state_ = state;
  panel_.txtInput->text = state.text;
  panel_.txtInput->selStart = state.selStart;
  if (!sameFaces) showKeys();
  form_.setFocus(panel_.txtInput);
}

void KeyboardForm::showKeys() {
  const Colours plain = palette_.button(u"Button"), marked = palette_.button(u"Accent");
  for (const Key& key : layout_.keys) {
    auto* button = dynamic_cast<Button*>(form_.find(u"KEY", key.code - kIndexBelowCode));
    button->caption = key.face.isEmpty() ? typed(key, state_.shifted()) : key.face;
    button->fontUnits = key.face.size() > 1 ? 30 : 40;
    const bool on = (key.code == scan::Shift && state_.shiftOnce) ||
                    (key.code == scan::CapsLock && state_.capsLock) || key.code == scan::Enter;
    button->colours = on ? marked : plain;
  }
  form_.find(u"KEY", scan::CapsLock - kIndexBelowCode)
      ->setPicture(u"keyboard"_s, state_.capsLock ? u"capslockon"_s : u"capslockoff"_s);
}

void KeyboardForm::applyColours() {
  const Colours ground = palette_.button(u"Keyboard");
  form_.colours = ground;
  panel_.framKeyBoard->colours = ground;
  Colours ink;
  ink.fore = ground.fore;
  panel_.lblMsg->colours = ink;
  panel_.txtInput->colours = palette_.button(u"Surface");
  panel_.cmdCancel->colours = palette_.button(u"Button");
}

}  // namespace korvane

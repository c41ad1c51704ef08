#include "custom/keyboard_form.h"

#include "core/form/binder.h"

namespace korvane {
namespace {

constexpr int kFirstRepeat = 400, kNextRepeat = 60;  // ms
constexpr int kIndexBelowCode = 2;                   // KEY(index) is scan code index + 2

constexpr InventoryRow kKeyboard[] = {
    {"framKeyBoard", -1, Kind::Frame, {0, 0, 1280, 768}, Left | Top, ""},
    {"lblMsg", -1, Kind::Label, {32, 20, 1216, 60}, Left | Top, "Prompt"},
    {"txtInput", -1, Kind::Text, {16, 92, 1040, 84}, Left | Top, "Text"},
    {"cmdCancel", -1, Kind::Button, {1072, 92, 192, 84}, Left | Top, "Cancel"},
    {"RepeatTimer", -1, Kind::Timer, {0, 0, 0, 0}, Left | Top, ""},
};

std::vector<InventoryRow> inventory(const KeyboardLayout& layout) {
  std::vector<InventoryRow> rows(std::begin(kKeyboard), std::end(kKeyboard));
  for (const Key& key : layout.keys)
    rows.push_back({"KEY", key.code - kIndexBelowCode, Kind::Button, key.rect, Left | Top, ""});
  return rows;
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

KeyboardForm::KeyboardForm(FormHost& host, const Palette& palette, const KeyboardLayout& layout)
    : host_(host),
      palette_(palette),
      layout_(layout),
      form_(u"frmKeyboard"_s, inventory(layout)),
      panel_(form_) {
  panel_.cmdCancel->caption = u"Cancel"_s;
  panel_.lblMsg->fontUnits = 36;
  for (const Key& key : layout_.keys)
    form_.find(u"KEY", key.code - kIndexBelowCode)->spokenName = key.spoken;

  form_.on(u"KEY", Event::Press, [this](Control& key, const Event&) { KEY_Press(key.index); });
  form_.on(u"KEY", Event::Release,
           [this](Control&, const Event&) { panel_.RepeatTimer->enabled = false; });
  form_.on(u"KEY", Event::Click, [this](Control& key, const Event&) { KEY_Click(key.index); });
  form_.on(u"RepeatTimer", Event::Tick, [this](Control&, const Event&) { RepeatTimer_Timer(); });
  form_.on(u"cmdCancel", Event::Click, [this](Control&, const Event&) { cmdcancel_Click(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) { Form_KeyDown(event.key); });
  form_.on(Event::KeyPress, [this](Control&, const Event& event) { Form_KeyPress(event.text); });
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
  if (!cancelled_) text = panel_.txtInput->text();
  panel_.txtInput->text = QString();  // a password does not stay behind
}

void KeyboardForm::KEY_Press(int index) {
  heldCode_ = index + kIndexBelowCode;
  repeated_ = false;
  if (!repeats(heldCode_)) return;
  panel_.RepeatTimer->interval = kFirstRepeat;
  panel_.RepeatTimer->enabled = true;
}

void KeyboardForm::RepeatTimer_Timer() {
  repeated_ = true;
  panel_.RepeatTimer->interval = kNextRepeat;
  press(heldCode_);
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
  const bool shifted = state_.shifted(), capsLock = state_.capsLock, shiftOnce = state_.shiftOnce;
  const auto [state, accepted] = pressKey(layout_, code, state_);
  state_ = state;
  panel_.txtInput->text = state.text;
  panel_.txtInput->selStart = state.selStart;
  if (shifted != state.shifted() || capsLock != state.capsLock || shiftOnce != state.shiftOnce)
    showKeys();
  form_.setFocus(panel_.txtInput);
  if (!accepted) return;
  cancelled_ = false;
  host_.hide(form_);
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

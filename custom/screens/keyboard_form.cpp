#include "custom/screens/keyboard_form.h"

namespace korvane {
namespace {

constexpr int kTop = 184;  // form units above the keys
constexpr int kIndexBelowCode = 2;
constexpr int kBareHeight = 360, kScreen = 768, kGap = 8;

constexpr InventoryRow kKeyboard[] = {
    {"framKeyBoard", -1, Kind::Frame, {0, 0, 1280, 768}, Left | Top | Right | Bottom, ""},
    {"lblMsg",
     -1,
     Kind::Label,
     {32, 20, 1216, 60},
     Left | Top | Right,
     "Prompt",
     "",
     true,
     {.text = 36}},
    {"txtInput", -1, Kind::Text, {16, 92, 1040, 84}, Left | Top | Right, "Text"},
    {"cmdCancel",
     -1,
     Kind::Button,
     {1072, 92, 192, 84},
     Right | Top,
     "Cancel",
     "",
     true,
     {.caption = "Cancel"}},
    {"KEY", 0, Kind::Button, {}, Left | Top, "", "framKeyBoard", false},
    {"BUBBLE", 0, Kind::Frame, {}, Left | Top, "", "framKeyBoard", false},
    {"VARIANT", 0, Kind::Button, {}, Left | Top, "", "framKeyBoard", false},
    {"RepeatTimer", -1, Kind::Timer, {}, Left | Top, ""},
};

constexpr InventoryRow kBare[] = {
    {"framKeyBoard",
     -1,
     Kind::Frame,
     {0, 0, 1280, kBareHeight},
     Left | Top | Right | Bottom,
     "Keyboard"},
    {"KEY", 0, Kind::Button, {}, Left | Top, "", "framKeyBoard", false},
    {"BUBBLE", 0, Kind::Frame, {}, Left | Top, "", "framKeyBoard", false},
    {"VARIANT", 0, Kind::Button, {}, Left | Top, "", "framKeyBoard", false},
    {"RepeatTimer", -1, Kind::Timer, {}, Left | Top, ""},
};

KeyPad::Place barePlace() {
  KeyPad::Place keys{u"framKeyBoard"_s, u"KEY"_s, u"VARIANT"_s, u"BUBBLE"_s, u"RepeatTimer"_s};
  keys.indexBelowCode = kIndexBelowCode;
  keys.margin = 12;
  return keys;
}

KeyPad::Place place() {
  KeyPad::Place keys{u"framKeyBoard"_s, u"KEY"_s, u"VARIANT"_s, u"BUBBLE"_s, u"RepeatTimer"_s};
  keys.indexBelowCode = kIndexBelowCode;
  keys.top = kTop;
  keys.margin = 16;
  keys.gap = 8;
  keys.fontUnits = 40;
  keys.enterGoesOn = true;
  return keys;
}

// The bare keyboard stands at the lower edge, or right above a box that it would cover there.
int liftFor(const TextBox& target) {
  const Form& form = target.form;
  const int screen = std::max(form.height(), kScreen);
  int top = (screen - form.height()) / 2;  // smaller forms stand in the middle
  for (const Control* at = &target; at; at = at->container) top += at->rect().top;
  const bool covered = top + target.rect().height > screen - kBareHeight;
  return covered ? std::max(0, screen - top + kGap) : 0;
}

}  // namespace

KeyboardForm::KeyboardForm(FormHost& host, const Palette& palette)
    : host_(host),
      palette_(palette),
      form_(u"frmKeyboard"_s, kKeyboard),
      panel_(form_),
      keys_(form_, palette, place()),
      bare_(u"frmKeyboard"_s, kBare, {0, 0, 1280, kBareHeight}, FormRole::Floating),
      bareKeys_(bare_, palette, barePlace()) {
  setLayout(usKeyboard());
  keys_.accepted = [this] { accept(); };
  bare_.observe(this);
  bareKeys_.hideAsked = [this] { host_.hide(bare_); };
  bare_.on(u"framKeyBoard", Event::Press, [this](Control&, const Event&) { heldAt_.reset(); });
  bare_.on(u"framKeyBoard", Event::Move,
           [this](Control&, const Event& event) { framKeyBoard_Move(event.y); });
  form_.on(u"cmdCancel", Event::Click, [this](Control&, const Event&) { cmdcancel_Click(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) { Form_KeyDown(event.key); });
  form_.on(Event::KeyPress, [this](Control&, const Event& event) { Form_KeyPress(event.text); });
}

KeyboardForm::~KeyboardForm() {
  bare_.forget(this);
}

void KeyboardForm::setLayout(const KeyboardLayout& layout) {
  keys_.setLayout(layout);
  bareKeys_.setLayout(controlKeyboard(layout));
}

void KeyboardForm::typeInto(TextBox& target) {
  bare_.colours = palette_.button(u"Keyboard");
  bareKeys_.open(target);
  bare_.lift = liftFor(target);
  host_.show(bare_);
}

void KeyboardForm::formChanged(Form& form, Aspect aspect) {
  if (aspect == Aspect::Shown && !form.shown()) bareKeys_.close();
}

// The frame comes along with the finger, so each move counts from where the finger took it.
void KeyboardForm::framKeyBoard_Move(int y) {
  if (!heldAt_) heldAt_ = y;
  bare_.lift = std::max(0, bare_.lift() - (y - *heldAt_));
}

void KeyboardForm::ask(QString& text, bool password) {
  const QString prompt = std::exchange(text, QString());
  if (form_.shown()) return;
  host_.hide(bare_);
  cancelled_ = true;
  panel_.lblMsg->caption = prompt;
  panel_.txtInput->passwordChar = password ? u"*"_s : QString();
  panel_.txtInput->text = QString();
  panel_.txtInput->selStart = 0;
  keys_.open(*panel_.txtInput);
  applyColours();
  form_.setFocus(panel_.txtInput);
  host_.showModal(form_);
  keys_.close();
  if (!cancelled_) text = panel_.txtInput->text();
  panel_.txtInput->text = QString();  // a password does not stay behind
}

// The keys of a hardware keyboard that the text field itself has not taken.
void KeyboardForm::Form_KeyDown(int keyCode) {
  constexpr int kEscape = 27;
  constexpr std::pair<int, int> codes[] = {
      {13, scan::Enter}, {8, scan::Backspace}, {46, scan::Delete}, {36, scan::Home},
      {35, scan::End},   {37, scan::Left},     {39, scan::Right}};
  if (keyCode == kEscape) return cmdcancel_Click();
  for (const auto& [key, code] : codes)
    if (key == keyCode) return keys_.press(code);
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

void KeyboardForm::accept() {
  cancelled_ = false;
  host_.hide(form_);
}

void KeyboardForm::applyColours() {
  const Colours ground = palette_.button(u"Keyboard");
  form_.colours = ground;
  Colours ink;
  ink.fore = ground.fore;
  panel_.lblMsg->colours = ink;
  panel_.txtInput->colours = palette_.button(u"Surface");
  panel_.cmdCancel->colours = palette_.button(u"Button");
}

}  // namespace korvane

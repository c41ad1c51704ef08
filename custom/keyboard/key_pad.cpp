#include "custom/keyboard/key_pad.h"

#include "core/form/panel.h"
#include "custom/keyboard/key_logic.h"

namespace korvane {
namespace {

constexpr int kFirstRepeat = 400, kNextRepeat = 60;  // ms
constexpr int kMostVariants = 8, kVariantWidth = 84, kVariantGap = 6, kBubbleMargin = 4;
constexpr double kWordShare = 0.72;  // of the font of a single character

}  // namespace

KeyPad::KeyPad(Form& form, const Palette& palette, Place place, KeyPadOwner& owner)
    : form_(form),
      palette_(palette),
      place_(std::move(place)),
      owner_(owner),
      frame_(&controlOf<Frame>(form, place_.frame)),
      timer_(&controlOf<Timer>(form, place_.timer)) {
  const auto onKey = [this](Event::Type type, auto handler) {
    form_.on(place_.keys, type, [this, handler](Control& key, const Event& event) {
      handler(key.index + place_.indexBelowCode, event);
    });
  };
  onKey(Event::Press, [this](int code, const Event&) { KEY_Press(code); });
  onKey(Event::Move, [this](int, const Event& event) { KEY_Move(event.x, event.y); });
  onKey(Event::Release, [this](int, const Event&) { KEY_Release(); });
  onKey(Event::Click, [this](int code, const Event&) { KEY_Click(code); });
  form_.on(place_.variants, Event::Click,
           [this](Control& variant, const Event&) { pick(variant.index); });
  form_.on(place_.timer, Event::Tick, [this](Control&, const Event&) { Timer_Tick(); });
  form_.observe(this);
}

KeyPad::~KeyPad() {
  form_.forget(this);
}

void KeyPad::controlChanged(Control& control, Aspect aspect) {
  if (&control == frame_ && aspect == Aspect::Rect && made_) layOut();
}

Button& KeyPad::keyOf(const Key& key) {
  if (key.code == scan::Hide && !place_.hide.isEmpty())
    return static_cast<Button&>(*form_.find(place_.hide));
  return static_cast<Button&>(*form_.load(place_.keys, key.code - place_.indexBelowCode));
}

void KeyPad::setLayout(KeyboardLayout layout) {
  layout_ = std::move(layout);
  if (made_) showFaces();
}

void KeyPad::makeKeys() {
  if (std::exchange(made_, true)) return;
  for (const Key& key : layout_.keys) {
    keyOf(key).fontUnits =
        static_cast<int>(place_.fontUnits * (key.face.size() > 1 ? kWordShare : 1));
    keyOf(key).visible = true;
  }
  form_.load(place_.bubble, 1);
  for (int i = 1; i <= kMostVariants; ++i) {
    auto& variant = static_cast<Button&>(*form_.load(place_.variants, i));
    variant.fontUnits = place_.fontUnits;
  }
}

void KeyPad::layOut() {
  const int side = place_.margin, width = frame_->rect().width, height = frame_->rect().height;
  const Rect area{side, place_.top + side, width - 2 * side, height - place_.top - 2 * side};
  for (const Key& key : layout_.keys) keyOf(key).rect = keyPlace(key, area, place_.gap);
}

void KeyPad::open() {
  makeKeys();
  layOut();
  close();
  capsLock_ = shiftOnce_ = false;
  frame_->colours = palette_.button(u"Keyboard");
  showFaces();
}

void KeyPad::close() {
  timer_->enabled = false;
  repeated_ = false;
  hideBubble();
}

void KeyPad::showShifts(bool capsLock, bool shiftOnce) {
  if (capsLock_ == capsLock && shiftOnce_ == shiftOnce) return;
  capsLock_ = capsLock;
  shiftOnce_ = shiftOnce;
  showFaces();
}

bool KeyPad::on(const Key& key) const {
  return (key.code == scan::Shift && shiftOnce_) || (key.code == scan::CapsLock && capsLock_) ||
         (key.code == scan::Enter && place_.enterGoesOn);
}

void KeyPad::showFaces() {
  const Colours plain = palette_.button(u"Button"), marked = palette_.button(u"Accent");
  for (const Key& key : layout_.keys) {
    Button& button = keyOf(key);
    button.caption = key.face.isEmpty() ? typed(key, capsLock_ || shiftOnce_) : key.face;
    button.spokenName = key.spoken;
    button.colours = on(key) ? marked : plain;
    if (key.code == scan::CapsLock)
      button.setPicture(u"root"_s, capsLock_ ? u"capslockon"_s : u"capslockoff"_s);
  }
}

void KeyPad::KEY_Press(int code) {
  held_ = code;
  repeated_ = false;
  hideBubble();
  const Key* key = layout_.key(code);
  if (!repeats(code) && (!key || key->variants.isEmpty())) return;
  timer_->interval = kFirstRepeat;
  timer_->enabled = true;
}

void KeyPad::Timer_Tick() {
  repeated_ = true;
  const Key* key = layout_.key(held_);
  if (key && !key->variants.isEmpty()) {
    timer_->enabled = false;
    showBubble(*key);
    return;
  }
  timer_->interval = kNextRepeat;
  owner_.keyPressed(held_);
}

void KeyPad::KEY_Move(int x, int y) {
  const Key* key = layout_.key(held_);
  if (!key) return;
  const Rect at = keyOf(*key).rect();
  if (variants_ == 0) {
    const bool within = x >= 0 && y >= 0 && x < at.width && y < at.height;
    if (!within) timer_->enabled = false;  // what it has slid off is held no more
    return;
  }
  mark(variantAt(at.left + x, at.top + y));
}

void KeyPad::KEY_Release() {
  timer_->enabled = false;
  if (marked_ > 0) pick(marked_);
}

void KeyPad::KEY_Click(int code) {
  if (std::exchange(repeated_, false) && code == held_) return;
  owner_.keyPressed(code);
}

// In a row above the key, below it for the keys at the top of the frame.
void KeyPad::showBubble(const Key& key) {
  variants_ = std::min(kMostVariants, static_cast<int>(key.variants.size()));
  const Rect at = keyOf(key).rect();
  const int height = at.height + 2 * kBubbleMargin;
  const int width = variants_ * (kVariantWidth + kVariantGap) - kVariantGap + 2 * kBubbleMargin;
  const int most = frame_->rect().width - place_.margin - width;
  const int left = std::clamp(at.left + at.width / 2 - width / 2, place_.margin, most);
  const int above = at.top - height;
  const int top = above >= place_.top ? above : at.bottom();
  Control& bubble = *form_.find(place_.bubble, 1);
  bubble.rect = Rect{left, top, width, height};
  bubble.colours = palette_.button(u"Accent");
  bubble.visible = true;
  for (int i = 1; i <= variants_; ++i) {
    Control& variant = *form_.find(place_.variants, i);
    variant.rect = Rect{left + kBubbleMargin + (i - 1) * (kVariantWidth + kVariantGap),
                        top + kBubbleMargin, kVariantWidth, at.height};
    const QString& character = key.variants[i - 1];
    variant.caption = capsLock_ || shiftOnce_ ? character.toUpper() : character;
    variant.spokenName = character;
    variant.colours = palette_.button(u"Button");
    variant.visible = true;
  }
}

void KeyPad::hideBubble() {
  marked_ = 0;
  const int shown = std::exchange(variants_, 0);
  for (int i = 1; i <= shown; ++i) form_.find(place_.variants, i)->visible = false;
  if (Control* bubble = form_.find(place_.bubble, 1)) bubble->visible = false;
}

// A finger that covers the bubble's height and half a variant more is meant for the one above it.
int KeyPad::variantAt(int x, int y) const {
  const Rect bubble = form_.find(place_.bubble, 1)->rect();
  const int slack = kVariantWidth / 2;
  if (y < bubble.top - slack || y > bubble.bottom()) return 0;
  if (x < bubble.left - slack || x > bubble.right() + slack) return 0;
  const int nearest = (x - bubble.left - kBubbleMargin) / (kVariantWidth + kVariantGap) + 1;
  return std::clamp(nearest, 1, variants_);
}

void KeyPad::mark(int variant) {
  if (variant == marked_) return;
  if (marked_ > 0) form_.find(place_.variants, marked_)->colours = palette_.button(u"Button");
  if (variant > 0) form_.find(place_.variants, variant)->colours = palette_.button(u"Accent");
  marked_ = variant;
}

void KeyPad::pick(int variant) {
  const Key* key = layout_.key(held_);
  hideBubble();
  if (key && variant >= 1 && variant <= key->variants.size())
    owner_.variantPicked(key->variants[variant - 1]);
}

}  // namespace korvane

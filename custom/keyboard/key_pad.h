// The keys of one on-screen keyboard in a frame of a form: where they lie, what stands on them,
// what a held key does and the bubble of variants. Where a key's character goes is the owner's
// part.
//
// The form's inventory has, in the frame, a hidden member 0 of the buttons KEY (or another name),
// of the buttons VARIANT and of the frames BUBBLE, and a timer; the others are made when first
// shown.
#pragma once

#include "core/form/form.h"
#include "core/palette.h"
#include "custom/keyboard/keyboard_layout.h"

namespace korvane {

// Who hears what the finger has done.
class KeyPadOwner {
 public:
  virtual ~KeyPadOwner() = default;
  virtual void keyPressed(int code) = 0;  // a scan code of the layout; again while it is held
  virtual void variantPicked(const QString& character) = 0;  // of the bubble
};

class KeyPad : private FormObserver {
 public:
  struct Place {
    QString frame, keys, variants, bubble, timer;  // names of the controls
    int indexBelowCode = 0;                        // a key's index is its scan code less this
    int top = 0;                                   // of the keys, in the frame
    int margin = 8, gap = 4;                       // form units
    int fontUnits = 34;
    bool enterGoesOn = false;  // so it looks like it
    QString hide{};            // a button of its own for Hide; else it is one of the keys
  };

  // The form, the palette and the owner must outlive the pad.
  KeyPad(Form& form, const Palette& palette, Place place, KeyPadOwner& owner);
  ~KeyPad() override;

  void setLayout(KeyboardLayout layout);  // of the same keys; they show it at once
  const KeyboardLayout& layout() const { return layout_; }

  void open();                                     // no key held, neither shift nor caps lock
  void close();                                    // lets go of a held key
  void showShifts(bool capsLock, bool shiftOnce);  // on the faces of all keys

 private:
  void controlChanged(Control& control, Aspect aspect) override;
  void formChanged(Form&, Aspect) override {}

  Button& keyOf(const Key& key);
  void makeKeys();
  void layOut();
  void showFaces();
  bool on(const Key& key) const;

  void KEY_Press(int code);
  void KEY_Move(int x, int y);
  void KEY_Release();
  void KEY_Click(int code);
  void Timer_Tick();

  void showBubble(const Key& key);
  void hideBubble();
  void mark(int variant);
  int variantAt(int x, int y) const;  // 0 for none
  void pick(int variant);

  Form& form_;
  const Palette& palette_;
  Place place_;
  KeyPadOwner& owner_;
  Frame* frame_;
  Timer* timer_;
  KeyboardLayout layout_;
  bool made_ = false, capsLock_ = false, shiftOnce_ = false;
  int held_ = 0;           // the code of the key under the finger
  bool repeated_ = false;  // it has acted while held, so its release is no press
  int variants_ = 0;       // in the bubble, numbered from 1
  int marked_ = 0;         // the one that the finger has slid to
};

}  // namespace korvane

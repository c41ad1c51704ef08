#include "custom/buttons/button_editor.h"

namespace korvane {
namespace {

constexpr int kLeastSize = 72;  // a finger's
constexpr double kLeastFont = 6, kLargestFont = 60;
constexpr Rect kPage{148, 8, 1108, 752};  // where new buttons are put, on the design surface
constexpr int kStep = 20, kGap = 16;

bool meet(const Rect& a, const Rect& b) {
  return a.left < b.right() + kGap && b.left < a.right() + kGap && a.top < b.bottom() + kGap &&
         b.top < a.bottom() + kGap;
}

}  // namespace

ButtonEditor::ButtonEditor(Form& form, Uses uses) : form_(form), uses_(uses), panel_(form) {
  panel_.frameButtons->draggable = true;
}

void ButtonEditor::open() {
  typedInto_ = panel_.txtButtonWide;
  editing(true);
  uses_.buttons.button(0).caption = u"Pattern"_s;
  for (int i = 0; i <= uses_.buttons.count(); ++i) {
    Button& each = uses_.buttons.button(i);
    each.draggable = true;
    each.visible = true;
  }
  panel_.frameButtons->visible = true;
  cmdbutton_MouseDown(0);
}

void ButtonEditor::close() {
  panel_.frameButtons->visible = false;
  showKeyboard(nullptr);
  for (int i = 0; i <= form_.upperBound(u"cmdbutton"); ++i) {
    Button& each = uses_.buttons.button(i);
    each.draggable = false;
    each.marked = false;
  }
  uses_.buttons.button(0).caption = QString();
  uses_.buttons.loadCustomButtons();
  uses_.buttons.show();
  editing(false);
}

void ButtonEditor::choose(int index) {
  for (int i = 0; i <= uses_.buttons.count(); ++i) uses_.buttons.button(i).marked = i == index;
  chosen_ = index;
  const Button& button = chosen();
  panel_.txtButtonWide->text = QString::number(button.design.width);
  panel_.txtButtonHigh->text = QString::number(button.design.height);
  panel_.txtButtonFontSize->text = QString::number(uses_.buttons.fontSize(button));
}

void ButtonEditor::cmdbutton_MouseDown(int index) {
  if (isOpen()) choose(index);
}

void ButtonEditor::cmdbutton_MouseUp(int index) {
  if (isOpen()) choose(index);
}

// Drawn afresh at the place it was dragged to.
void ButtonEditor::frameButtons_MouseUp() {
  panel_.frameButtons->visible = false;
  panel_.frameButtons->visible = true;
}

// The first place on the page, row by row, where the new button meets no other.
Rect ButtonEditor::freePlace() const {
  const Rect size = uses_.buttons.button(0).design;
  Rect place{0, 0, std::min(size.width, kPage.width), std::min(size.height, kPage.height)};
  const auto taken = [&] {
    for (int i = 0; i <= uses_.buttons.count(); ++i)
      if (const Button& other = uses_.buttons.button(i);
          other.visible() && meet(place, other.design))
        return true;
    return (panel_.frameHome->visible() && meet(place, panel_.frameHome->design)) ||
           meet(place, panel_.frameButtons->rect());
  };
  for (place.top = kPage.top; place.bottom() <= kPage.bottom(); place.top += kStep)
    for (place.left = kPage.left; place.right() <= kPage.right(); place.left += kStep)
      if (!taken()) return place;
  // No room: below the tools, each a little aside of the one before, though it covers others.
  const int shift = kStep * (uses_.buttons.count() % 10);
  place.left = std::min(kPage.left + 2 * shift, kPage.right() - place.width);
  place.top =
      std::min(panel_.frameButtons->rect().bottom() + kGap + shift, kPage.bottom() - place.height);
  return place;
}

void ButtonEditor::cmdButtonAdd_Click() {
  Button* made = uses_.buttons.add(freePlace());
  if (!made) {
    uses_.messages.say(
        u"There are %1 buttons already. Delete one first."_s.arg(uses_.buttons.count()));
    return;
  }
  made->caption = u"New button"_s;
  made->draggable = true;
  made->visible = true;
  choose(made->index);
}

bool ButtonEditor::chosenIsPattern() {
  if (chosen_ != 0) return false;
  uses_.messages.say(
      u"This is the pattern that new buttons are made like. Press Add for a new button, or press "
      "the button that you want to change."_s);
  return true;
}

void ButtonEditor::cmdButtonLabel_Click() {
  if (chosenIsPattern()) return;
  const QString label = uses_.messages.ask(u"Enter Button Label"_s);
  if (label.isEmpty()) return;
  if (!fitsButtonFile(label) || label.size() > ButtonFile::kLongestCaption) {
    uses_.messages.say(
        u"A label has at most %1 characters and cannot hold @@#, which divides the "
        "fields of the file of buttons."_s.arg(ButtonFile::kLongestCaption));
    return;
  }
  chosen().caption = label;
}

void ButtonEditor::cmdButtonAction_Click() {
  if (chosenIsPattern()) return;
  const std::optional<QString> action = chooseAction();
  if (!action || action->isEmpty()) return;
  if (!fitsButtonFile(*action) || action->size() > ButtonFile::kLongestAction) {
    uses_.messages.say(
        u"A program with @@# in its name cannot be kept, because @@# divides the fields of the "
        "file of buttons."_s);
    return;
  }
  uses_.buttons.setAction(chosen(), *action);
}

void ButtonEditor::cmdButtonApplyAttr_Click() {
  const QString wide = panel_.txtButtonWide->text(), high = panel_.txtButtonHigh->text(),
                size = panel_.txtButtonFontSize->text();
  const double width = val(wide), height = val(high), font = val(size);
  const bool good = isNumeric(wide) && isNumeric(high) && isNumeric(size) && width >= kLeastSize &&
                    width <= kPage.width && height >= kLeastSize && height <= kPage.height &&
                    font >= kLeastFont && font <= kLargestFont;
  if (!good) {
    uses_.messages.say(u"A button is %1 to %2 wide, %1 to %3 high, and its font size is %4 to %5."_s
                           .arg(kLeastSize)
                           .arg(kPage.width)
                           .arg(kPage.height)
                           .arg(kLeastFont)
                           .arg(kLargestFont));
    return;
  }
  Rect place = chosen().design;
  place.width = toInteger(width);
  place.height = toInteger(height);
  place.left = std::max(0, std::min(place.left, form_.design.width - place.width));
  place.top = std::max(0, std::min(place.top, form_.design.height - place.height));
  form_.moveDesign(chosen(), place);
  uses_.buttons.setFontSize(chosen(), static_cast<float>(font));
}

void ButtonEditor::txtButton_Click(TextBox& box) {
  typedInto_ = &box;
  form_.setFocus(&box);
  cmdButtonKeyboard_Click();
}

void ButtonEditor::cmdButtonKeyboard_Click() {
  showKeyboard(typedInto_);
}

void ButtonEditor::cmdButtonDel_Click() {
  if (chosen_ == 0) {
    uses_.messages.say(u"You cannot delete this button"_s);
    return;
  }
  chosen().tag = u"DELETE"_s;
  chosen().visible = false;
  choose(0);
}

void ButtonEditor::cmdButtonDone_Click() {
  QString error;
  if (uses_.buttons.save(&error)) return close();
  uses_.messages.say(error);
}

// What was not saved is gone: the buttons are those of the file again.
void ButtonEditor::cmdButtonCancel_Click() {
  close();
}

}  // namespace korvane

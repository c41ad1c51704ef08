#include "core/dialog.h"

#include "core/dressing.h"

namespace korvane {

Dialog::Dialog(const DialogUses& uses, QString name, std::span<const InventoryRow> rows,
               Rect design)
    : dialog_(uses), form_(std::move(name), rows, design) {
  form_.on(Event::KeyDown, [this](Control&, const Event& event) { Form_KeyDown(event.key); });
}

bool Dialog::run(const std::function<void()>& load) {
  if (form_.shown()) return false;
  dress(form_, dialog_.palette);
  load();
  dialog_.host.showModal(form_);
  return true;
}

void Dialog::leave() {
  dialog_.host.hide(form_);
}

void Dialog::onClick(QStringView control, std::function<void(int)> handler) {
  form_.on(control, Event::Click, [handler = std::move(handler)](Control& pressed, const Event&) {
    handler(pressed.index);
  });
}

void Dialog::askInto(TextBox& box, const QString& prompt) {
  const QString typed = dialog_.messages.ask(prompt);
  if (!typed.isEmpty()) box.text = typed;
}

// A form with one way out has no button that cancels: Escape takes that way then.
void Dialog::Form_KeyDown(int key) {
  constexpr int kEnter = 13, kEscape = 27;
  if (key != kEnter && key != kEscape) return;
  Control *accent = nullptr, *cancels = nullptr;
  for (const auto& control : form_.controls()) {
    if (control->look.accent) accent = control.get();
    if (control->look.cancels) cancels = control.get();
  }
  Control* pressed = key == kEscape && cancels ? cancels : accent;
  if (pressed) form_.fire(*pressed, {Event::Click});
}

}  // namespace korvane

#include "tests/fakes/fake_form_host.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

template <class T>
T* found(Form& form, const QString& control, int index) {
  T* it = dynamic_cast<T*>(form.find(control, index));
  if (!it)
    ADD_FAILURE() << qUtf8Printable(form.name) << " has no " << qUtf8Printable(control) << '('
                  << index << ')';
  return it;
}

}  // namespace

bool FakeFormHost::allDone() const {
  return std::ranges::all_of(scripts_, [](const auto& of) { return of.second.empty(); });
}

void FakeFormHost::show(Form& form) {
  form.shown = true;
}

void FakeFormHost::showModal(Form& form) {
  opened << form.name;
  if (modalComes) modalComes(form);
  form.shown = true;
  ++modal_;
  std::deque<Script>& scripts = scripts_[form.name];
  if (scripts.empty()) {
    const Control* message = form.find(u"msg");
    ADD_FAILURE() << "nobody expects " << qUtf8Printable(form.name) << ": "
                  << (message ? qUtf8Printable(message->caption()) : "");
  } else {
    const Script script = std::move(scripts.front());
    scripts.pop_front();
    script(form);
  }
  --modal_;
  form.shown = false;
}

void FakeFormHost::hide(Form& form) {
  form.shown = false;
}

void FakeFormHost::fadeOut(Form& form, int) {
  form.shown = false;
}

bool FakeFormHost::sendKey(Form& form, int key, const QString& text) {
  constexpr int kBackspace = 8, kDelete = 46;
  auto* box = dynamic_cast<TextBox*>(form.focus());
  if (!box || !box->visible()) return false;
  sent << QString::number(key) + u' ' + text;
  const int caret = box->selStart(), back = key == kBackspace && caret > 0 ? 1 : 0;
  const QString typed = !text.isEmpty() && text[0].isPrint() ? text : QString();
  QString then = box->text();
  then.replace(caret - back, back || key == kDelete ? 1 : 0, typed);
  box->selStart = caret - back + static_cast<int>(typed.size());
  box->text = then;
  return true;
}

bool canPress(Form& form, const QString& control, int index) {
  const Control* it = found<Control>(form, control, index);
  if (!it || !it->enabled()) return false;
  for (; it; it = it->container)
    if (!it->visible()) return false;
  return true;
}

void press(Form& form, const QString& control, int index) {
  Control* it = found<Control>(form, control, index);
  if (!it) return;
  EXPECT_TRUE(canPress(form, control, index)) << qUtf8Printable(control) << '(' << index << ')';
  if (auto* check = dynamic_cast<Check*>(it)) check->checked = !check->checked();
  form.fire(*it, {Event::Press});
  form.fire(*it, {Event::Release});
  form.fire(*it, {Event::Click});
}

void tap(Form& form, const QString& list, const QString& row) {
  auto* grid = found<Grid>(form, list, -1);
  const int at = static_cast<int>(rows(form, list).indexOf(row)) + 1;
  EXPECT_GT(at, 0) << qUtf8Printable(list) << " has no " << qUtf8Printable(row);
  if (!grid || at < 1) return;
  grid->row = at;
  form.fire(*grid, {Event::Click, 1, at});
}

QStringList rows(Form& form, const QString& list) {
  const auto* grid = found<Grid>(form, list, -1);
  QStringList all;
  for (int r = 1; grid && r <= grid->maxRows(); ++r) all << grid->cell(1, r);
  return all;
}

void pressKey(Form& form, int code) {
  form.fireKey({Event::KeyDown, 0, 0, code});
}

QString textOf(Form& form, const QString& control, int index) {
  const Control* it = found<Control>(form, control, index);
  const auto* box = dynamic_cast<const TextBox*>(it);
  return box ? box->text() : it ? it->caption() : QString();
}

void type(Form& form, const QString& control, const QString& text, int index) {
  if (auto* box = found<TextBox>(form, control, index)) box->text = text;
}

void tick(Form& form, const QString& control, bool on, int index) {
  auto* box = found<Check>(form, control, index);
  if (box && box->checked() != on) press(form, control, index);
}

}  // namespace korvane

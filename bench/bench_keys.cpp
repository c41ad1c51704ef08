// korvane-bench keys: what a press on a key of the prompt keyboard costs until its character stands
// in the painted field, beside a bare line edit that is given the character and painted. Draws
// without a display where there is none.
#include <QCoreApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include "bench/bench.h"
#include "bench/bench_music.h"
#include "custom/screens/keyboard_form.h"
#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_pump.h"
#include "view/window/finger.h"
#include "view/window/qt_pump.h"

namespace korvane {
namespace {

constexpr int kKeys = 400, kLine = 40;  // presses, and characters before the line begins anew
constexpr int kA = 30 - 2, kClear = scan::Clear - 2;

double bareKeys() {
  QWidget window;
  window.resize(1280, 800);
  QLineEdit edit(&window);
  edit.setGeometry(16, 92, 1040, 84);
  edit.setFrame(false);
  window.show();
  QCoreApplication::processEvents();
  return median(5, [&] {
    for (int i = 0; i < kKeys; ++i) {
      if (i % kLine == 0) edit.clear();
      edit.insert(u"a"_s);
      edit.repaint();
    }
  });
}

}  // namespace

int benchKeys(const QStringList&) {
  const QTemporaryDir home;
  DiskFileSystem files;
  FakeClock clock;
  AppState state;
  PressGate gate;
  QtPump pump(gate);
  const Settings settings(files, pump, state, home.path());
  Graphics graphics(files, state, home.path());
  const Palette palette(settings);
  WindowHost host(graphics, gate, QSize(1280, 800));
  Finger finger(host);
  KeyboardForm keyboard(host, palette);

  double ours = 0, pressed = 0, shifted = 0;
  bool right = false;
  pump.later([&] {
    QCoreApplication::processEvents();  // the window shows now
    Form& form = keyboard.form();
    const auto widget = [&](int index) -> ControlWidget& {
      return *host.view(form)->widget(*form.find(u"KEY", index));
    };
    auto& text = dynamic_cast<TextBox&>(*form.find(u"txtInput"));
    ControlWidget& field = *host.view(form)->widget(text);
    ControlWidget& a = widget(kA);
    ours = median(5, [&] {
      for (int i = 0; i < kKeys; ++i) {
        if (i % kLine == 0) finger.tap(widget(kClear), widget(kClear).rect().center());
        finger.tap(a, a.rect().center());
        field.repaint();
      }
    });
    right = text.text() == QString(kLine, u'a');
    pressed = median(50, [&] {
      finger.press(a, a.rect().center());
      finger.release();
    });
    ControlWidget& shift = widget(scan::Shift - 2);
    shifted = median(50, [&] {
      finger.tap(shift, shift.rect().center());
      host.stage().repaint();
      finger.tap(a, a.rect().center());
      host.stage().repaint();
    });
    host.hide(form);
  });
  QString prompt = u"A line"_s;
  keyboard.ask(prompt, false);
  const double bare = bareKeys();
  Json("keys")
      .add("key_us", ours * 1e6 / kKeys)
      .add("bare_us", bare * 1e6 / kKeys)
      .add("ratio", ours / bare)
      .add("press_to_look_ms", pressed * 1000)
      .add("shift_and_letter_ms", shifted * 1000)
      .add("right", right && pressed < 0.05)
      .print();
  return right && pressed < 0.05 ? 0 : 1;
}

}  // namespace korvane

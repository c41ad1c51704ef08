// A form: named controls made from an inventory, the events they fire, and who hears of a change.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "core/form/control.h"
#include "core/form/inventory.h"

namespace korvane {

struct Event {
  enum Type {
    Click,
    DblClick,
    Press,
    Release,
    Change,
    Scroll,
    KeyDown,
    KeyPress,
    ButtonClicked,
    Tick,
    Move,  // of a finger that holds the control
    Swipe  // over a picture area, `column` 1 for a finger that goes left, to what follows, else -1
  };
  Type type = Click;
  int column = 0, row = 0;  // of a grid; row 0 is the header. `row` is the cell of a sheet
  int key = 0;              // of a keyboard: the key code
  QString text{};           // of a keyboard: what it types
  int x = 0, y = 0;         // of a move, and of a click on a picture area: form units from the
                            // control's corner, of a move also beyond it
};

class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void controlChanged(Control& control, Aspect aspect) = 0;
  virtual void formChanged(Form& form, Aspect aspect) = 0;
  virtual void controlAdded(Control&) {}
};

// The saved design geometry of one control.
struct ControlRect {
  QString Name;
  int Index = -1;
  int Height = 0, Left = 0, Top = 0, Width = 0;
};

// How the screen shows a form.
enum class FormRole {
  Main,      // over the whole window, below all others
  Splash,    // above all others while the program starts
  Strip,     // in a small window of its own that stays above those of other programs
  Modal,     // above the main form, whose presses it keeps until it is hidden
  Floating,  // on the lower edge of the screen, above all others; leaves them their presses and
             // goes with the modal form below it
};

class Form : public Noticing {
 public:
  using Handler = std::function<void(Control&, const Event&)>;

  // `inventory` is read here alone.
  Form(QString name, std::span<const InventoryRow> inventory, Rect design = kSurface,
       FormRole role = FormRole::Modal);
  Form(const Form&) = delete;

  const QString name;
  const Rect design;
  const FormRole role;
  Watched<Picture> picture{*this, Aspect::Picture};
  Watched<QString> caption{*this, Aspect::Caption};
  Watched<Colours> colours{*this, Aspect::Colours};
  Watched<bool> shown{*this, Aspect::Shown, false};
  Watched<bool> minimised{*this, Aspect::Shown, false};
  // Of a floating form: form units above the lower edge, when somebody has moved it.
  Watched<int> lift{*this, Aspect::Rect, 0};
  double scale = 1;  // device pixels of a form unit, kept by the face

  // The control of that name and index, in any case; null when there is none.
  Control* find(QStringView controlName, int index = -1) const;
  const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }
  int upperBound(QStringView controlName) const;  // of an array; -1 when there is none

  // A further member of an array, like its member 0 but hidden.
  Control* load(QStringView controlName, int index);

  // Puts a control somewhere else, at a place of the present surface or of the design's.
  void move(Control& control, Rect place);
  void moveDesign(Control& control, Rect place);

  // Hears `type` of the control (all members of an array). Several may hear, in order.
  void on(QStringView controlName, Event::Type type, Handler handler);
  // Hears key events and the form's own clicks.
  void on(Event::Type type, Handler handler);
  // A policy that stands around an event of the control: it does `go`, which is the handlers or the
  // policy before it, or leaves it. The last one that came is asked first.
  using Policy = std::function<void(Control&, const Event&, const std::function<void()>& go)>;
  void around(QStringView controlName, Event::Type type, Policy policy);
  // True when somebody heard it. Controls that are hidden or not enabled fire nothing but Tick. No
  // exception of a handler comes out while `failed` is set.
  bool fire(Control& control, const Event& event);
  bool fireKey(const Event& event);

  // Told what a handler of any form has thrown, with the handler's name, as "Grid_Click". One for
  // all forms of the program; without it exceptions go through.
  using Failed = std::function<void(const Form& form, const QString& handler, const QString& what)>;
  static inline Failed failed;

  void observe(FormObserver* observer);
  void forget(FormObserver* observer);
  void changed(Aspect aspect) override;
  void controlChanged(Control& control, Aspect aspect);

  // Lays the controls out on a surface of that many form units, never under the design's.
  void resize(int width, int height);
  int width() const { return width_; }
  int height() const { return height_; }

  Control* focus() const { return focus_; }
  void setFocus(Control* control);

 private:
  Control& make(const InventoryRow& row);
  static void apply(Control& control, const Look& look);
  Rect laidOut(const Control& control) const;
  QString key(QStringView controlName, int index) const;
  static QString eventKey(QStringView controlName, Event::Type type);
  void guarded(QStringView controlName, Event::Type type, const std::function<void()>& work);

  std::vector<std::unique_ptr<Control>> controls_;
  QHash<QString, Control*> byName_;
  QHash<QString, int> upper_;
  QHash<QString, std::vector<Handler>> handlers_;
  QHash<QString, std::vector<Policy>> policies_;
  std::vector<FormObserver*> observers_;
  Control* focus_ = nullptr;
  int width_, height_;
};

// Shows forms: the window's part. A modal form holds the caller until it is hidden.
class FormHost {
 public:
  virtual ~FormHost() = default;
  virtual void show(Form& form) = 0;
  virtual void showModal(Form& form) = 0;  // Yields.
  virtual void hide(Form& form) = 0;
  virtual void fadeOut(Form& form, int milliseconds) = 0;  // Yields; hides the form at its end.
  // A key, with its code and what it types, as if a hardware keyboard had sent it to the control
  // that has the form's focus. False when none has it. Yields.
  virtual bool sendKey(Form& form, int key, const QString& text) = 0;

  // A finger has touched a text box and nobody has heard its Click.
  std::function<void(TextBox&)> textTouched;
};

}  // namespace korvane

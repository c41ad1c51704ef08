// Shows forms on the console's one window: the main form over all of it, modal forms above it, the
// splash on top while it lasts, and the always-on-top strip in a window of its own.
#pragma once

#include <QEventLoop>
#include <functional>
#include <memory>
#include <vector>

#include "core/form/form.h"
#include "core/graphics.h"
#include "view/window/event_wall.h"
#include "view/window/form_view.h"
#include "view/window/press_gate.h"
#include "view/window/stage.h"
#include "view/window/touch_watch.h"

namespace korvane {

class WindowHost : public FormHost {
 public:
  // `windowed`: the window's size in pixels; empty for the whole screen. Forms must live until
  // close().
  WindowHost(Graphics& graphics, PressGate& gate, QSize windowed = {});
  ~WindowHost() override;

  void show(Form& form) override;
  void showModal(Form& form) override;
  void hide(Form& form) override;
  void fadeOut(Form& form, int milliseconds) override;
  bool sendKey(Form& form, int key, const QString& text) override;
  bool pressesTaken() const override;
  void close();  // takes the window down; no form is mirrored any more

  void setSinglePress(bool on) { touch_.singlePress = on; }
  // Whether the window follows a finger on the ground of the main form; for one shown later.
  void setMovable(bool on) { movable_ = on; }

  Form* topForm() const;  // the one that gets presses; null when none is shown
  FormView* view(const Form& form) const;
  std::vector<FormView*> views() const;  // from the back to the front
  Stage& stage() { return *stage_; }
  PressGate& gate() { return gate_; }

  EventWall wall;  // around textTouched and touches

  std::function<void()> closeAsked;        // the desktop asks to close the window
  std::function<void(Form&)> modalOpened;  // a modal form has come up and takes the presses

 private:
  struct Layer {
    FormView* view;
    FormRole role;
    QWidget* dim = nullptr;
    QEventLoop* loop = nullptr;
  };
  Layer* layer(const Form& form);
  Layer& open(Form& form);
  void close(Form& form);
  void shownChanged(Form& form);
  void present(const Layer& first);
  void layOut();
  void fit(const Layer& layer);
  void keyPressed(QKeyEvent& event);
  void followFocus(Form& form);

  PictureCache pictures_;
  PressGate& gate_;
  QSize windowed_;
  Touch touch_;
  bool movable_ = false;
  std::unique_ptr<Stage> stage_;
  TouchWatch touchWatch_;
  std::vector<Layer> layers_;
};

}  // namespace korvane

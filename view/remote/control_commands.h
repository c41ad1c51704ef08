// The commands of the control socket. One JSON object in, one out: {"ok":true,...} or
// {"ok":false,"error":"..."}.
//
//   - press, doublepress {name, index?, row?, col?, x?, y?, form?}: on a row of a list or, from 0,
//     a cell of a sheet, or at a place of the control, in form units
//   - hold {name, index?}
//   - release {dx?, dy?}: a slide before it lets go
//   - drag {name, index?, from:[x,y]?, to:[x,y]? or dx, dy, ms?}: form units within the control
//   - type {text}
//   - key {key}: "Return", "Ctrl+A"...
//   - set {name, index?, value}: a slider by its thumb, a text, a check, a list's row, the form
//     units that a sheet is scrolled by
//   - get {name, index?, form?}
//   - rows {name, index?, from?, count?}: of a list from 1; of a sheet its cells, from 0
//   - wait {name, index?, property, value or not or contains or at_least, timeout_ms?}
//   - messages {answer?}: the boxes open, the topmost last; answers the topmost one
//   - screenshot {file}: as the console paints it; from the screen while a player draws by itself,
//     so that nothing else may lie above the window then
//   - tree {form?}
//   - quit
//
// The form is the topmost one unless it is named; what is only read is then looked for in the
// others.
#pragma once

#include <QJsonObject>
#include <QTimer>

#include "view/window/finger.h"

namespace korvane {

class ControlCommands {
 public:
  using Answer = std::function<void(QJsonObject)>;

  // The host must outlive it; there is one for a host, since it hears of the modal forms.
  explicit ControlCommands(WindowHost& host);
  ~ControlCommands();

  // Runs one command; `answer` is called once, at once or later. Yields.
  void run(const QJsonObject& command, Answer answer);

  std::function<void()> quit;  // of the command; ends the event loop unless set

 private:
  struct Target {
    Control* control = nullptr;
    ControlWidget* widget = nullptr;
  };
  using Method = void (ControlCommands::*)(const QJsonObject&, const Answer&);
  struct Row {
    const char* name;
    Method method;
  };
  static const Row kCommands[];

  Target target(const QJsonObject& command, bool anyForm, QString* error) const;
  bool reach(const QJsonObject& command, Target* found, QPoint* at, const Answer& answer) const;
  QPoint pointOf(const QJsonObject& command, const Target& found) const;
  void acted(const std::function<void()>& act, const Answer& answer);

  void press(const QJsonObject& command, const Answer& answer);
  void doublepress(const QJsonObject& command, const Answer& answer);
  void hold(const QJsonObject& command, const Answer& answer);
  void release(const QJsonObject& command, const Answer& answer);
  void drag(const QJsonObject& command, const Answer& answer);
  void type(const QJsonObject& command, const Answer& answer);
  void key(const QJsonObject& command, const Answer& answer);
  void set(const QJsonObject& command, const Answer& answer);
  void setSlider(Slider& slider, const ControlWidget& widget, double value);
  void get(const QJsonObject& command, const Answer& answer);
  void rows(const QJsonObject& command, const Answer& answer);
  void wait(const QJsonObject& command, const Answer& answer);
  void messages(const QJsonObject& command, const Answer& answer);
  void screenshot(const QJsonObject& command, const Answer& answer);
  void tree(const QJsonObject& command, const Answer& answer);
  void quitNow(const QJsonObject& command, const Answer& answer);

  WindowHost& host_;
  Finger finger_;
  QObject here_;  // ends what still waits when the commands go
  std::vector<std::function<void()>> answerOnModal_;
};

// True when `is` fulfils the condition of a wait command.
bool fulfils(const QJsonObject& command, const QJsonValue& is);

}  // namespace korvane

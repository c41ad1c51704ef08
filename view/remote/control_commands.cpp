#include "view/remote/control_commands.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QKeySequence>
#include <QScreen>

#include "view/controls/grid_widget.h"
#include "view/controls/sheet_widget.h"
#include "view/controls/slider_widget.h"
#include "view/controls/surface_widget.h"
#include "view/remote/control_properties.h"
#include "view/window/native_press.h"
#include "view/window/open_boxes.h"

namespace korvane {
namespace {

constexpr int kWaitMs = 5000, kWaitStepMs = 8, kDragMs = 200, kDragStepMs = 16;
constexpr int kPaintMs = 50;       // until the screen shows what has just changed
constexpr int kPatienceMs = 1000;  // for the handlers of a press, then the answer goes out

QJsonObject failed(const QString& error) {
  return {{u"ok"_s, false}, {u"error"_s, error}};
}
QJsonObject done() {
  return {{u"ok"_s, true}};
}

QString text(const QJsonValue& value) {
  return value.toVariant().toString();
}

QPoint pointIn(const QJsonValue& pair, double scale, QPoint standard) {
  if (!pair.isArray()) return standard;
  return QPoint(static_cast<int>(pair.toArray().at(0).toDouble() * scale),
                static_cast<int>(pair.toArray().at(1).toDouble() * scale));
}

// Then its picture is on the screen and nowhere else.
bool playerDrawsOn(const Stage& stage) {
  const QList<QWidget*> all = stage.findChildren<QWidget*>();
  return std::ranges::any_of(all, [](QWidget* each) {
    const auto* surface = dynamic_cast<SurfaceWidget*>(each);
    return surface && surface->isVisible() && surface->native() && surface->native()->shown();
  });
}

// Where a player draws by itself and takes presses: to it, past the console.
bool pressPlayer(ControlWidget& widget, QPoint at) {
  auto* surface = dynamic_cast<SurfaceWidget*>(&widget);
  NativeSurface* native = surface ? surface->native() : nullptr;
  if (!native || !native->takesPresses()) return false;
  return pressNative(native->window(), (QPointF(at) * widget.devicePixelRatioF()).toPoint());
}

}  // namespace

const ControlCommands::Row ControlCommands::kCommands[] = {
    {"press", &ControlCommands::press},
    {"doublepress", &ControlCommands::doublepress},
    {"hold", &ControlCommands::hold},
    {"release", &ControlCommands::release},
    {"drag", &ControlCommands::drag},
    {"type", &ControlCommands::type},
    {"key", &ControlCommands::key},
    {"set", &ControlCommands::set},
    {"get", &ControlCommands::get},
    {"rows", &ControlCommands::rows},
    {"wait", &ControlCommands::wait},
    {"messages", &ControlCommands::messages},
    {"screenshot", &ControlCommands::screenshot},
    {"tree", &ControlCommands::tree},
    {"quit", &ControlCommands::quitNow},
};

ControlCommands::ControlCommands(WindowHost& host) : host_(host), finger_(host) {
  quit = [] { QCoreApplication::exit(0); };  // quit() would ask the window, and so the user
  host_.modalOpened = [this](Form&) {
    for (const auto& answer : std::exchange(answerOnModal_, {})) answer();
  };
}

ControlCommands::~ControlCommands() {
  host_.modalOpened = nullptr;
}

void ControlCommands::run(const QJsonObject& command, Answer answer) {
  const QString name = command["command"_L1].toString(command["cmd"_L1].toString());
  for (const Row& row : kCommands)
    if (name == QLatin1StringView(row.name)) return (this->*row.method)(command, answer);
  answer(failed(name.isEmpty() ? u"no \"command\""_s : u"unknown command \"%1\""_s.arg(name)));
}

ControlCommands::Target ControlCommands::target(const QJsonObject& command, bool anyForm,
                                                QString* error) const {
  const QString name = command["name"_L1].toString();
  const QString formName = command["form"_L1].toString();
  const int index = command["index"_L1].toInt(-1);
  std::vector<FormView*> views = host_.views();
  std::reverse(views.begin(), views.end());
  const Form* top = host_.topForm();
  const auto isTop = [top](const FormView* view) { return &view->form() == top; };
  std::stable_partition(views.begin(), views.end(), isTop);
  for (FormView* view : views) {
    if (!formName.isEmpty() && formName.compare(view->form().name, Qt::CaseInsensitive) != 0)
      continue;
    if (formName.isEmpty() && !anyForm && top && !isTop(view)) break;
    if (Control* control = view->form().find(name, index)) return {control, view->widget(*control)};
  }
  *error =
      index < 0 ? u"no control \"%1\""_s.arg(name) : u"no control \"%1\" %2"_s.arg(name).arg(index);
  if (top && formName.isEmpty()) *error += u" on "_s + top->name;
  return {};
}

QPoint ControlCommands::pointOf(const QJsonObject& command, const Target& found) const {
  if (const QJsonValue x = command["x"_L1], y = command["y"_L1]; x.isDouble() && y.isDouble()) {
    const double scale = host_.view(found.control->form)->scale();
    return QPointF(x.toDouble() * scale, y.toDouble() * scale).toPoint();
  }
  const QJsonValue row = command["row"_L1];
  if (auto* sheet = dynamic_cast<SheetWidget*>(found.widget); sheet && !row.isUndefined()) {
    sheet->bringIntoView(row.toInt());
    return sheet->cellRect(row.toInt()).center();
  }
  auto* list = dynamic_cast<GridWidget*>(found.widget);
  if (!list || row.isUndefined()) return found.widget->rect().center();
  list->bringIntoView(row.toInt());
  const QJsonValue column = command["col"_L1];
  const QRect at = column.isUndefined() ? list->rowRect(row.toInt())
                                        : list->cellRect(column.toInt(), row.toInt());
  return at.center();
}

bool ControlCommands::reach(const QJsonObject& command, Target* found, QPoint* at,
                            const Answer& answer) const {
  QString error;
  *found = target(command, false, &error);
  if (found->control && !found->widget) error = u"it cannot be pressed"_s;
  const auto* grid = dynamic_cast<Grid*>(found->control);
  const int row = command["row"_L1].toInt(0);
  if (grid && (row < 0 || row > grid->maxRows()))
    error = u"it has no row %1, only %2"_s.arg(row).arg(grid->maxRows());
  const auto* sheet = dynamic_cast<Sheet*>(found->control);
  if (sheet && command.contains("row"_L1) && (row < 0 || row >= sheet->cells().count()))
    error = u"it has no cell %1, only %2 from 0"_s.arg(row).arg(sheet->cells().count());
  if (error.isEmpty()) {
    *at = pointOf(command, *found);
    error = finger_.obstacle(*found->widget, *at);
  }
  if (error.isEmpty()) return true;
  answer(failed(error.startsWith("no control"_L1)
                    ? error
                    : u"%1: %2"_s.arg(command["name"_L1].toString(), error)));
  return false;
}

// Answers when the handlers have run, when a box has opened that keeps them, or after some
// patience.
void ControlCommands::acted(const std::function<void()>& act, const Answer& answer) {
  const auto open = std::make_shared<bool>(true);
  const auto once = [open, answer](QJsonObject with) {
    if (std::exchange(*open, false)) answer(with);
  };
  answerOnModal_.push_back([once] { once(done()); });
  QTimer::singleShot(kPatienceMs, &here_, [once] { once({{u"ok"_s, true}, {u"busy"_s, true}}); });
  act();
  answerOnModal_.clear();
  once(done());
}

void ControlCommands::press(const QJsonObject& command, const Answer& answer) {
  Target found;
  QPoint at;
  if (!reach(command, &found, &at, answer)) return;
  acted(
      [&] {
        if (!pressPlayer(*found.widget, at)) finger_.tap(*found.widget, at);
      },
      answer);
}

void ControlCommands::doublepress(const QJsonObject& command, const Answer& answer) {
  Target found;
  QPoint at;
  if (!reach(command, &found, &at, answer)) return;
  acted(
      [&] {
        if (pressPlayer(*found.widget, at))
          pressPlayer(*found.widget, at);
        else
          finger_.doubleTap(*found.widget, at);
      },
      answer);
}

void ControlCommands::hold(const QJsonObject& command, const Answer& answer) {
  Target found;
  QPoint at;
  if (!reach(command, &found, &at, answer)) return;
  if (const auto* slider = dynamic_cast<SliderWidget*>(found.widget)) at = slider->thumb();
  acted([&] { finger_.press(*found.widget, at); }, answer);
}

void ControlCommands::release(const QJsonObject& command, const Answer& answer) {
  if (!finger_.down()) return answer(failed(u"nothing is held"_s));
  const Form* top = host_.topForm();
  const double scale = top ? host_.view(*top)->scale() : 1;
  const QPoint by(static_cast<int>(command["dx"_L1].toDouble() * scale),
                  static_cast<int>(command["dy"_L1].toDouble() * scale));
  if (!by.isNull()) finger_.move(by);
  acted([&] { finger_.release(); }, answer);
}

void ControlCommands::drag(const QJsonObject& command, const Answer& answer) {
  Target found;
  QPoint from;
  if (!reach(command, &found, &from, answer)) return;
  const FormView* view = host_.view(found.control->form);
  const double scale = view->scale();
  if (const auto* slider = dynamic_cast<SliderWidget*>(found.widget)) from = slider->thumb();
  from = pointIn(command["from"_L1], scale, from);
  const QPoint by(static_cast<int>(command["dx"_L1].toDouble() * scale),
                  static_cast<int>(command["dy"_L1].toDouble() * scale));
  const QPoint way = pointIn(command["to"_L1], scale, from + by) - from;
  const int steps = std::max(2, command["ms"_L1].toInt(kDragMs) / kDragStepMs);

  finger_.press(*found.widget, from);
  auto* frames = new QTimer(&here_);
  frames->setTimerType(Qt::PreciseTimer);
  QObject::connect(frames, &QTimer::timeout, &here_,
                   [=, this, step = 0, gone = QPoint()]() mutable {
                     if (step == steps) {
                       frames->deleteLater();
                       frames->stop();
                       return acted([&] { finger_.release(); }, answer);
                     }
                     ++step;
                     const QPoint due = way * step / steps;
                     finger_.move(due - std::exchange(gone, due));
                   });
  frames->start(kDragStepMs);
}

void ControlCommands::type(const QJsonObject& command, const Answer& answer) {
  if (host_.gate().refusing()) return answer(failed(u"keys are refused while a wait runs"_s));
  const QString typed = command["text"_L1].toString();
  acted(
      [&] {
        for (const QChar c : typed) {
          const int key = c == u'\n' ? static_cast<int>(Qt::Key_Return) : c.toUpper().unicode();
          finger_.key(key, Qt::NoModifier, c == u'\n' ? u"\r"_s : QString(c));
        }
      },
      answer);
}

void ControlCommands::key(const QJsonObject& command, const Answer& answer) {
  if (host_.gate().refusing()) return answer(failed(u"keys are refused while a wait runs"_s));
  const QString name = command["key"_L1].toString();
  const QKeySequence sequence = QKeySequence::fromString(name);
  if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown)
    return answer(failed(u"unknown key \"%1\""_s.arg(name)));
  const QKeyCombination one = sequence[0];
  const QString typed = name.size() == 1              ? name
                        : one.key() == Qt::Key_Return ? u"\r"_s
                        : one.key() == Qt::Key_Escape ? u"\x1b"_s
                                                      : QString();
  acted([&] { finger_.key(one.key(), one.keyboardModifiers(), typed); }, answer);
}

// By the thumb, as a finger does; what a pixel cannot tell apart is set before the finger leaves.
void ControlCommands::setSlider(Slider& slider, const ControlWidget& widget, double value) {
  const auto& shown = static_cast<const SliderWidget&>(widget);
  finger_.press(widget, shown.thumb());
  finger_.move(shown.pointOf(value) - shown.thumb());
  if (slider.value() != value) {
    slider.moveTo(value);
    slider.form.fire(slider, {Event::Scroll});
  }
  finger_.release();
}

void ControlCommands::set(const QJsonObject& command, const Answer& answer) {
  const QJsonValue value = command["value"_L1];
  if (value.isUndefined()) return answer(failed(u"no \"value\""_s));
  Target found;
  QPoint at;
  if (!reach(command, &found, &at, answer)) return;
  Control& control = *found.control;
  switch (control.kind) {
    case Kind::Slider:
      if (!value.isDouble()) return answer(failed(u"\"value\" is no number"_s));
      return acted(
          [&] { setSlider(static_cast<Slider&>(control), *found.widget, value.toDouble()); },
          answer);
    case Kind::Check:
      return acted(
          [&] {
            if (static_cast<Check&>(control).checked() != value.toBool())
              finger_.tap(*found.widget, at);
          },
          answer);
    case Kind::Text: {
      auto& box = static_cast<TextBox&>(control);
      box.text = text(value);
      box.selStart = static_cast<int>(box.text().size());
      return answer(done());
    }
    case Kind::Grid:
      static_cast<Grid&>(control).SetActiveCell(1, value.toInt());
      return answer(done());
    case Kind::Sheet:
      static_cast<Sheet&>(control).top = value.toInt();
      return acted([&] { control.form.fire(control, {Event::Scroll}); }, answer);
    default:
      return answer(failed(u"%1 holds no value"_s.arg(control.name)));
  }
}

void ControlCommands::get(const QJsonObject& command, const Answer& answer) {
  QString error;
  const Target found = target(command, true, &error);
  if (!found.control) return answer(failed(error));
  QJsonObject all = describe(*found.control, found.widget);
  all["ok"_L1] = true;
  answer(all);
}

void ControlCommands::rows(const QJsonObject& command, const Answer& answer) {
  QString error;
  const Target found = target(command, true, &error);
  if (!found.control) return answer(failed(error));
  if (const auto* sheet = dynamic_cast<Sheet*>(found.control))
    return answer({{u"ok"_s, true},
                   {u"count"_s, sheet->cells().count()},
                   {u"rows"_s, describeCells(*sheet, command["from"_L1].toInt(0),
                                             command["count"_L1].toInt(20))}});
  const auto* grid = dynamic_cast<Grid*>(found.control);
  if (!grid) return answer(failed(u"%1 is no list"_s.arg(found.control->name)));
  answer({{u"ok"_s, true},
          {u"count"_s, grid->maxRows()},
          {u"rows"_s,
           describeRows(*grid, command["from"_L1].toInt(1), command["count"_L1].toInt(20))}});
}

bool fulfils(const QJsonObject& command, const QJsonValue& is) {
  if (command.contains("contains"_L1)) return text(is).contains(command["contains"_L1].toString());
  if (command.contains("not"_L1)) return text(is) != text(command["not"_L1]);
  if (command.contains("at_least"_L1)) return is.toDouble() >= command["at_least"_L1].toDouble();
  return text(is) == text(command["value"_L1]);
}

void ControlCommands::wait(const QJsonObject& command, const Answer& answer) {
  const QString property = command["property"_L1].toString(u"visible"_s);
  const int patience = command["timeout_ms"_L1].toInt(kWaitMs);
  QElapsedTimer waited;
  waited.start();
  const auto look = [this, command, property, patience, waited, answer] {
    QString error;
    const Target found = target(command, true, &error);
    const QJsonObject all = found.control ? describe(*found.control, found.widget) : QJsonObject();
    const QJsonValue is = all[property];
    if (found.control && is.isUndefined()) {
      answer(failed(u"%1 has no \"%2\""_s.arg(found.control->name, property)));
      return true;
    }
    if (found.control && fulfils(command, is)) {
      answer({{u"ok"_s, true}, {property, is}, {u"ms"_s, waited.elapsed()}});
      return true;
    }
    if (waited.elapsed() < patience) return false;
    answer(failed(found.control ? u"after %1 ms %2 of %3 is still \"%4\""_s.arg(patience).arg(
                                      property, found.control->name, text(is))
                                : error));
    return true;
  };
  if (look()) return;
  auto* looks = new QTimer(&here_);
  QObject::connect(looks, &QTimer::timeout, &here_, [looks, look] {
    if (!look()) return;
    looks->stop();
    looks->deleteLater();
  });
  looks->start(kWaitStepMs);
}

void ControlCommands::messages(const QJsonObject& command, const Answer& answer) {
  const std::vector<OpenBox> open = openBoxes(host_);
  const QString wanted = command["answer"_L1].toString();
  if (!wanted.isEmpty()) {
    if (open.empty()) return answer(failed(u"no box is open"_s));
    const OpenBox& box = open.back();
    const Form* top = host_.topForm();
    if (!box.system && top && box.form != top->name)
      return answer(failed(u"the form %1 is above it"_s.arg(top->name)));
    for (const auto& [name, choice] : box.answers)
      if (name.compare(wanted, Qt::CaseInsensitive) == 0)
        return acted([this, &choose = choice] { choose(finger_); }, answer);
    return answer(failed(u"the box has no answer \"%1\""_s.arg(wanted)));
  }
  QJsonArray boxes;
  for (const OpenBox& box : open) {
    QJsonArray answers;
    for (const auto& [name, choose] : box.answers) answers.append(name);
    boxes.append(
        QJsonObject{{u"form"_s, box.form}, {u"text"_s, box.text}, {u"answers"_s, answers}});
  }
  answer({{u"ok"_s, true}, {u"messages"_s, boxes}});
}

void ControlCommands::screenshot(const QJsonObject& command, const Answer& answer) {
  const QString file = command["file"_L1].toString();
  if (file.isEmpty()) return answer(failed(u"no \"file\""_s));
  const auto save = [file, answer](const QPixmap& picture) {
    if (!picture.save(file)) return answer(failed(u"cannot write %1"_s.arg(file)));
    answer({{u"ok"_s, true}, {u"width"_s, picture.width()}, {u"height"_s, picture.height()}});
  };
  Stage& stage = host_.stage();
  if (!playerDrawsOn(stage)) return save(stage.grab());
  QTimer::singleShot(kPaintMs, &here_,
                     [&stage, save] { save(stage.screen()->grabWindow(stage.winId())); });
}

void ControlCommands::tree(const QJsonObject& command, const Answer& answer) {
  const QString wanted = command["form"_L1].toString();
  QJsonArray forms;
  for (const FormView* view : host_.views()) {
    const Form& form = view->form();
    if (!wanted.isEmpty() && wanted.compare(form.name, Qt::CaseInsensitive) != 0) continue;
    QJsonArray controls;
    for (const auto& control : form.controls())
      controls.append(QJsonObject{{u"name"_s, control->name},
                                  {u"index"_s, control->index},
                                  {u"kind"_s, QLatin1StringView(kindName(control->kind))},
                                  {u"visible"_s, control->visible()}});
    forms.append(QJsonObject{{u"form"_s, form.name},
                             {u"shown"_s, form.shown()},
                             {u"top"_s, &form == host_.topForm()},
                             {u"picture"_s, form.picture().group + u'/' + form.picture().name},
                             {u"controls"_s, controls}});
  }
  answer({{u"ok"_s, true}, {u"forms"_s, forms}});
}

void ControlCommands::quitNow(const QJsonObject&, const Answer& answer) {
  answer(done());
  QTimer::singleShot(0, &here_, [this] { quit(); });
}

}  // namespace korvane

#include "core/form/form.h"

namespace korvane {
namespace {

template <class T>
std::unique_ptr<Control> made(Form& form, const QString& name, int index, Kind kind) {
  return std::make_unique<T>(form, name, index, kind);
}

std::unique_ptr<Control> makeControl(Form& form, const QString& name, int index, Kind kind) {
  switch (kind) {
    case Kind::Image:
      return made<Image>(form, name, index, kind);
    case Kind::Label:
      return made<Label>(form, name, index, kind);
    case Kind::Button:
      return made<Button>(form, name, index, kind);
    case Kind::Slider:
      return made<Slider>(form, name, index, kind);
    case Kind::Grid:
      return made<Grid>(form, name, index, kind);
    case Kind::Frame:
      return made<Frame>(form, name, index, kind);
    case Kind::Text:
      return made<TextBox>(form, name, index, kind);
    case Kind::Check:
      return made<Check>(form, name, index, kind);
    case Kind::Timer:
      return made<Timer>(form, name, index, kind);
    case Kind::PictureArea:
      return made<PictureArea>(form, name, index, kind);
    case Kind::Surface:
      return made<Surface>(form, name, index, kind);
    case Kind::Sheet:
      return made<Sheet>(form, name, index, kind);
    case Kind::Progress:
      return made<Progress>(form, name, index, kind);
  }
  Q_UNREACHABLE();
}

int scaled(int length, int to, int from) {
  return static_cast<int>(std::lround(double(length) * to / from));
}

// The same share of another container.
Rect spread(Rect rect, int width, int height, int ofWidth, int ofHeight) {
  const int left = scaled(rect.left, width, ofWidth), top = scaled(rect.top, height, ofHeight);
  return {left, top, scaled(rect.right(), width, ofWidth) - left,
          scaled(rect.bottom(), height, ofHeight) - top};
}

// Where a control stands when its container has grown by (dx, dy).
Rect grown(Rect rect, unsigned anchors, int dx, int dy) {
  if (anchors & Right) {
    if (anchors & Left)
      rect.width += dx;
    else
      rect.left += dx;
  }
  if (anchors & Bottom) {
    if (anchors & Top)
      rect.height += dy;
    else
      rect.top += dy;
  }
  return rect;
}

}  // namespace

Form::Form(QString formName, std::span<const InventoryRow> inventory, Rect designRect,
           FormRole formRole)
    : name(std::move(formName)),
      design(designRect),
      role(formRole),
      width_(designRect.width),
      height_(designRect.height) {
  controls_.reserve(inventory.size());
  for (const InventoryRow& row : inventory) make(row);
}

QString Form::key(QStringView controlName, int index) const {
  return controlName.toString().toCaseFolded() + u'#' + QString::number(index);
}

void Form::apply(Control& control, const Look& look) {
  control.look = look;
  const QString picture = QString::fromLatin1(look.picture);
  if (!picture.isEmpty()) control.setPicture(picture.section(u'/', 0, 0), picture.section(u'/', 1));
  const QString caption = QString::fromUtf8(look.caption);
  control.toolTip = QString::fromUtf8(look.tip);
  if (auto* grid = dynamic_cast<Grid*>(&control)) {
    grid->emptyText = caption;
    return;
  }
  if (auto* sheet = dynamic_cast<Sheet*>(&control)) {
    sheet->emptyText = caption;
    return;
  }
  control.caption = caption;
  if (auto* label = dynamic_cast<Label*>(&control)) {
    if (look.text > 0) label->fontUnits = look.text;
    label->align = look.align;
    label->bold = look.bold;
    label->wraps = look.wraps;
  } else if (auto* button = dynamic_cast<Button*>(&control)) {
    if (look.text > 0) button->fontUnits = look.text;
  } else if (auto* slider = dynamic_cast<Slider*>(&control)) {
    slider->vertical = look.vertical;
  }
}

Control& Form::make(const InventoryRow& row) {
  const QString controlName = QString::fromLatin1(row.name);
  controls_.push_back(makeControl(*this, controlName, row.index, row.kind));
  Control& control = *controls_.back();
  control.anchors = row.anchors;
  control.spokenName = QString::fromUtf8(row.spoken);
  control.design = control.laid = row.rect;
  control.rect = row.rect;
  if (*row.container) control.container = find(QString::fromLatin1(row.container));
  if (row.kind != Kind::Timer) control.visible = row.visible;
  apply(control, row.look);
  byName_.insert(key(controlName, row.index), &control);
  int& upper = upper_[controlName.toCaseFolded()];
  upper = std::max(upper, row.index);
  return control;
}

Control* Form::find(QStringView controlName, int index) const {
  return byName_.value(key(controlName, index));
}

int Form::upperBound(QStringView controlName) const {
  return upper_.value(controlName.toString().toCaseFolded(), -1);
}

Control* Form::load(QStringView controlName, int index) {
  Control* existing = find(controlName, index);
  const Control* model = find(controlName, 0);
  if (existing || !model) return existing;
  controls_.push_back(makeControl(*this, model->name, index, model->kind));
  Control* control = controls_.back().get();
  control->anchors = model->anchors;
  control->draggable = model->draggable;
  control->container = model->container;
  control->spokenName = model->spokenName;
  control->look = model->look;
  control->design = model->design;
  control->laid = model->laid;
  control->rect = model->rect;
  control->colours = model->colours;
  control->visible = false;
  byName_.insert(key(controlName, index), control);
  int& upper = upper_[control->name.toCaseFolded()];
  upper = std::max(upper, index);
  for (FormObserver* observer : observers_) observer->controlAdded(*control);
  return control;
}

QString Form::eventKey(QStringView controlName, Event::Type type) {
  return controlName.toString().toCaseFolded() + u'!' + QString::number(type);
}

void Form::on(QStringView controlName, Event::Type type, Handler handler) {
  handlers_[eventKey(controlName, type)].push_back(std::move(handler));
}

void Form::around(QStringView controlName, Event::Type type, Policy policy) {
  policies_[eventKey(controlName, type)].push_back(std::move(policy));
}

void Form::on(Event::Type type, Handler handler) {
  on(u"", type, std::move(handler));
}

bool Form::fire(Control& control, const Event& event) {
  if (event.type != Event::Tick && !(control.visible() && control.enabled())) return false;
  const QString key = eventKey(control.name, event.type);
  const auto found = handlers_.constFind(key);
  if (found == handlers_.constEnd()) return false;
  std::function<void()> go = [&, handlers = *found] {
    for (const Handler& handler : handlers) handler(control, event);
  };
  for (const Policy& policy : policies_.value(key))
    go = [&control, &event, policy, inner = std::move(go)] { policy(control, event, inner); };
  guarded(control.name, event.type, go);
  return true;
}

void Form::guarded(QStringView controlName, Event::Type type, const std::function<void()>& work) {
  static constexpr const char* names[] = {"Click",         "DblClick", "Press",   "Release",
                                          "Change",        "Scroll",   "KeyDown", "KeyPress",
                                          "ButtonClicked", "Timer",    "Move",    "Swipe"};
  if (!failed) return work();
  try {
    work();
  } catch (const std::exception& failure) {
    failed(*this, controlName.toString() + u'_' + QString::fromLatin1(names[type]),
           QString::fromUtf8(failure.what()));
  }
}

bool Form::fireKey(const Event& event) {
  const auto found = handlers_.constFind(u"!"_s + QString::number(event.type));
  if (found == handlers_.constEnd() || controls_.empty()) return false;
  guarded(u"Form", event.type, [&, handlers = std::vector<Handler>(*found)] {
    for (const Handler& handler : handlers) handler(*controls_.front(), event);
  });
  return true;
}

void Form::observe(FormObserver* observer) {
  observers_.push_back(observer);
}
void Form::forget(FormObserver* observer) {
  std::erase(observers_, observer);
}

void Form::changed(Aspect aspect) {
  for (FormObserver* observer : observers_) observer->formChanged(*this, aspect);
}

void Form::controlChanged(Control& control, Aspect aspect) {
  for (FormObserver* observer : observers_) observer->controlChanged(control, aspect);
}

Rect Form::laidOut(const Control& control) const {
  const Control* box = control.container;
  const Rect& from = box ? box->design : design;
  const int width = box ? box->laid.width : width_, height = box ? box->laid.height : height_;
  if (control.anchors & Spread)
    return spread(control.design, width, height, from.width, from.height);
  return grown(control.design, control.anchors, width - from.width, height - from.height);
}

void Form::move(Control& control, Rect place) {
  if (control.anchors & Spread) {
    const Control* box = control.container;
    const Rect& to = box ? box->design : design;
    control.design = spread(place, to.width, to.height, box ? box->laid.width : width_,
                            box ? box->laid.height : height_);
    control.laid = place;
  }
  control.rect = place;
}

void Form::moveDesign(Control& control, Rect place) {
  control.design = place;
  control.laid = laidOut(control);
  control.rect = control.laid;
}

void Form::resize(int width, int height) {
  width = std::max(width, design.width);
  height = std::max(height, design.height);
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  for (const auto& control : controls_) {
    const Rect laid = laidOut(*control);
    Rect now = control->rect();
    now.left += laid.left - control->laid.left;
    now.top += laid.top - control->laid.top;
    now.width += laid.width - control->laid.width;
    now.height += laid.height - control->laid.height;
    control->laid = laid;
    control->rect = now;
  }
}

void Form::setFocus(Control* control) {
  if (focus_ == control) return;
  Control* before = std::exchange(focus_, control);
  if (before) controlChanged(*before, Aspect::Focus);
  if (control) controlChanged(*control, Aspect::Focus);
}

}  // namespace korvane

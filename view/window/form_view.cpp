#include "view/window/form_view.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include "view/drawing/fresh_image.h"
#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr int kPrepareMs = 2;  // a turn; the finger comes between
constexpr int kLongMs = 10'000;

}  // namespace

FormView::FormView(Form& form, PictureCache& pictures, Touch& touch, QWidget* parent)
    : QWidget(parent), form_(form), face_{pictures, touch}, touch_(touch) {
  setObjectName(form.name);
  setWindowTitle(form.caption());
  for (const auto& control : form.controls()) add(*control);
  face_.bubble = new Bubble(face_, this);
  form_.observe(this);
}

void FormView::setRounded(bool on) {
  rounded_ = on;
  setAttribute(Qt::WA_OpaquePaintEvent, !on);
}

void FormView::detach() {
  form_.forget(this);
  for (ControlWidget* each : std::as_const(widgets_)) each->detach();
  qDeleteAll(timers_);
  timers_.clear();
  widgets_.clear();
}

void FormView::add(Control& control) {
  if (control.kind == Kind::Timer) return runTimer(static_cast<Timer&>(control));
  QWidget* box = control.container ? widgets_.value(control.container) : nullptr;
  widgets_.insert(&control, makeWidget(control, face_, box ? box : this));
}

// It stands where its array stands: behind what the inventory has after member 0.
void FormView::controlAdded(Control& control) {
  add(control);
  ControlWidget* made = widget(control);
  if (!made) return;
  made->place();
  bool behind = false;
  for (const auto& other : form_.controls()) {
    if (!behind) {
      behind = other.get() == form_.find(control.name, 0);
    } else if (ControlWidget* next = widget(*other); next && next != made &&
                                                     other->name != control.name &&
                                                     next->parentWidget() == made->parentWidget()) {
      return made->stackUnder(next);
    }
  }
}

void FormView::controlChanged(Control& control, Aspect aspect) {
  if (control.kind == Kind::Timer) return runTimer(static_cast<Timer&>(control));
  if (fitting_ && aspect == Aspect::Rect) return;
  if (ControlWidget* changed = widget(control)) changed->mirror(aspect);
}

void FormView::runTimer(Timer& timer) {
  QTimer*& runs = timers_[&timer];
  if (!runs) {
    runs = new QTimer(this);
    connect(runs, &QTimer::timeout, this, [this, &timer] { form_.fire(timer, {Event::Tick}); });
  }
  if (!timer.enabled() || timer.interval() <= 0) return runs->stop();
  if (runs->isActive() && runs->interval() == timer.interval()) return;
  // A coarse one may be a twentieth late, which is much of a minute.
  const bool precise = timer.interval() < 1000 || timer.interval() > kLongMs;
  runs->setTimerType(precise ? Qt::PreciseTimer : Qt::CoarseTimer);
  runs->start(timer.interval());
}

void FormView::formChanged(Form&, Aspect aspect) {
  switch (aspect) {
    case Aspect::Picture:
      background_ = {};
      if (isVisible()) prepareBackground();
      [[fallthrough]];
    case Aspect::Colours:
      update();
      break;
    case Aspect::Caption:
      window()->setWindowTitle(form_.caption());
      break;
    case Aspect::Rect:
      if (lifted) lifted(form_);
      break;
    case Aspect::Shown:
      if (shownChanged) shownChanged(form_);
      break;
    default:
      break;
  }
}

void FormView::prepareControls() {
  const auto next = std::make_shared<size_t>(0);
  auto* turns = new QTimer(this);
  connect(turns, &QTimer::timeout, this, [this, next, turns] {
    const auto& controls = form_.controls();
    while (*next < controls.size()) {
      ControlWidget* each = widget(*controls[(*next)++]);
      if (!each) continue;
      each->prepare();
      return;
    }
    turns->deleteLater();
  });
  turns->start(kPrepareMs);
}

void FormView::fit(QRect place, double scale) {
  setGeometry(place);
  face_.scale = scale;
  form_.scale = scale * devicePixelRatioF();
  background_ = {};
  fitting_ = true;
  form_.resize(static_cast<int>(std::lround(place.width() / scale)),
               static_cast<int>(std::lround(place.height() / scale)));
  fitting_ = false;
  for (ControlWidget* each : std::as_const(widgets_)) each->place();
  update();
}

void FormView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (!form_.picture().empty() && background_.isNull()) {
    readyBackingStore(*this);
    background_ = face_.pictures.render(form_.picture(), size(), backgroundFit());
  }
  if (!background_.isNull()) return painter.drawPixmap(event->rect(), background_, event->rect());
  const QColor ground = style::colour(form_.colours().back, style::kGround);
  if (rounded_) return style::card(painter, rect(), face_.px(22), ground);
  painter.fillRect(event->rect(), ground);
}

void FormView::mousePressEvent(QMouseEvent*) {
  touch_.lastPressed = this;
}

void FormView::mouseReleaseEvent(QMouseEvent* event) {
  if (touch_.lastPressed == this && event->button() == Qt::LeftButton)
    form_.fireKey({Event::Click});
}

void FormView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (touch_.lastPressed == this && event->button() == Qt::LeftButton)
    form_.fireKey({Event::DblClick});
}

}  // namespace korvane

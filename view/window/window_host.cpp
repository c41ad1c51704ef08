#include "view/window/window_host.h"

#include <QScreen>

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QWindow>

#include "view/controls/drag_mover.h"
#include "view/drawing/fade_layer.h"
#include "view/drawing/fresh_image.h"
#include "view/window/key_codes.h"

namespace korvane {
namespace {

constexpr int kExposeMs = 250;
constexpr int kFrameMs = 16;

}  // namespace

WindowHost::WindowHost(Graphics& graphics, PressGate& gate, QSize windowed)
    : pictures_(graphics), gate_(gate), windowed_(windowed), stage_(std::make_unique<Stage>()) {
  stage_->resized = [this] { layOut(); };
  stage_->closed = [this] {
    if (closeAsked) closeAsked();
  };
  stage_->pressedKey = [this](QKeyEvent& event) { keyPressed(event); };
  touchWatch_.changed = [this](bool left, bool right) {
    bool kept = false;
    wall.run([&] { kept = touches.tell(left, right); });
    return kept;
  };
  touch_.textTouched = [this](TextBox& box) {
    if (textTouched) wall.run([&] { textTouched(box); });
  };
  stage_->minimised = [this](bool minimised) {
    for (const Layer& each : layers_)
      if (each.role == FormRole::Main) each.view->form().minimised = minimised;
  };
}

WindowHost::~WindowHost() {
  for (const Layer& each : layers_)
    if (each.role == FormRole::Strip) delete each.view;
}

WindowHost::Layer* WindowHost::layer(const Form& form) {
  for (Layer& each : layers_)
    if (&each.view->form() == &form) return &each;
  return nullptr;
}

FormView* WindowHost::view(const Form& form) const {
  for (const Layer& each : layers_)
    if (&each.view->form() == &form) return each.view;
  return nullptr;
}

std::vector<FormView*> WindowHost::views() const {
  std::vector<FormView*> all;
  for (const Layer& each : layers_) all.push_back(each.view);
  return all;
}

Form* WindowHost::topForm() const {
  Form* top = nullptr;
  for (const Layer& each : layers_) {
    const bool hides = each.role == FormRole::Modal || (each.role == FormRole::Main && !top);
    if (hides && each.view->form().shown()) top = &each.view->form();
  }
  return top;
}

WindowHost::Layer& WindowHost::open(Form& form) {
  const FormRole role = form.role;
  const bool modal = role == FormRole::Modal;
  QWidget* dim = modal ? new DimLayer(stage_.get()) : nullptr;
  QWidget* parent = role == FormRole::Strip ? nullptr : dim ? dim : stage_.get();
  auto* made = new FormView(form, pictures_, touch_, parent);
  made->shownChanged = [this](Form& changed) { shownChanged(changed); };
  made->lifted = [this](Form& moved) {
    if (Layer* lifted = layer(moved)) fit(*lifted);
  };
  if (role == FormRole::Strip)
    made->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  made->setRounded(modal &&
                   (form.design.width < kSurface.width || form.design.height < kSurface.height));
  if (role == FormRole::Splash) made->setCaptionDelay(kFrameMs);
  if (role == FormRole::Strip || (role == FormRole::Main && movable_))
    new DragMover(made, role == FormRole::Strip);
  layers_.push_back({made, role, dim});
  return layers_.back();
}

// Its first picture is drawn while the window comes.
void WindowHost::present(const Layer& first) {
  if (stage_->isVisible()) return;
  if (windowed_.isEmpty())
    stage_->setGeometry(stage_->screen()->geometry());  // where no window manager does it
  else
    stage_->resize(windowed_);
  fit(first);
  first.view->prepareBackground();
  windowed_.isEmpty() ? stage_->showFullScreen() : stage_->show();
}

void WindowHost::fit(const Layer& layer) {
  const Rect& design = layer.view->form().design;
  if (layer.role == FormRole::Strip) {
    layer.view->fit(QRect(1, 1, design.width, design.height), 1);
    return;
  }
  const QRect all = stage_->rect();
  const double scale =
      std::min(all.width() / double(kSurface.width), all.height() / double(kSurface.height));
  if (layer.role == FormRole::Floating) {
    const int height = static_cast<int>(std::lround(design.height * scale));
    const int lift = static_cast<int>(std::lround(layer.view->form().lift() * scale));
    const int top = std::clamp(all.height() - height - lift, 0, all.height() - height);
    layer.view->fit(QRect(0, top, all.width(), height), scale);
    return;
  }
  if (layer.dim) layer.dim->setGeometry(all);
  if (design.width >= kSurface.width && design.height >= kSurface.height) {
    layer.view->fit(all, scale);
    return;
  }
  const QSize size(static_cast<int>(std::lround(design.width * scale)),
                   static_cast<int>(std::lround(design.height * scale)));
  layer.view->fit(
      QRect(QPoint((all.width() - size.width()) / 2, (all.height() - size.height()) / 2), size),
      scale);
}

void WindowHost::layOut() {
  for (const Layer& each : layers_)
    if (each.role != FormRole::Strip) fit(each);
}

void WindowHost::show(Form& form) {
  const FormRole role = form.role;
  Layer* known = layer(form);
  Layer& shown = known ? *known : open(form);
  form.shown = true;
  if (role == FormRole::Main) {
    form.minimised = false;
    shown.view->lower();
  }
  FormView* view = shown.view;
  if (role != FormRole::Strip) present(shown);
  fit(shown);
  if (shown.dim) {
    shown.dim->raise();
    shown.dim->show();
  }
  view->show();
  if (role == FormRole::Floating) view->raise();
  if (role != FormRole::Splash) return;
  view->raise();
  QElapsedTimer waited;
  waited.start();
  while (!stage_->windowHandle()->isExposed() && waited.elapsed() < kExposeMs)
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
  stage_->repaint();
}

bool WindowHost::pressesTaken() const {
  const Form* top = topForm();
  return (top && top->role == FormRole::Modal) || QApplication::activeModalWidget() ||
         gate_.refusing();
}

void WindowHost::showModal(Form& form) {
  if (form.shown()) return;
  if (modalComes) modalComes(form);
  show(form);
  QEventLoop loop;
  layer(form)->loop = &loop;
  stage_->setFocus();
  if (Control* focus = form.focus()) layer(form)->view->widget(*focus)->setFocus();
  const PressGate::Allow allow(gate_);
  if (modalOpened) modalOpened(form);
  if (form.shown()) loop.exec();
}

void WindowHost::hide(Form& form) {
  form.shown = false;
}

void WindowHost::shownChanged(Form& form) {
  Layer* changed = layer(form);
  if (!changed) return;
  if (changed->role == FormRole::Main && form.shown()) {
    if (form.minimised() && !stage_->isMinimized()) stage_->showMinimized();
    return;
  }
  if (!form.shown()) close(form);
}

// The main form stays made, the others go.
void WindowHost::close(Form& form) {
  Layer* found = layer(form);
  if (!found) return;
  if (found->role == FormRole::Main) {
    stage_->hide();
    return;
  }
  const Layer gone = *found;
  layers_.erase(layers_.begin() + (found - layers_.data()));
  gone.view->detach();
  gone.view->hide();
  gone.view->deleteLater();
  if (gone.dim) {
    gone.dim->hide();
    gone.dim->deleteLater();
  }
  if (gone.loop) gone.loop->quit();
  if (gone.role != FormRole::Modal) return;
  const std::vector<FormView*> left = views();
  for (FormView* each : left)
    if (each->form().role == FormRole::Floating) each->form().shown = false;
}

void WindowHost::fadeOut(Form& form, int milliseconds) {
  Layer* fading = layer(form);
  if (fading && milliseconds > 0 && stage_->isVisible() && fading->role != FormRole::Strip) {
    QImage seen = freshImage(fading->view->size(), QImage::Format_RGB32);
    fading->view->render(&seen);
    FadeLayer layer(QPixmap::fromImage(std::move(seen)), fading->view->geometry(), stage_.get());
    fading->view->hide();
    layer.run(milliseconds);
  }
  const bool starts = fading && fading->role == FormRole::Splash;
  form.shown = false;
  if (!starts) return;
  for (const Layer& each : layers_)
    if (each.role == FormRole::Main) each.view->prepareControls();
}

void WindowHost::close() {
  for (const Layer& each : layers_) each.view->detach();
  stage_->hide();
}

bool WindowHost::sendKey(Form& form, int key, const QString& text) {
  Control* focus = form.focus();
  FormView* of = view(form);
  ControlWidget* widget = focus && of ? of->widget(*focus) : nullptr;
  if (!widget || !widget->isVisible() || !widget->isEnabled()) return false;
  const QPointer<QWidget> to = widget->focusProxy() ? widget->focusProxy() : widget;
  if (!to->hasFocus()) to->setFocus();
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, qtKey(key), Qt::NoModifier, text);
    if (to) QCoreApplication::sendEvent(to, &event);
  }
  followFocus(form);
  return true;
}

// Tab has moved on, of which a window that is not the desktop's active one gives no notice.
void WindowHost::followFocus(Form& form) {
  for (QWidget* at = stage_->focusWidget(); at; at = at->parentWidget()) {
    auto* of = dynamic_cast<ControlWidget*>(at);
    if (of && &of->control().form == &form) return form.setFocus(&of->control());
  }
}

void WindowHost::keyPressed(QKeyEvent& event) {
  Form* top = topForm();
  if (!top) return;
  const int code = virtualKey(event.key(), event.modifiers() & Qt::KeypadModifier);
  if (code) top->fireKey({Event::KeyDown, 0, 0, code});
  if (event.text().isEmpty()) return;
  if (Form* now = topForm(); now == top)
    top->fireKey({Event::KeyPress, 0, 0, event.text().at(0).unicode(), event.text()});
}

}  // namespace korvane

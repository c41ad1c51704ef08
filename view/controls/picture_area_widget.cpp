#include "view/controls/picture_area_widget.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleHints>
#include <QTouchEvent>

#include "view/drawing/fresh_image.h"
#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr int kFrameMs = 16;
constexpr double kCorner = 10, kLoupe = 150, kLine = 3;  // form units; the loupe's radius
constexpr double kMagnified = 2;
constexpr double kTapsApart = 40;  // form units between two taps of a double one
constexpr double kUnscaled = 0.01;

// The part of the picture that shows of `place`, where it lies whole.
void drawPart(QPainter& painter, const QImage& image, QRectF place, const QRect& area) {
  const double scale = place.width() / image.width();
  if (std::abs(scale - 1) * image.width() < kUnscaled)
    place = QRectF(place.topLeft().toPoint(), image.size());
  const QRectF to = place & QRectF(area);
  if (to.isEmpty()) return;
  const QRectF from((to.left() - place.left()) / scale, (to.top() - place.top()) / scale,
                    to.width() / scale, to.height() / scale);
  painter.drawImage(to, image, from);
}

}  // namespace

PictureAreaWidget::PictureAreaWidget(PictureArea& area, Face& face, QWidget* parent)
    : PressWidget(area, face, parent), area_(area), hands_(area, face, *this) {
  setAttribute(Qt::WA_AcceptTouchEvents, area.gestures());
}

void PictureAreaWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Enabled) setAttribute(Qt::WA_AcceptTouchEvents, area_.gestures());
  if (aspect == Aspect::Picture) {
    measure();
    hands_.pictureChanged();
  }
  PressWidget::mirror(aspect);
}

void PictureAreaWidget::place() {
  PressWidget::place();
  measure();
  endFade();
}

void PictureAreaWidget::measure() {
  const auto place = hands_.place();
  area_.fitted = place ? place->fitted() : 100;
}

PictureAreaWidget::Scene PictureAreaWidget::wanted() const {
  return {area_.picture(), area_.beside(), area_.zoom(), {area_.middleX(), area_.middleY()}};
}

QSize PictureAreaWidget::room(const Scene& scene) const {
  return scene.pair() ? QSize(area().width() / 2, area().height()) : area();
}

bool PictureAreaWidget::ready(const Scene& scene) {
  if (scene.zoomed()) return true;
  bool all = true;
  for (const Picture* each : {&scene.picture, &scene.beside})
    if (each->bytes || each->pixels)
      all &= face().pictures.drawnPixmap(*each, room(scene)).has_value();
  return all;
}

void PictureAreaWidget::adopt(const Scene& scene) {
  const bool same = scene.picture == shown_.picture && scene.beside == shown_.beside;
  if (!same && area_.fade() > 0 && !fresh_) {
    before_ = seen();
    fadeMs_ = area_.fade();
    fading_.start();
    frame_.start(kFrameMs, Qt::PreciseTimer, this);
  } else if (!same) {
    endFade();
  }
  shown_ = scene;
  fresh_ = false;
}

void PictureAreaWidget::endFade() {
  frame_.stop();
  before_ = {};
}

QPixmap PictureAreaWidget::seen() {
  QImage all = freshImage(area(), QImage::Format_ARGB32_Premultiplied);
  if (all.isNull()) return {};
  all.fill(Qt::transparent);
  QPainter painter(&all);
  paintSeen(painter);
  painter.end();
  return QPixmap::fromImage(std::move(all), Qt::NoOpaqueDetection);
}

void PictureAreaWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
  const Scene scene = wanted();
  if (ready(scene))
    adopt(scene);
  else
    face().pictures.whenDrawn(this, [this] { update(); });
  paintSeen(painter);
  if (const auto window = hands_.window()) paintWindow(painter, *window);
  if (const auto at = hands_.magnified()) paintLoupe(painter, *at);
}

void PictureAreaWidget::paintSeen(QPainter& painter) {
  if (before_.isNull()) return paintScene(painter, shown_);
  const double come = std::min(1.0, static_cast<double>(fading_.elapsed()) / fadeMs_);
  if (area_.colours().back) {
    paintScene(painter, shown_);
    painter.setOpacity(1 - come);
    painter.drawPixmap(0, 0, before_);
    painter.setOpacity(1);
    return;
  }
  // Neither hides the other where one of them is clear. A sum takes whole shares alone.
  QPixmap next(area()), both(area());
  next.fill(Qt::transparent);
  both.fill(Qt::transparent);
  QPainter scene(&next);
  paintScene(scene, shown_);
  scene.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  scene.fillRect(next.rect(), QColor(0, 0, 0, static_cast<int>(255 * come)));
  scene.end();
  QPainter mixed(&both);
  mixed.setOpacity(1 - come);
  mixed.drawPixmap(0, 0, before_);
  mixed.setOpacity(1);
  mixed.setCompositionMode(QPainter::CompositionMode_Plus);
  mixed.drawPixmap(0, 0, next);
  mixed.end();
  painter.drawPixmap(0, 0, both);
}

void PictureAreaWidget::paintScene(QPainter& painter, const Scene& scene) {
  const QRect all(QPoint(), area());
  if (area_.colours().back) painter.fillRect(all, style::colour(*area_.colours().back));
  const QPoint shift(area_.shiftX(), area_.shiftY());
  painter.save();
  painter.translate(shift);
  if (scene.zoomed()) {
    const QImage image = imageOf(scene.picture.pixels);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !hands_.moving());
    if (!image.isNull() && !all.isEmpty())
      drawPart(painter, image,
               ZoomedPlace(image.size(), all.size(), scene.zoom, scene.middle).rect(),
               all.translated(-shift));
  } else {
    const QSize each = room(scene);
    paintFitted(painter, scene.picture, QRect(QPoint(), each));
    if (scene.pair())
      paintFitted(painter, scene.beside, QRect(QPoint(all.width() - each.width(), 0), each));
  }
  painter.restore();
}

void PictureAreaWidget::paintFitted(QPainter& painter, const Picture& picture, const QRect& room) {
  const bool drawnElsewhere = picture.bytes || picture.pixels;
  const std::optional<QPixmap> drawn = drawnElsewhere
                                           ? face().pictures.drawnPixmap(picture, room.size())
                                           : face().pictures.pixmap(picture, room.size());
  const QSize size = drawn            ? drawn->size()
                     : picture.pixels ? sizeIn({picture.pixels->width, picture.pixels->height},
                                               room.size(), Fit::Inside)
                                      : QSize();
  if (size.isEmpty()) return;
  const QRect at(room.topLeft() +
                     QPoint((room.width() - size.width()) / 2, (room.height() - size.height()) / 2),
                 size);
  // Until it is drawn at a new size: roughly.
  if (!drawn) return painter.drawImage(at, imageOf(picture.pixels));
  if (!area_.rounded || area_.zoom() > 0) return painter.drawPixmap(at.topLeft(), *drawn);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  QBrush brush(*drawn);
  brush.setTransform(QTransform::fromTranslate(at.left(), at.top()));
  painter.setBrush(brush);
  const double corner = face().px(kCorner) * devicePixelRatioF();
  painter.drawRoundedRect(at, corner, corner);
}

void PictureAreaWidget::paintWindow(QPainter& painter, const QRectF& window) {
  const double ratio = devicePixelRatioF(), line = face().px(kLine) * ratio;
  const QRectF at(window.topLeft() * ratio, window.size() * ratio);
  painter.setBrush(QColor(255, 255, 255, 40));
  painter.setPen(QPen(Qt::black, 2 * line));
  painter.drawRect(at);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(style::kAccent, line));
  painter.drawRect(at);
}

void PictureAreaWidget::paintLoupe(QPainter& painter, QPointF at) {
  const auto place = hands_.place();
  if (!place) return;
  const double ratio = devicePixelRatioF(), radius = face().px(kLoupe) * ratio;
  const QPointF finger = at * ratio;
  const QRectF lens(finger - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  QPainterPath round;
  round.addEllipse(lens);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setClipPath(round);
  painter.fillRect(lens, style::colour(area_.colours().back, style::kGround));
  const QRectF whole = place->rect();
  drawPart(painter, imageOf(area_.picture().pixels),
           QRectF(finger + (whole.topLeft() - finger) * kMagnified, whole.size() * kMagnified),
           lens.toAlignedRect());
  painter.setClipping(false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(style::kAccent, face().px(kLine) * ratio));
  painter.drawEllipse(lens);
}

void PictureAreaWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() != frame_.timerId()) return PressWidget::timerEvent(event);
  if (fading_.elapsed() >= fadeMs_) endFade();
  update();
}

void PictureAreaWidget::hideEvent(QHideEvent* event) {
  endFade();
  fresh_ = true;
  hands_.cancel();
  touching_ = pinched_ = false;
  PressWidget::hideEvent(event);
}

void PictureAreaWidget::cancelPress() {
  hands_.cancel();
  PressWidget::cancelPress();
  update();
}

void PictureAreaWidget::fingerDown(QPointF at, bool second) {
  hands_.down(at);
  PressWidget::fingerDown(at, second);
}

void PictureAreaWidget::fingerMoved(QPointF at) {
  hands_.move(at);
  if (hands_.window() || hands_.magnified()) update();
  PressWidget::fingerMoved(at);
}

void PictureAreaWidget::fingerLeft(QPointF at, bool second) {
  update();
  meant(hands_.up(at), at, second);
}

void PictureAreaWidget::meant(PictureHands::Meant what, QPointF at, bool second) {
  using Meant = PictureHands::Meant;
  switch (what) {
    case Meant::Nothing:
      break;
    case Meant::Tap:
      if (!rect().contains(at.toPoint())) break;
      tappedAt_ = at;
      if (!second) sinceTap_.start();
      if (!second || !fire(eventAt(Event::DblClick, at))) fire(eventAt(Event::Click, at));
      break;
    case Meant::Zoomed:
      fire({Event::Change});
      break;
    case Meant::SwipeOn:
    case Meant::SwipeBack:
      fire({Event::Swipe, what == Meant::SwipeOn ? 1 : -1});
      break;
  }
}

bool PictureAreaWidget::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      if (!area_.gestures() && !touching_) break;
      event->accept();
      touched(static_cast<const QTouchEvent&>(*event));
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      // The same finger once more.
      if (touching_ && static_cast<QMouseEvent*>(event)->source() != Qt::MouseEventNotSynthesized)
        return true;
      break;
    default:
      break;
  }
  return PressWidget::event(event);
}

// The first finger does what the mouse does. With a second one both zoom, and what is left on the
// glass of the two afterwards means nothing.
void PictureAreaWidget::touched(const QTouchEvent& event) {
  if (event.type() == QEvent::TouchCancel) {
    touching_ = pinched_ = false;
    return cancelPress();
  }
  const bool begins = event.type() == QEvent::TouchBegin, ends = event.type() == QEvent::TouchEnd;
  std::vector<QPointF> down;
  for (const QEventPoint& each : event.points())
    if (each.state() != QEventPoint::Released) down.push_back(each.position());
  const QPointF first = event.points().first().position();
  if (begins) pinched_ = false;
  touching_ = !ends;
  if (down.size() >= 2) {
    if (!std::exchange(pinched_, true)) PressWidget::cancelPress();
    return hands_.pinch(down[0], down[1]);
  }
  if (pinched_) return meant(hands_.endPinch(), first, false);
  if (begins) {
    const bool second =
        sinceTap_.isValid() && face().touch.lastPressed == this &&
        sinceTap_.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval() &&
        QLineF(first, tappedAt_).length() < face().px(kTapsApart);
    sinceTap_.invalidate();
    return fingerDown(first, second);
  }
  ends ? fingerUp(first) : fingerMoved(first);
}

}  // namespace korvane

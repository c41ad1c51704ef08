#include "view/window/native_surface.h"

#include <xcb/shape.h>

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <cstdlib>

#include "platform/text.h"
#include "view/window/uncovered.h"

namespace korvane {
namespace {

xcb_connection_t* server() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

// Until the server has done all that it was asked. Another client, such as a player, would else be
// served first now and then, and not find the window.
void settle() {
  std::free(xcb_get_input_focus_reply(server(), xcb_get_input_focus(server()), nullptr));
}

// Of the window system, whose pixels are the screen's.
QRect onScreen(const QRect& rect, double ratio) {
  return QRect(
      QPoint(qRound(rect.left() * ratio), qRound(rect.top() * ratio)),
      QPoint(qRound((rect.right() + 1) * ratio) - 1, qRound((rect.bottom() + 1) * ratio) - 1));
}

}  // namespace

bool NativeSurface::possible() {
  return QGuiApplication::platformName() == "xcb"_L1 && server();
}

NativeSurface::NativeSurface(QWidget& on, Drawer drawer) : on_(on), drawer_(std::move(drawer)) {}

NativeSurface::~NativeSurface() {
  hide();
  if (!window_ || !qGuiApp) return;
  xcb_destroy_window(server(), window_);
  xcb_flush(server());
}

void NativeSurface::make() {
  const auto parent = static_cast<quint32>(on_.window()->winId());
  if (parent == parent_) return;
  parent_ = parent;
  window_ = xcb_generate_id(server());
  const uint32_t black = 0;
  xcb_create_window(server(), XCB_COPY_FROM_PARENT, window_, parent, 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &black);
  place_ = {};
}

void NativeSurface::show() {
  if (shown_) return;
  make();
  shown_ = true;
  follow();
  xcb_map_window(server(), window_);
  qApp->installEventFilter(this);
  settle();
  drawer_(window_);
}

void NativeSurface::hide() {
  if (!std::exchange(shown_, false)) return;
  if (qApp) qApp->removeEventFilter(this);
  drawer_(0);
  xcb_unmap_window(server(), window_);
  xcb_flush(server());
}

void NativeSurface::setPressed(bool on) {
  pressed_ = on;
  if (shown_) follow();
}

void NativeSurface::follow() {
  due_ = false;
  if (!shown_) return;
  const QRect place =
      onScreen(QRect(on_.mapTo(on_.window(), QPoint()), on_.size()), on_.devicePixelRatioF());
  if (place != std::exchange(place_, place)) {
    const uint32_t values[] = {static_cast<uint32_t>(place.x()), static_cast<uint32_t>(place.y()),
                               static_cast<uint32_t>(std::max(1, place.width())),
                               static_cast<uint32_t>(std::max(1, place.height()))};
    xcb_configure_window(server(), window_,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
  }
  const Uncovered seen = uncovered(on_);
  takes_ = pressed_ && !seen.veiled;
  shape(seen.region);
  xcb_flush(server());
}

void NativeSurface::shape(const QRegion& region) {
  std::vector<xcb_rectangle_t> rects;
  for (const QRect& each : region) {
    const QRect on = onScreen(each, on_.devicePixelRatioF());
    rects.push_back({static_cast<int16_t>(on.x()), static_cast<int16_t>(on.y()),
                     static_cast<uint16_t>(on.width()), static_cast<uint16_t>(on.height())});
  }
  const auto count = static_cast<uint32_t>(rects.size());
  xcb_shape_rectangles(server(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                       XCB_CLIP_ORDERING_UNSORTED, window_, 0, 0, count, rects.data());
  xcb_shape_rectangles(server(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                       window_, 0, 0, takes_ ? count : 0, rects.data());
}

// Hears of every widget: whatever lies above comes, goes, moves or rises by one of these.
bool NativeSurface::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::ZOrderChange:
    case QEvent::ChildRemoved:
      if (due_ || !watched->isWidgetType()) break;
      due_ = true;
      QMetaObject::invokeMethod(
          this, [this] { follow(); }, Qt::QueuedConnection);
      break;
    default:
      break;
  }
  return false;
}

}  // namespace korvane

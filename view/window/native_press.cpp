#include "view/window/native_press.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <optional>

namespace korvane {
namespace {

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> held(Reply* reply) {
  return {reply, &std::free};
}

struct Hearer {
  xcb_window_t window;
  xcb_window_t root;
  QPoint at;  // in it
};

bool hearsPresses(xcb_connection_t* server, xcb_window_t window) {
  const auto has = held(
      xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, window), nullptr));
  return has && (has->all_event_masks & XCB_EVENT_MASK_BUTTON_PRESS);
}

std::optional<Hearer> hearerAt(xcb_connection_t* server, xcb_window_t window, QPoint at) {
  const auto tree = held(xcb_query_tree_reply(server, xcb_query_tree(server, window), nullptr));
  if (!tree) return std::nullopt;
  std::optional<Hearer> deepest;
  while (window != XCB_NONE) {
    if (hearsPresses(server, window)) deepest = {window, tree->root, at};
    const auto within = [&](xcb_window_t to) {
      return held(xcb_translate_coordinates_reply(
          server,
          xcb_translate_coordinates(server, window, to, static_cast<int16_t>(at.x()),
                                    static_cast<int16_t>(at.y())),
          nullptr));
    };
    const auto here = within(window);
    const xcb_window_t child = here ? here->child : XCB_NONE;
    if (child == XCB_NONE) break;
    const auto there = within(child);
    if (!there) break;
    at = QPoint(there->dst_x, there->dst_y);
    window = child;
  }
  return deepest;
}

void send(xcb_connection_t* server, const Hearer& to, uint8_t type, uint32_t mask) {
  xcb_button_press_event_t event{};  // the three have one shape
  event.response_type = type;
  event.detail = type == XCB_MOTION_NOTIFY ? 0 : XCB_BUTTON_INDEX_1;
  event.root = to.root;
  event.event = to.window;
  event.event_x = static_cast<int16_t>(to.at.x());
  event.event_y = static_cast<int16_t>(to.at.y());
  event.state = type == XCB_BUTTON_RELEASE ? XCB_BUTTON_MASK_1 : 0;
  event.same_screen = 1;
  xcb_send_event(server, 0, to.window, mask, reinterpret_cast<const char*>(&event));
}

}  // namespace

bool pressNative(quint32 window, QPoint at) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* server = x11 ? x11->connection() : nullptr;
  if (!server) return false;
  const std::optional<Hearer> to = hearerAt(server, window, at);
  if (!to) return false;
  send(server, *to, XCB_MOTION_NOTIFY, XCB_EVENT_MASK_POINTER_MOTION);
  send(server, *to, XCB_BUTTON_PRESS, XCB_EVENT_MASK_BUTTON_PRESS);
  send(server, *to, XCB_BUTTON_RELEASE, XCB_EVENT_MASK_BUTTON_RELEASE);
  xcb_flush(server);
  return true;
}

}  // namespace korvane

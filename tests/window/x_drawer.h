// Another client of the X server, which draws by itself into a window that it was given, as a
// player does: a green window over all of it that takes presses.
#pragma once

#include <xcb/xcb.h>

#include <QPoint>
#include <QStringList>
#include <memory>

namespace korvane {

class XDrawer {
 public:
  ~XDrawer() { xcb_disconnect(server_); }

  void draw(quintptr into) {
    given << into;
    if (into == 0) return;
    window_ = xcb_generate_id(server_);
    const uint32_t values[] = {0x00ff00,
                               XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_POINTER_MOTION};
    xcb_create_window(server_, XCB_COPY_FROM_PARENT, window_, static_cast<xcb_window_t>(into), 0, 0,
                      2000, 2000, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    xcb_map_window(server_, window_);
    sync();
  }

  // The presses that it has got, as "x,y" in its window.
  QStringList presses() {
    sync();
    QStringList got;
    while (const auto event = held(xcb_poll_for_event(server_))) {
      if ((event->response_type & 0x7f) != XCB_BUTTON_PRESS) continue;
      const auto* press = reinterpret_cast<const xcb_button_press_event_t*>(event.get());
      got << QString::number(press->event_x) + u',' + QString::number(press->event_y);
    }
    return got;
  }

  // Whether a finger at that point of the screen would press its window.
  bool underFinger(QPoint at) {
    xcb_window_t window = xcb_setup_roots_iterator(xcb_get_setup(server_)).data->root;
    xcb_warp_pointer(server_, XCB_NONE, window, 0, 0, 0, 0, static_cast<int16_t>(at.x()),
                     static_cast<int16_t>(at.y()));
    for (xcb_window_t next = window; next != XCB_NONE;) {
      window = next;
      const auto pointer =
          held(xcb_query_pointer_reply(server_, xcb_query_pointer(server_, window), nullptr));
      next = pointer ? pointer->child : XCB_NONE;
    }
    return window == window_;
  }

  QList<quintptr> given;  // the windows that came, in order

 private:
  template <class Reply>
  static std::unique_ptr<Reply, decltype(&::free)> held(Reply* reply) {
    return {reply, &::free};
  }
  void sync() { held(xcb_get_input_focus_reply(server_, xcb_get_input_focus(server_), nullptr)); }

  xcb_connection_t* server_ = xcb_connect(nullptr, nullptr);
  xcb_window_t window_ = XCB_NONE;
};

}  // namespace korvane

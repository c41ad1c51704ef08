#include "platform/machine/window_raiser.h"

#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace korvane {
namespace {

constexpr uint32_t kMostWindows = 4096;
constexpr uint32_t kFromAPager = 2;  // source indication: the user's own wish

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
  return {reply, &std::free};
}

class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_)) return;
    const xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    if (screens.rem > 0) root_ = screens.data->root;
  }
  ~Display() { xcb_disconnect(connection_); }
  Display(const Display&) = delete;

  bool open() const { return root_ != XCB_NONE; }

  // The windows that a window manager lists, in the order of their birth; without one, those on the
  // root, from the bottom up.
  std::vector<xcb_window_t> windows() const {
    std::vector<uint32_t> managed = property(root_, "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    if (!managed.empty()) return managed;
    const auto tree =
        owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
    if (!tree) return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
  }

  int processOf(xcb_window_t window) const {
    const std::vector<uint32_t> found = property(window, "_NET_WM_PID", XCB_ATOM_CARDINAL);
    return found.empty() ? 0 : static_cast<int>(found[0]);
  }

  void activate(xcb_window_t window) const {
    if (!property(root_, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW).empty()) {
      xcb_client_message_event_t wish{};
      wish.response_type = XCB_CLIENT_MESSAGE;
      wish.format = 32;
      wish.window = window;
      wish.type = atom("_NET_ACTIVE_WINDOW");
      wish.data.data32[0] = kFromAPager;
      char event[32] = {};
      std::memcpy(event, &wish, sizeof wish);
      xcb_send_event(connection_, 0, root_,
                     XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                     event);
    } else {
      const uint32_t above = XCB_STACK_MODE_ABOVE;
      xcb_map_window(connection_, window);
      xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
      xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    }
    // The answer comes after the wish was carried out; a connection that ends before may lose it.
    owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }

 private:
  xcb_atom_t atom(const char* name) const {
    const auto reply = owned(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  std::vector<uint32_t> property(xcb_window_t window, const char* name, xcb_atom_t type) const {
    const auto reply = owned(xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 0, window, atom(name), type, 0, kMostWindows),
        nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + xcb_get_property_value_length(reply.get()) / 4};
  }

  xcb_connection_t* connection_;
  xcb_window_t root_ = XCB_NONE;
};

}  // namespace

bool raiseWindowOf(int process) {
  const Display display;
  if (!display.open()) return false;
  std::vector<xcb_window_t> windows = display.windows();
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    const int owner = display.processOf(*window);
    // A starter that stays in the background leaves its window to a child of its own session.
    if (owner <= 0 || (owner != process && getsid(owner) != process)) continue;
    display.activate(*window);
    return true;
  }
  return false;
}

}  // namespace korvane

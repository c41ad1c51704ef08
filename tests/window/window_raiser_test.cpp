// Windows of "another program" on the real display: made by bare XCB, owned by this process.
#include <gtest/gtest.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "platform/machine/window_raiser.h"

namespace korvane {
namespace {

class XWindows : public testing::Test {
 protected:
  XWindows() { root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root; }
  ~XWindows() override { xcb_disconnect(connection_); }

  xcb_window_t make(uint32_t owner) {
    const xcb_window_t window = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root_, 10, 10, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    if (owner != 0) {
      const auto atom = xcb_intern_atom_reply(
          connection_, xcb_intern_atom(connection_, 0, 11, "_NET_WM_PID"), nullptr);
      xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom->atom, XCB_ATOM_CARDINAL,
                          32, 1, &owner);
      ::free(atom);
    }
    made_.push_back(window);
    xcb_map_window(connection_, window);
    topmost();  // its answer comes after all that was asked before
    return window;
  }
  // Of the windows made here: another program may open one meanwhile.
  xcb_window_t topmost() {
    auto* tree = xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr);
    const xcb_window_t* children = xcb_query_tree_children(tree);
    xcb_window_t top = XCB_NONE;
    for (int i = 0; i < xcb_query_tree_children_length(tree); ++i)
      if (std::ranges::count(made_, children[i]) > 0) top = children[i];
    ::free(tree);
    return top;
  }

 private:
  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
  xcb_window_t root_ = XCB_NONE;
  std::vector<xcb_window_t> made_;
};

TEST_F(XWindows, TheOneOfTheProcessComesToTheFront) {
  const auto owner = static_cast<uint32_t>(getpid());
  const xcb_window_t wanted = make(owner), other = make(0), foreign = make(1);
  EXPECT_FALSE(raiseWindowOf(1 << 22)) << "a process without one";
  ASSERT_EQ(topmost(), foreign);
  EXPECT_TRUE(raiseWindowOf(getpid()));
  EXPECT_EQ(topmost(), wanted) << other;
}

}  // namespace
}  // namespace korvane

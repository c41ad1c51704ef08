// Windows of other programs on an X display: found by _NET_WM_PID, brought to the front through the
// window manager by _NET_ACTIVE_WINDOW (Extended Window Manager Hints 1.5), or, where none runs, by
// the X server itself.
#pragma once

namespace korvane {

// False when there is no X display or the process, or a child of its session, shows no window.
bool raiseWindowOf(int process);

}  // namespace korvane

// A press on a player's native window, for the control socket.
#pragma once

#include <QPoint>

namespace korvane {

// A move to `at`, in the screen's pixels within the window, a press and its release, sent by the
// window system to whoever hears presses there: in `window` or, before that, in the deepest of its
// children at the point. False when nobody does. Nothing says whether it was taken.
bool pressNative(quint32 window, QPoint at);

}  // namespace korvane

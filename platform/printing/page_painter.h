// A picture on the one page of a print device. Any thread; there must be a QGuiApplication.
#pragma once

#include <QPagedPaintDevice>

#include "platform/printing.h"

namespace korvane {

// Draws it in the device's own resolution, and no finer: pixels beyond that are left out. The
// device shows the full page, without margins of its own. False when the device refuses.
bool paintPage(QPagedPaintDevice& device, const Printing::Placed& picture);

}  // namespace korvane

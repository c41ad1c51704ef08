// Controls and lists as JSON, for those who watch the console from outside.
#pragma once

#include <QJsonObject>

#include "view/window/form_view.h"

namespace korvane {

// name, index, kind, visible, enabled, caption, tag, picture ("group/name"), rect (form units),
// pixels (of the window), cut (a text that ends in dots) and what its kind has: value, minimum,
// maximum, text, checked, row, topRow, rows...
// Of a surface: frame (width and height of the newest one, 0 without), frames (painted so far) and
// native (a player draws by itself). Of a picture area: frame (of decoded pixels, 0 without),
// beside, zoom, fitted, middle and hand. A widget may be missing.
QJsonObject describe(const Control& control, const ControlWidget* widget);

// `count` rows from `from` on, at most 1000: their cells, hidden ones included.
QJsonArray describeRows(const Grid& grid, int from, int count);

// The same of cells, which count from 0: row, caption and back.
QJsonArray describeCells(const Sheet& sheet, int from, int count);

const char* kindName(Kind kind);  // its word in the JSON

}  // namespace korvane

// Text functions as the statements and the tag fields mean them: only the blank is trimmed.
#pragma once

#include "core/conversions.h"

namespace korvane {

QString fixSingleQuote(const QString& text);  // every ' doubled, then trimmed
QString fixDoubleQuote(const QString& text);  // every " turned into ', then trimmed

// The first `width` characters; never half of a surrogate pair.
QString cut(const QString& text, int width);

}  // namespace korvane

// The disc identifier that all databases of names have for their key: eight hexadecimal digits.
#pragma once

#include <span>

#include "platform/text.h"

namespace korvane {

// `frames`: the starts of the tracks and of the lead-out, in frames of 1/75 s with the lead-in.
// Two things differ from how other writers define it, and every stored identifier relies on them:
// the sum of digits is taken modulo 255, and its seconds include the lead-in. Lower case; longer
// than eight digits where the addresses make no sense, empty without any.
QByteArray discIdentifier(std::span<const int> frames);

}  // namespace korvane

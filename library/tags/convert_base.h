// convertBase: a number written in another base.
#pragma once

#include "platform/text.h"

namespace korvane {

// `number` of base `fromBase` in base `toBase`, both from 2 to 36, letters for digits above 9. In
// base 2 at least eight digits. "Error" for anything that is no such number, or one over 64 bits.
QString convertBase(const QString& number, int fromBase, int toBase);

}  // namespace korvane

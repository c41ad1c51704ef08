// The choice of an action for an owner's button: the entries of customSelect, a word in the first
// 14 characters and its meaning behind.
#pragma once

#include "core/button_words.h"

namespace korvane {

// In the order of the words; one without a meaning is left out.
QStringList customSelectEntries(const ButtonWords& words);

}  // namespace korvane

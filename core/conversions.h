// Texts of the settings and files into numbers, and numbers into whole ones. A number is written
// with a point, whatever the machine's language; "&H" and "&O" begin a hexadecimal and an octal
// one.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

// Both ends without their blanks. Only the blank is cut, no tab.
QString trimBlanks(QStringView text);

// The number that a text begins with; 0 for none, and for one that no double holds. Blanks, tabs
// and line feeds count nowhere, so "1 2" is 12. An exponent follows E or D. A hexadecimal or octal
// number of up to 16 bits is a signed one of 16 bits, a larger one of 32, unless '&' follows:
// &HFFFF is -1, &HFFFF& is 65535.
double val(QStringView text);

// The number that a whole text stands for, blanks around it apart; nothing for any other text, so
// none for "1 2", "4 px", "nan" or what no double holds.
std::optional<double> numeric(QStringView text);
inline bool isNumeric(QStringView text) {
  return numeric(text).has_value();
}

// The nearest whole number, the even one of two that are as near: 12.5 is 12, 13.5 is 14. Kept
// within int; 0 for what is no number.
int toInteger(double number);

}  // namespace korvane

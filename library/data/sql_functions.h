// What the statements' functions mean: mid and like as in Jet; iif and trim are SQLite's own.
#pragma once

#include <sqlite3.h>

#include <QByteArrayView>
#include <string>
#include <string_view>

namespace korvane::sql {

// Adds the collation TEXTORDER and the functions mid(text, start [, length]) and like(pattern,
// text).
void addFunctions(sqlite3* db);

// The `length` characters from `start` on, counted from 1 in UTF-16 units, of a UTF-8 text.
std::string_view mid(std::string_view text, int start, int length);

// The title rule of the statements on UTF-8: see songTitleShown.
std::string_view shownTitle(std::string_view title);

// '%' stands for any text, '_' for one character, letters in any case. Not for large patterns:
// takes at most pattern times text steps.
bool like(std::string_view pattern, std::string_view text);

// like("%" + text + "%", ...) for many texts: quick for nearly all.
class Containing {
 public:
  explicit Containing(std::string text);
  bool in(std::string_view text) const;
  bool in(QByteArrayView text) const { return in(std::string_view(text.data(), text.size())); }

 private:
  std::string pattern_;
  std::string plain_;  // in lower case; empty when the pattern decides
  bool foldedTo_ = false, beyondAscii_ = false;
};

}  // namespace korvane::sql

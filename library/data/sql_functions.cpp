#include "library/data/sql_functions.h"

#include <QChar>
#include <algorithm>
#include <climits>

#include "library/data/text_order.h"

namespace korvane::sql {
namespace {

using Byte = unsigned char;

std::string_view argument(sqlite3_value* value) {
  const auto* data = static_cast<const char*>(sqlite3_value_blob(value));
  return {data ? data : "", data ? static_cast<size_t>(sqlite3_value_bytes(value)) : 0};
}

// Bytes of the UTF-8 character at the front; a stray byte is one of its own.
size_t characterLength(std::string_view text) {
  const auto lead = static_cast<Byte>(text.front());
  const size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  for (size_t i = 1; i < length; ++i)
    if (i >= text.size() || (static_cast<Byte>(text[i]) & 0xC0) != 0x80) return 1;
  return length;
}

size_t offsetOf(std::string_view text, int units) {
  size_t at = 0;
  while (units > 0 && at < text.size()) {
    const size_t length = characterLength(text.substr(at));
    units -= length == 4 ? 2 : 1;
    at += length;
  }
  return at;
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

char32_t folded(std::string_view character) {
  const auto lead = static_cast<Byte>(character[0]);
  if (lead < 0x80) return lead >= 'A' && lead <= 'Z' ? lead + 32U : lead;
  if (character.size() == 1) return 0x110000U + lead;
  char32_t code = lead & (0xFFU >> (character.size() + 1));
  for (size_t i = 1; i < character.size(); ++i)
    code = code << 6 | (static_cast<Byte>(character[i]) & 0x3FU);
  return QChar::toCaseFolded(code);
}

void midFunction(sqlite3_context* context, int count, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  const int length = count > 2 ? sqlite3_value_int(values[2]) : INT_MAX;
  const auto part = mid(argument(values[0]), sqlite3_value_int(values[1]), length);
  sqlite3_result_text(context, part.data(), static_cast<int>(part.size()), SQLITE_TRANSIENT);
}

void likeFunction(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL)
    return;
  sqlite3_result_int(context, like(argument(values[0]), argument(values[1])));
}

int collate(void*, int aSize, const void* a, int bSize, const void* b) {
  return text_order::compare({static_cast<const char*>(a), static_cast<size_t>(aSize)},
                             {static_cast<const char*>(b), static_cast<size_t>(bSize)});
}

}  // namespace

std::string_view mid(std::string_view text, int start, int length) {
  if (start < 1 || length < 1) return text.substr(0, 0);
  text.remove_prefix(offsetOf(text, start - 1));
  return length == INT_MAX ? text : text.substr(0, offsetOf(text, length));
}

std::string_view shownTitle(std::string_view title) {
  if (mid(title, 4, 1) == "-") title = mid(title, 5, INT_MAX);
  while (title.starts_with(' ')) title.remove_prefix(1);
  while (title.ends_with(' ')) title.remove_suffix(1);
  return title;
}

bool like(std::string_view pattern, std::string_view text) {
  size_t p = 0, t = 0;
  size_t afterAny = std::string_view::npos, resume = 0;
  while (t < text.size()) {
    const size_t step = characterLength(text.substr(t));
    if (p < pattern.size() && pattern[p] == '%') {
      afterAny = ++p;
      resume = t;
      continue;
    }
    if (p < pattern.size()) {
      const size_t wanted = characterLength(pattern.substr(p));
      if (pattern[p] == '_' || folded(pattern.substr(p, wanted)) == folded(text.substr(t, step))) {
        p += wanted;
        t += step;
        continue;
      }
    }
    if (afterAny == std::string_view::npos) return false;
    resume += characterLength(text.substr(resume));
    t = resume;
    p = afterAny;
  }
  while (p < pattern.size() && pattern[p] == '%') ++p;
  return p == pattern.size();
}

Containing::Containing(std::string text) : pattern_('%' + text + '%') {
  const auto plain = [](char c) { return c > 0x1F && c < 0x7F && c != '%' && c != '_'; };
  for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(characterLength(rest)))
    beyondAscii_ |= folded(rest.substr(0, characterLength(rest))) > 0x7F;
  if (!std::all_of(text.begin(), text.end(), plain)) return;
  // The Kelvin sign and the long s fold to k and s.
  foldedTo_ = text.find_first_of("kKsS") != std::string::npos;
  plain_ = std::move(text);
  for (char& c : plain_) c = lower(c);
}

bool Containing::in(std::string_view text) const {
  const auto ascii = [text] {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
  };
  if (plain_.empty()) return !(beyondAscii_ && ascii()) && like(pattern_, text);
  for (size_t at = 0; at + plain_.size() <= text.size(); ++at) {
    size_t same = 0;
    while (same < plain_.size() && lower(text[at + same]) == plain_[same]) ++same;
    if (same == plain_.size()) return true;
  }
  return foldedTo_ && !ascii() && like(pattern_, text);
}

void addFunctions(sqlite3* db) {
  constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  sqlite3_create_collation_v2(db, "TEXTORDER", SQLITE_UTF8, nullptr, collate, nullptr);
  sqlite3_create_function(db, "mid", 2, kPure, nullptr, midFunction, nullptr, nullptr);
  sqlite3_create_function(db, "mid", 3, kPure, nullptr, midFunction, nullptr, nullptr);
  sqlite3_create_function(db, "like", 2, kPure, nullptr, likeFunction, nullptr, nullptr);
}

}  // namespace korvane::sql

// The one ordering of texts: by the root collation of Unicode, blind to case, seeing accents. Total
// and the same everywhere: the database's columns, the lists and the look-up of a typed text use
// it.
//
// Texts are UTF-8; ill-formed bytes order as U+FFFD. All functions may be called from any thread.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace korvane::text_order {

// Less than, equal to or greater than 0.
int compare(std::string_view a, std::string_view b);

// The first 16 bytes of a text's sort key, padded with zeros. key(a) < key(b) means that a comes
// before b; equal keys decide nothing unless isWhole.
struct Key {
  uint64_t high = 0, low = 0;
  auto operator<=>(const Key&) const = default;
  // The 16 bytes hold the whole sort key: texts with this key are equal in order.
  bool isWhole() const { return (low & 0xFF) == 0; }
};
Key key16(std::string_view text);

// A number that changes when the order may have changed: what was sorted under another is void.
uint32_t version();

}  // namespace korvane::text_order

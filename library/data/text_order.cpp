#include "library/data/text_order.h"

#include <unicode/ucol.h>
#include <unicode/uiter.h>
#include <unicode/ustring.h>

#include <array>
#include <bit>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace korvane::text_order {
namespace {

using Byte = unsigned char;

// What an ASCII character adds to a sort key. Two lead bytes are never each other's prefix, so the
// weights of two characters compare as their bytes do. 0: the character does not count.
struct Ascii {
  std::array<uint16_t, 128> weight{};

  static int length(uint16_t weight) { return weight & 0xFF ? 2 : 1; }
};

constexpr Byte kLevelSeparator = 0x01;
constexpr Byte kCommonSecondary =
    0x04;  // plus how many characters count: one byte for up to 16 bytes

const UCollator* collator() {
  static const UCollator* const made = [] {
    UErrorCode error = U_ZERO_ERROR;
    UCollator* root = ucol_open("", &error);
    if (U_FAILURE(error)) throw std::runtime_error("The Unicode collation data cannot be opened.");
    ucol_setStrength(root, UCOL_SECONDARY);
    ucol_setAttribute(root, UCOL_NORMALIZATION_MODE, UCOL_ON, &error);
    return root;
  }();
  return made;
}

const Ascii& ascii() {
  static const Ascii table = [] {
    Ascii made;
    for (size_t c = 0; c < made.weight.size(); ++c) {
      const UChar unit = static_cast<UChar>(c);
      std::array<Byte, 16> key{};
      ucol_getSortKey(collator(), &unit, 1, key.data(), static_cast<int>(key.size()));
      if (key[0] == kLevelSeparator) continue;
      const Byte second = key[1] == kLevelSeparator ? Byte{0} : key[1];
      made.weight[c] = static_cast<uint16_t>(key[0] << 8 | second);
    }
    return made;
  }();
  return table;
}

int compareByCollator(std::string_view a, std::string_view b) {
  UErrorCode error = U_ZERO_ERROR;
  return ucol_strcollUTF8(collator(), a.data(), static_cast<int>(a.size()), b.data(),
                          static_cast<int>(b.size()), &error);
}

bool isAscii(std::string_view text, size_t at) {
  return at >= text.size() || static_cast<Byte>(text[at]) < 0x80;
}

size_t commonPrefix(std::string_view a, std::string_view b) {
  const size_t size = std::min(a.size(), b.size());
  size_t at = 0;
  for (uint64_t left, right; at + 8 <= size; at += 8) {
    std::memcpy(&left, a.data() + at, 8);
    std::memcpy(&right, b.data() + at, 8);
    if (left != right) break;
  }
  while (at < size && a[at] == b[at]) ++at;
  return at;
}

Key packed(const std::array<Byte, 16>& bytes) {
  Key key;
  std::memcpy(&key.high, bytes.data(), 8);
  std::memcpy(&key.low, bytes.data() + 8, 8);
  if constexpr (std::endian::native == std::endian::little) {
    key.high = __builtin_bswap64(key.high);
    key.low = __builtin_bswap64(key.low);
  }
  return key;
}

Key keyByCollator(std::string_view text) {
  UErrorCode error = U_ZERO_ERROR;
  std::vector<UChar> units(text.size() + 1);
  int32_t length = 0;
  u_strFromUTF8WithSub(units.data(), static_cast<int>(units.size()), &length, text.data(),
                       static_cast<int>(text.size()), 0xFFFD, nullptr, &error);
  std::array<Byte, 16> bytes{};
  ucol_getSortKey(collator(), units.data(), length, bytes.data(), static_cast<int>(bytes.size()));
  return packed(bytes);
}

}  // namespace

int compare(std::string_view a, std::string_view b) {
  const auto& weight = ascii().weight;
  // What both begin with decides nothing, unless the collation must see it whole.
  size_t i = commonPrefix(a, b), j = i;
  for (;;) {
    uint16_t left = 0, right = 0;
    for (; left == 0 && i < a.size(); ++i) {
      if (static_cast<Byte>(a[i]) >= 0x80) return compareByCollator(a, b);
      left = weight[static_cast<Byte>(a[i])];
    }
    for (; right == 0 && j < b.size(); ++j) {
      if (static_cast<Byte>(b[j]) >= 0x80) return compareByCollator(a, b);
      right = weight[static_cast<Byte>(b[j])];
    }
    if (left == right && left == 0) return 0;
    if (left == right) continue;
    // What follows may change the character at hand: "l" before a middle dot sorts as one with it.
    if (!isAscii(a, i) || !isAscii(b, j)) return compareByCollator(a, b);
    return left < right ? -1 : 1;
  }
}

Key key16(std::string_view text) {
  const auto& weight = ascii().weight;
  std::array<Byte, 16> bytes{};
  size_t used = 0;
  int counting = 0;
  const auto put = [&](unsigned value) {
    if (used < bytes.size()) bytes[used++] = static_cast<Byte>(value);
  };
  for (size_t i = 0; i < text.size() && used < bytes.size(); ++i) {
    if (!isAscii(text, i) || !isAscii(text, i + 1)) return keyByCollator(text);
    const uint16_t next = weight[static_cast<Byte>(text[i])];
    if (next == 0) continue;
    ++counting;
    put(next >> 8);
    if (Ascii::length(next) == 2) put(next & 0xFF);
  }
  if (used == bytes.size()) return packed(bytes);
  put(kLevelSeparator);
  if (counting > 0) put(static_cast<unsigned>(kCommonSecondary + counting));
  return packed(bytes);
}

uint32_t version() {
  UVersionInfo icu, unicode;
  u_getVersion(icu);
  u_getUnicodeVersion(unicode);
  constexpr uint32_t kOwn = 1;  // of the attributes set above
  return static_cast<uint32_t>(icu[0]) << 24 | static_cast<uint32_t>(icu[1]) << 16 |
         static_cast<uint32_t>(unicode[0]) << 8 | kOwn;
}

}  // namespace korvane::text_order

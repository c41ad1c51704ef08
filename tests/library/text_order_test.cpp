#include "library/data/text_order.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <random>

#include "platform/text.h"

namespace korvane {
namespace {

int sign(int number) {
  return (number > 0) - (number < 0);
}

// The collation asked directly.
class Reference {
 public:
  Reference() : root_(ucol_open("", &error_)) {
    ucol_setStrength(root_, UCOL_SECONDARY);
    ucol_setAttribute(root_, UCOL_NORMALIZATION_MODE, UCOL_ON, &error_);
  }
  ~Reference() { ucol_close(root_); }
  int compare(const std::string& a, const std::string& b) {
    return ucol_strcollUTF8(root_, a.data(), static_cast<int>(a.size()), b.data(),
                            static_cast<int>(b.size()), &error_);
  }

 private:
  UErrorCode error_ = U_ZERO_ERROR;
  UCollator* root_;
};

std::string randomText(std::mt19937& random) {
  static const char* const strange[] = {"é",        "É", "ß",          "Ω", "日",
                                        "\xCC\x81", "·", "\U0001F3B5", "l", "\x01"};
  std::string text;
  const auto pick = [&](size_t below) { return random() % below; };
  const size_t length = pick(24), strangeness = pick(3) == 0 ? 6 : 1000;
  const bool fewLetters = pick(2) == 0;
  for (size_t i = 0; i < length; ++i) {
    if (pick(strangeness) == 0)
      text += strange[pick(std::size(strange))];
    else
      text += static_cast<char>(fewLetters ? "abAB -'!"[pick(8)] : static_cast<int>(pick(128)));
  }
  return text;
}

TEST(TextOrder, AgreesWithTheCollationOnRandomTexts) {
  Reference reference;
  std::mt19937 random(20);
  std::string previous;
  int toldByTheirKeys = 0;
  for (int i = 0; i < 200000; ++i) {
    const std::string text = randomText(random);
    const int order = sign(reference.compare(previous, text));
    const auto a = text_order::key16(previous), b = text_order::key16(text);
    ASSERT_EQ(sign(text_order::compare(previous, text)), order) << previous << " : " << text;
    ASSERT_EQ(sign(text_order::compare(text, previous)), -order) << previous << " : " << text;
    if (a != b) {
      ++toldByTheirKeys;
      ASSERT_EQ(a < b, order < 0) << previous << " : " << text;
    } else if (a.isWhole()) {
      ASSERT_EQ(order, 0) << previous << " : " << text;
    }
    previous = text;
  }
  EXPECT_GT(toldByTheirKeys, 150000);
}

TEST(TextOrder, OrdersIllFormedBytesWithoutHarm) {
  const std::string bad[] = {"\xFF", "a\xC3", "\xED\xA0\x80", "\xF8\x80\x80\x80",
                             std::string("a\0b", 3)};
  for (const auto& a : bad)
    for (const auto& b : bad) {
      EXPECT_EQ(sign(text_order::compare(a, b)), -sign(text_order::compare(b, a)));
      if (text_order::key16(a) < text_order::key16(b)) {
        EXPECT_LT(text_order::compare(a, b), 0);
      }
    }
}

}  // namespace
}  // namespace korvane

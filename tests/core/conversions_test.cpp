#include "core/conversions.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

constexpr auto kNone = std::nullopt;

TEST(Conversions, TextsAreTheNumberTheyBeginWithOrTheNumberTheyAre) {
  const struct {
    QString text;
    double begins;
    std::optional<double> is;
  } table[] = {
      {u"12"_s, 12, 12},
      {u" -4 "_s, -4, -4},
      {u"+.5"_s, 0.5, 0.5},
      {u"1e5"_s, 100000, 100000},
      {u"1D-2"_s, 0.01, 0.01},
      {u"&HFF"_s, 255, 255},
      {u"&hffff"_s, -1, -1},  // 16 bits
      {u"&HFFFF&"_s, 65535, 65535},
      {u"&HFFFFFFFF"_s, -1, -1},
      {u"&O17"_s, 15, 15},
      {u"\t1\n2"_s, 12, kNone},
      {u"12abc"_s, 12, kNone},
      {u"1e+"_s, 1, kNone},
      {u"-3.5e1x"_s, -35, kNone},
      {u"1,5"_s, 1, kNone},
      {u"&HG"_s, 0, kNone},
      {u"&H1FFFFFFFF"_s, 0, kNone},  // over 32 bits
      {u"."_s, 0, kNone},
      {u"1e999"_s, 0, kNone},
      {u"nan"_s, 0, kNone},
      {u"\u0663"_s, 0, kNone},  // a digit, but none of ours
      {u"  "_s, 0, kNone},
  };
  for (const auto& [text, begins, is] : table) {
    EXPECT_DOUBLE_EQ(val(text), begins) << text.toStdString();
    EXPECT_EQ(numeric(text), is) << text.toStdString();
  }
}

TEST(Conversions, AHalfGoesToTheEvenNumber) {
  const std::pair<double, int> table[] = {{12.5, 12},       {13.5, 14},        {-0.5, 0},
                                          {-1.5, -2},       {0.4999, 0},       {2.51, 3},
                                          {1e300, INT_MAX}, {-1e300, INT_MIN}, {std::nan(""), 0}};
  for (const auto& [number, whole] : table) EXPECT_EQ(toInteger(number), whole) << number;
}

TEST(Conversions, OnlyBlanksAreCut) {
  EXPECT_EQ(trimBlanks(u"  a b  "), u"a b"_s);
  EXPECT_EQ(trimBlanks(u" \ta\t "), u"\ta\t"_s);
}

}  // namespace
}  // namespace korvane

#include "custom/keyboard/send_keys.h"

#include <gtest/gtest.h>

#include "custom/keyboard/key_logic.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(SendKeys, BracesAreReadBack) {
  const struct {
    QString keys;
    std::optional<std::vector<KeyStroke>> strokes;
  } cases[] = {
      {u""_s, std::vector<KeyStroke>{}},
      {u"aB"_s, {{{0, u"a"_s}, {0, u"B"_s}}}},
      {u"{TAB}x"_s, {{{9, u"\t"_s}, {0, u"x"_s}}}},
      {u"{{}{}}"_s, {{{0, u"{"_s}, {0, u"}"_s}}}},
      {u"{%}{DEL}"_s, {{{0, u"%"_s}, {46, QString()}}}},
      {QString::fromUtf8("\U0001F3B5"), {{{0, QString::fromUtf8("\U0001F3B5")}}}},
      {u"{"_s, std::nullopt},
      {u"{}"_s, std::nullopt},
      {u"{NONE}"_s, std::nullopt},
      {u"a{DEL"_s, std::nullopt},
  };
  for (const auto& [keys, strokes] : cases)
    EXPECT_EQ(keyStrokes(keys), strokes) << keys.toStdString();
}

// The characters that SendKeys would take for something else stand in braces.
TEST(SendKeys, EveryKeyTypesWhatStandsOnIt) {
  const KeyboardLayout us = sendingKeyboard(usKeyboard());
  const struct {
    int code;
    const char* keys;
  } braces[] = {{6, "{%}"}, {7, "{^}"}, {10, "{(}"}, {11, "{)}"}, {26, "{{}"}, {27, "{}}"}};
  for (const auto& [code, keys] : braces)
    EXPECT_EQ(braced(typed(*us.key(code), true)), QLatin1StringView(keys));
  for (const Key& key : us.keys)
    for (const bool shifted : {false, true}) {
      const QString character = typed(key, shifted);
      if (character.isEmpty()) continue;
      const auto strokes = keyStrokes(braced(character));
      ASSERT_TRUE(strokes && strokes->size() == 1) << key.code;
      EXPECT_EQ(strokes->front().text, character);
    }
}

}  // namespace
}  // namespace korvane

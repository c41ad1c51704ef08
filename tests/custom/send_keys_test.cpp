#include "custom/keyboard/send_keys.h"

#include <gtest/gtest.h>

#include "custom/keyboard/key_logic.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

TEST(SendKeys, BracesAreReadBack) {
  const std::pair<QString, std::vector<KeyStroke>> cases[] = {
      {u""_s, {}},
      {u"aB"_s, {{0, u"a"_s}, {0, u"B"_s}}},
      {u"{TAB}x"_s, {{9, u"\t"_s}, {0, u"x"_s}}},
      {u"{%}{DEL}"_s, {{0, u"%"_s}, {46, QString()}}},
      {QString::fromUtf8("\U0001F3B5"), {{0, QString::fromUtf8("\U0001F3B5")}}}};
  for (const auto& [keys, strokes] : cases)
    EXPECT_EQ(keyStrokes(keys), strokes) << keys.toStdString();
  for (const QString& none : {u"{"_s, u"{}"_s, u"{NONE}"_s, u"a{DEL"_s})
    EXPECT_EQ(keyStrokes(none), std::nullopt) << none.toStdString();
}

// The characters that SendKeys would take for something else stand in braces.
TEST(SendKeys, EveryKeyTypesWhatStandsOnIt) {
  const KeyboardLayout us = sendingKeyboard(usKeyboard());
  const std::pair<int, const char*> braces[] = {{6, "{%}"},  {7, "{^}"},  {10, "{(}"},
                                                {11, "{)}"}, {26, "{{}"}, {27, "{}}"}};
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

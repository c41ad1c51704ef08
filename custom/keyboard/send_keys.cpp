#include "custom/keyboard/send_keys.h"

namespace korvane {
namespace {

struct Named {
  int code;
  const char* name;
  int key;
  const char* text;
};

constexpr Named kNamed[] = {
    {scan::Backspace, "{BACKSPACE}", 8, "\b"},
    {scan::Tab, "{TAB}", 9, "\t"},
    {scan::Enter, "{ENTER}", 13, "\r"},
    {scan::Home, "{HOME}", 36, ""},
    {scan::Up, "{UP}", 38, ""},
    {scan::Left, "{LEFT}", 37, ""},
    {scan::Right, "{RIGHT}", 39, ""},
    {scan::End, "{END}", 35, ""},
    {scan::Down, "{DOWN}", 40, ""},
    {scan::Insert, "{INSERT}", 45, ""},
    {scan::Delete, "{DEL}", 46, ""},
};

// Modifiers, groups and the braces themselves.
constexpr QStringView kSpecial = u"+^%~(){}[]";

std::optional<KeyStroke> inBraces(const QString& braces) {
  for (const Named& named : kNamed)
    if (braces == QLatin1StringView(named.name))
      return KeyStroke{named.key, QString::fromLatin1(named.text)};
  if (braces.size() == 3) return KeyStroke{0, braces.mid(1, 1)};
  return std::nullopt;
}

}  // namespace

QString namedKey(int code) {
  const auto found = std::ranges::find(kNamed, code, &Named::code);
  return found == std::end(kNamed) ? QString() : QString::fromLatin1(found->name);
}

QString braced(const QString& character) {
  const bool special = character.size() == 1 && kSpecial.contains(character[0]);
  return special ? u'{' + character + u'}' : character;
}

std::optional<std::vector<KeyStroke>> keyStrokes(const QString& keys) {
  std::vector<KeyStroke> strokes;
  for (qsizetype at = 0; at < keys.size();) {
    if (keys[at] == u'{') {
      const qsizetype close = keys.indexOf(u'}', at + 2);  // "{}}" is a brace
      const auto stroke = close < 0 ? std::nullopt : inBraces(keys.mid(at, close + 1 - at));
      if (!stroke) return std::nullopt;
      strokes.push_back(*stroke);
      at = close + 1;
      continue;
    }
    const bool pair = keys[at].isHighSurrogate() && at + 1 < keys.size();
    strokes.push_back({0, keys.mid(at, pair ? 2 : 1)});
    at += pair ? 2 : 1;
  }
  return strokes;
}

}  // namespace korvane

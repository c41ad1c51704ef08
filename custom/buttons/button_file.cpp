#include "custom/buttons/button_file.h"

#include <charconv>
#include <cmath>

#include "platform/path_text.h"
#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr char kSeparator[] = "@@#", kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int kFields = 7;
constexpr float kFarthest = 10'000;  // units from the surface's corner
constexpr float kLeastSize = 8, kLargestSize = 4'000, kLeastFont = 1, kLargestFont = 200;

QList<QByteArray> fieldsOf(const QByteArray& line) {
  QList<QByteArray> fields;
  qsizetype from = 0;
  for (qsizetype at; (at = line.indexOf(kSeparator, from)) >= 0; from = at + 3)
    fields << line.sliced(from, at - from);
  return fields << line.sliced(from);
}

// The number within its limits; false for anything else, also "nan" and an exponent's overflow.
bool readNumber(QByteArray text, float low, float high, float* number) {
  text = text.trimmed();
  if (text.count(',') == 1 && !text.contains('.')) text.replace(',', '.');
  bool good = false;
  *number = text.toFloat(&good);  // of the C locale
  return good && std::isfinite(*number) && *number >= low && *number <= high;
}

QByteArray numberText(float number) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed).ptr;
  return QByteArray(text, end - text);
}

QString readAction(const QByteArray& bytes) {
  const QString text = QString::fromUtf8(bytes);
  return bytes.isValidUtf8() && fromPath(text) == bytes ? text : toPath(bytes);
}

QByteArray captionBytes(const CustomButton& button) {
  const QByteArray narrow = toWindows1252(button.caption);
  const bool comesBack = isWindows1252(button.caption) && !narrow.isValidUtf8();
  return button.windows1252 && comesBack ? narrow : button.caption.toUtf8();
}

// What is wrong with the line; empty when it is a button.
QString readLine(const QByteArray& line, CustomButton* button) {
  const QList<QByteArray> fields = fieldsOf(line);
  if (fields.size() != kFields)
    return u"it has %1 fields, not %2"_s.arg(fields.size()).arg(kFields);
  button->windows1252 = !fields[0].isValidUtf8();
  button->caption = button->windows1252 ? fromWindows1252(fields[0]) : QString::fromUtf8(fields[0]);
  button->action = readAction(fields[3]);
  if (button->caption.size() > ButtonFile::kLongestCaption) return u"its caption is too long"_s;
  if (button->action.size() > ButtonFile::kLongestAction) return u"its action is too long"_s;
  const struct {
    int field;
    const char* what;
    float low, high;
    float* into;
  } numbers[] = {{1, "left", -kFarthest, kFarthest, &button->left},
                 {2, "top", -kFarthest, kFarthest, &button->top},
                 {4, "height", kLeastSize, kLargestSize, &button->height},
                 {5, "width", kLeastSize, kLargestSize, &button->width},
                 {6, "font size", kLeastFont, kLargestFont, &button->fontSize}};
  for (const auto& [field, what, low, high, into] : numbers)
    if (!readNumber(fields[field], low, high, into))
      return u"its %1 \"%2\" is no number from %3 to %4"_s.arg(
          QLatin1StringView(what), QString::fromLatin1(fields[field].left(20)),
          QString::number(low), QString::number(high));
  return {};
}

}  // namespace

bool fitsButtonFile(const QString& text) {
  return !text.contains(kButtonSeparator) && !text.contains(u'\n') && !text.contains(u'\r');
}

ButtonFile readButtons(const QByteArray& bytes) {
  ButtonFile file;
  const auto refuse = [&file](int number, const QString& trouble, const QByteArray& line) {
    file.broken.push_back({number, trouble});
    file.unread << line;
  };
  if (bytes.size() > ButtonFile::kMostBytes) {
    refuse(1, u"the file is too large"_s, bytes);
    return file;
  }
  int number = 0;
  for (QByteArray line : bytes.split('\n')) {
    ++number;
    const QByteArray asItStands = line;
    while (line.startsWith(kByteOrderMark)) line.remove(0, 3);
    if (line.endsWith('\r')) line.chop(1);
    if (line.trimmed().isEmpty()) continue;
    CustomButton button;
    QString trouble = readLine(line, &button);
    if (trouble.isEmpty() && std::ssize(file.buttons) == ButtonFile::kMostButtons)
      trouble = u"there are %1 buttons before it, and no more can be shown"_s.arg(
          ButtonFile::kMostButtons);
    if (trouble.isEmpty())
      file.buttons.push_back(button);
    else
      refuse(number, trouble, asItStands);
  }
  return file;
}

QByteArray writeButtons(std::span<const CustomButton> buttons, const QByteArrayList& unread) {
  QByteArray file;
  for (const CustomButton& button : buttons)
    file += QByteArrayList{captionBytes(button),       numberText(button.left),
                           numberText(button.top),     fromPath(button.action),
                           numberText(button.height),  numberText(button.width),
                           numberText(button.fontSize)}
                .join(kSeparator) +
            '\n';
  for (const QByteArray& line : unread) file += line + '\n';
  return file;
}

}  // namespace korvane

// "Buttonpositons.txt" of a theme: the owner's buttons, a line each. Seven fields with "@@#"
// between them: caption, left, top, action, height, width, font size. Places and sizes are units of
// the design surface, the font size has the unit of GridFontSize. Numbers have a point, a comma is
// read as one. A line ends with LF or CR LF. Texts are UTF-8; a caption that is not is
// Windows-1252, and is written back as that; an action that is not keeps its bytes as a path does.
#pragma once

#include <span>
#include <vector>

#include "platform/text.h"

namespace korvane {

inline constexpr char16_t kButtonSeparator[] = u"@@#";

struct CustomButton {
  QString caption;
  float left = 0, top = 0;
  QString action;  // a word of the built-in actions, or the path of a program
  float height = 0, width = 0, fontSize = 0;
  bool windows1252 = false;  // the encoding of the caption in the file
  bool operator==(const CustomButton&) const = default;
};

struct ButtonFile {
  static constexpr qsizetype kMostBytes = 1 << 20;
  static constexpr qsizetype kMostButtons = 100, kLongestCaption = 200, kLongestAction = 4096;

  struct BrokenLine {
    int number = 0;   // from 1
    QString trouble;  // "it has 3 fields, not 7"
  };

  std::vector<CustomButton> buttons;
  std::vector<BrokenLine> broken;
  QByteArrayList unread;  // the broken lines as they stand, so that a save loses none
};

// Any bytes, up to kMostBytes of them; more is one broken line.
ButtonFile readButtons(const QByteArray& bytes);

// The file of these buttons, then the lines that could not be read. A text with "@@#" or a line's
// end would break its line: see fitsButtonFile.
QByteArray writeButtons(std::span<const CustomButton> buttons, const QByteArrayList& unread = {});

// Whether a caption or an action can stand in the file.
bool fitsButtonFile(const QString& text);

}  // namespace korvane

#include "view/window/key_codes.h"

#include <QtCore/qnamespace.h>

namespace korvane {
namespace {

constexpr std::pair<int, int> kCodes[] = {
    {Qt::Key_Backspace, 8},      {Qt::Key_Tab, 9},           {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},         {Qt::Key_Shift, 16},        {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},           {Qt::Key_Pause, 19},        {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},        {Qt::Key_Space, 32},        {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},      {Qt::Key_End, 35},          {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},          {Qt::Key_Up, 38},           {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},          {Qt::Key_Insert, 45},       {Qt::Key_Delete, 46},
    {Qt::Key_Semicolon, 186},    {Qt::Key_Colon, 186},       {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},         {Qt::Key_Comma, 188},       {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},        {Qt::Key_Underscore, 189},  {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},      {Qt::Key_Slash, 191},       {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},    {Qt::Key_BracketLeft, 219}, {Qt::Key_Backslash, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_Apostrophe, 222},  {Qt::Key_QuoteDbl, 222},
};

constexpr std::pair<int, int> kKeypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},  {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},   {Qt::Key_Slash, 111},
};

}  // namespace

int virtualKey(int qtKey, bool keypad) {
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return keypad ? qtKey - Qt::Key_0 + 96 : qtKey;
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return qtKey;
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return qtKey - Qt::Key_F1 + 112;
  if (keypad) {
    for (const auto& [key, code] : kKeypad)
      if (key == qtKey) return code;
  }
  for (const auto& [key, code] : kCodes)
    if (key == qtKey) return code;
  return 0;
}

int qtKey(int virtualKey) {
  for (const auto& [key, code] : kCodes)
    if (code == virtualKey) return key;
  return Qt::Key_unknown;
}

}  // namespace korvane

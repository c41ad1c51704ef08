// The message box, answered by a script.
#pragma once

#include <deque>

#include "core/prompt.h"

namespace korvane {

class FakeMessages : public Messages {
 public:
  int showMessage(QString& text, bool yesNo, bool, bool inputMode, bool) override {
    texts << text;
    if (onShow) onShow();
    if (inputMode) {
      text = typed.empty() ? QString() : typed.front();
      if (!typed.empty()) typed.pop_front();
      return Ok;
    }
    if (answers.empty()) return yesNo ? No : Ok;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
  }

  QStringList texts;
  std::deque<int> answers;
  std::deque<QString> typed;
  std::function<void()> onShow;  // runs while the box is up
};

}  // namespace korvane

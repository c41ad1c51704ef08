// The machine below the console, recording what is done to it.
#pragma once

#include <deque>
#include <vector>

#include "platform/machine.h"

namespace korvane {

class FakeScreenPower : public ScreenPower {
 public:
  Saved read() const override { return values; }
  void write(const Saved& written) override { values = written; }
  void setScreenSaverActive(bool on) override { screenSaverActive = on; }

  Saved values{true, true, 600, 300};
  bool screenSaverActive = true;
};

class FakeSession : public Session {
 public:
  bool exitWindows(int flags) override {
    asked.push_back(flags);
    return true;
  }

  std::vector<int> asked;
};

class FakeMixer : public Mixer {
 public:
  bool open() override { return opened = present; }
  int maximum() const override { return opened ? top : 0; }
  int level() const override { return value; }
  bool setLevel(int to) override {
    if (!opened || to < 0 || to > top) return false;
    value = to;
    return true;
  }

  void watch(std::function<void()> changed) override { outside = std::move(changed); }

  std::function<void()> outside;
  bool present = true, opened = false;
  int top = 65535, value = 0;
};

class FakeTray : public Tray {
 public:
  bool add(const QString& text, std::function<void()> restore) override {
    if (!present) return false;
    tip = text;
    shown = true;
    restore_ = std::move(restore);
    return true;
  }
  void remove() override { shown = false; }
  void doubleClick() {
    const std::function<void()> restore = restore_;
    if (shown && restore) restore();
  }

  bool present = true, shown = false;
  QString tip;

 private:
  std::function<void()> restore_;
};

// Answers by the script, then Ok, or No where there is a choice.
class FakeBox : public SystemBox {
 public:
  Answer show(const QString& text, bool yesNo) override {
    texts << text;
    if (onShow) onShow();
    if (answers.empty()) return yesNo ? No : Ok;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  QStringList texts;
  std::deque<Answer> answers;
  std::function<void()> onShow;  // runs while the box is up
};

class FakeInstance : public OneInstance {
 public:
  bool taken() override { return runsElsewhere; }

  bool runsElsewhere = false;
};

}  // namespace korvane

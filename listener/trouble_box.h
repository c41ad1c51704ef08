// Says what went wrong, one box at a time: what comes while a box is up waits and is said together.
#pragma once

#include "core/prompt.h"
#include "platform/pump.h"

namespace korvane {

class TroubleBox {
 public:
  // Both outlive the box; it may itself go while a message is up.
  TroubleBox(Messages& messages, Pump& pump) : messages_(messages), pump_(pump) {}

  void say(const QString& text);  // shown from the event loop; the same text waits only once

 private:
  void post();
  void show();  // Yields.

  Messages& messages_;
  Pump& pump_;
  QStringList waiting_;
  int further_ = 0;  // more than a box can hold
  bool busy_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane

// A tab as the controller knows it.
#pragma once

namespace korvane {

class Tab {
 public:
  virtual ~Tab() = default;
  virtual void leave() = 0;
  virtual void enter() = 0;
  // A transport button pressed while this tab is open; index as in cmdControls.
  virtual void pressTransport(int index) = 0;
};

}  // namespace korvane

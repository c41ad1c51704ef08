// A tab as the controller knows it.
#pragma once

namespace korvane {

class Grid;
class Player;

class Tab {
 public:
  virtual ~Tab() = default;
  virtual void leave() = 0;
  virtual void enter() = 0;
  virtual Player* player() {
    return nullptr;
  }                                         // that a press on the transport means; null for none
  virtual Grid* list() { return nullptr; }  // that the paging moves; null for none
};

}  // namespace korvane

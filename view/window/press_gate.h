// Refuses presses and keys of the whole program while a wait runs: they are dropped, not kept for
// later. A slider that is held may still be let go.
#pragma once

#include <QObject>

namespace korvane {

class PressGate : public QObject {
 public:
  bool refusing() const { return refusals_ > 0; }

  // Refuses while it lives.
  class Refuse {
   public:
    explicit Refuse(PressGate& gate) : gate_(gate) { gate_.set(gate_.refusals_ + 1); }
    ~Refuse() { gate_.set(gate_.refusals_ - 1); }
    Refuse(const Refuse&) = delete;

   private:
    PressGate& gate_;
  };

  // Lets presses through while it lives, for a box that opens inside a wait.
  class Allow {
   public:
    explicit Allow(PressGate& gate) : gate_(gate), before_(gate.refusals_) { gate_.set(0); }
    ~Allow() { gate_.set(before_); }
    Allow(const Allow&) = delete;

   private:
    PressGate& gate_;
    int before_;
  };

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void set(int refusals);
  int refusals_ = 0;
};

}  // namespace korvane

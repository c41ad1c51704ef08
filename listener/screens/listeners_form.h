// frmListeners: whether the machines of the Movie, the Music and the Master Listener answer a ping.
#pragma once

#include "core/app_state.h"
#include "core/dialog.h"
#include "core/form/panel.h"
#include "platform/network.h"
#include "platform/winsock.h"

namespace korvane {

class ListenersForm : public Dialog {
 public:
  struct Uses {
    const AppState& state;
    Network& network;
    const Winsock& connectionML;  // whose own address is shown
  };
  ListenersForm(const DialogUses& dialogs, Uses uses);

  // Pings round after round until it is left. Yields.
  void open();

 private:
  static constexpr size_t kListeners = 3;
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblthisIP = bind("lblthisIP");
    std::array<Label*, kListeners> lblIP = bind("lblIP");
    std::array<Label*, kListeners> Shape = bind("Shape");
    std::array<Label*, kListeners> lblState = bind("lblState");
    Timer* Timer1 = bind("Timer1");
  };

  void Form_Load();
  void Timer1_Timer();
  void pingNext();
  void lamp(size_t listener, Network::EchoStatus status);
  QString address(size_t listener) const;

  const Uses uses_;
  Panel panel_;
  size_t next_ = 0;  // of the round that runs
};

}  // namespace korvane

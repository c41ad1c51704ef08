// frmListeners: whether the machines of the Movie, the Music and the Master Listener answer a ping.
#pragma once

#include "core/app_state.h"
#include "core/form/form.h"
#include "core/form/panel.h"
#include "core/palette.h"
#include "platform/network.h"
#include "platform/winsock.h"

namespace korvane {

class ListenersForm {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    const AppState& state;
    Network& network;
    const Winsock& connectionML;
  };
  explicit ListenersForm(Uses uses);

  void open();  // Yields.

  Form& form() { return form_; }

 private:
  static constexpr size_t kListeners = 3;
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* Label1 = bind("Label1");
    Label* lblthisIP = bind("lblthisIP");
    std::array<Label*, kListeners> lblIP = bind("lblIP");
    std::array<Label*, kListeners> Shape = bind("Shape");
    std::array<Label*, kListeners> lblState = bind("lblState");
    Button* cmdDone = bind("cmdDone");
    Timer* Timer1 = bind("Timer1");
  };

  void Form_Load();
  void Timer1_Timer();
  void pingNext();
  void lamp(size_t listener, Network::EchoStatus status);
  QString address(size_t listener) const;

  Uses uses_;
  Form form_;
  Panel panel_;
  size_t next_ = 0;  // of the round that runs
};

}  // namespace korvane

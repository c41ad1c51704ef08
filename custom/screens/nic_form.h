// frmNic: which of the machine's addresses the console uses.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"
#include "platform/network.h"

namespace korvane {

class NicForm : public Dialog {
 public:
  NicForm(const DialogUses& dialog, const Network& network);

  // The caption of the option chosen: "Any" or an address. `stored` is the one marked at first; it
  // comes back where no option stands for it and none is chosen. Yields.
  QString choose(const QString& stored);

 private:
  static constexpr size_t kOptions = 4;
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Check*, kOptions> optNic = bind("optNic");
  };

  void Form_Load(const QString& stored);
  void mark(int index);

  const Network& network_;
  Panel panel_;
};

}  // namespace korvane

// frmNic: which of the machine's addresses the console uses.
#pragma once

#include "core/form/form.h"
#include "core/form/panel.h"
#include "core/palette.h"
#include "platform/network.h"

namespace korvane {

class NicForm {
 public:
  NicForm(FormHost& host, const Palette& palette, const Network& network);

  // The caption of the option chosen: "Any" or an address. `stored` is the one marked at first; it
  // comes back where no option stands for it and none is chosen. Yields.
  QString choose(const QString& stored);

  Form& form() { return form_; }

 private:
  static constexpr size_t kOptions = 4;
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Label* Label1 = bind("Label1");
    std::array<Check*, kOptions> optNic = bind("optNic");
    Button* cmdOK = bind("cmdOK");
  };

  void Form_Load(const QString& stored);
  void mark(const Check& chosen);

  FormHost& host_;
  const Palette& palette_;
  const Network& network_;
  Form form_;
  Panel panel_;
};

}  // namespace korvane

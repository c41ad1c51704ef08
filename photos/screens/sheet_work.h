// A long work of frmViewPic as its user sees it: the hourglass, which is the guard against another
// one, the bar of progress, and the Stop button, whose disabled state is the request to stop.
#pragma once

#include <optional>

#include "core/form/panel.h"
#include "core/screen.h"

namespace korvane {

// "1 picture", "2 pictures".
QString counted(int count, const QString& what);

class SheetWork {
 public:
  SheetWork(Form& form, Screen& screen);  // both outlive it

  bool busy() const { return screen_.busy(); }
  // False, and nothing is done, while another work is on. `stop` is called when Stop is pressed.
  bool begin(std::function<void()> stop = {});
  // The work has come to `index`, from 0, of `count` things.
  void show(int index, int count, const QString& text);
  bool stopAsked() const { return !panel_.cmdStop->enabled(); }  // while it is on
  void end();

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Button* cmdStop = bind("cmdStop");
    Progress* picProgress = bind("picProgress");
  };

  Screen& screen_;
  Panel panel_;
  std::function<void()> stop_;
  std::optional<Busy> busy_;
};

}  // namespace korvane

// frmX10Setup: what each lamp is called and whether it dims, and a try of each.
#pragma once

#include "control/lights/lamps.h"
#include "core/dialog.h"
#include "core/form/panel.h"

namespace korvane {

class X10SetupForm : public Dialog {
 public:
  // All of it outlives the form. `saved` is called when something was.
  X10SetupForm(const DialogUses& dialogs, Settings& settings, const AppState& state, Lamps& lamps,
               std::function<void()> saved);

  void open();  // Yields.

 private:
  enum Column { Address = 1, Description, Dim, On, Off };
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* ss = bind("ss");
    Slider* VscrollAllSongs = bind("VscrollAllSongs");
  };

  void Form_Load();
  void select(int row);
  void ss_Click(int column, int row);
  void ss_ButtonClicked(int column, int row);
  void cmd_Click(int index);  // 0 cancels, 1 saves; a save that fails says so and stays
  bool save();

  Settings& settings_;
  const AppState& state_;
  Lamps& lamps_;
  const std::function<void()> saved_;
  Panel panel_;
};

}  // namespace korvane

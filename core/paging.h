// The paging of the lists: the slider VscrollAllSongs, the two buttons cmdOneSong(0) and (1), and
// RepeatTimer. They move the active row of the list that the open tab names.
#pragma once

#include "core/form/panel.h"
#include "core/tab_controller.h"

namespace korvane {

class Paging {
 public:
  Paging(Form& form, TabController& tabs) : tabs_(tabs), panel_(form) {}

  void show(const Grid& list);  // the slider takes the list's rows and its place
  void hide();
  void follow(const Grid& list);    // its active row has moved; nothing while another list is paged
  bool move(Grid& list, int rows);  // the active row, and the slider with it; false at an end

  void VscrollAllSongs_Change();
  void VscrollAllSongs_Scroll();  // while the thumb is held: the letter beside it
  void VscrollAllSongs_Release();
  void cmdOneSong_Press(int index);
  void RepeatTimer_Tick();

  // Calls `again` every so many milliseconds as long as it returns true: for a button that is held.
  // One at a time; the one before ends.
  void repeat(int milliseconds, std::function<bool()> again);
  void endRepeat();
  bool repeats() const { return again_ != nullptr; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* VscrollAllSongs = bind("VscrollAllSongs");
    Image* up = bind("cmdOneSong", 0);
    Image* down = bind("cmdOneSong", 1);
    Timer* RepeatTimer = bind("RepeatTimer");
  };
  Grid* list() const { return tabs_.openTab().list(); }

  TabController& tabs_;
  Panel panel_;
  std::function<bool()> again_;
};

}  // namespace korvane

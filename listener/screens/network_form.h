// frmNetwork: the services of the cabin's network, and which of each type this console uses.
#pragma once

#include "core/app_state.h"
#include "core/dialog.h"
#include "core/form/panel.h"
#include "listener/listener_list.h"

namespace korvane {

class NetworkForm : public Dialog {
 public:
  // The choices in `state` are read when a list is loaded and changed by Enable and Disable.
  NetworkForm(const DialogUses& dialogs, AppState& state);

  // Shows the list; nothing while one is shown already. Yields.
  void loadit(const QList<ListenerEntry>& list);

  // A choice of the type ("MOVIES", "MUSIC" or "X10") has gone: its socket is to be closed.
  std::function<void(const QString& type)> choiceCleared;

 private:
  enum Column { Description = 1, Type, Ip, Port, On };
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* grid = bind("Grid");
    Slider* VscrollAllSongs = bind("VscrollAllSongs");
    Button* cmdExpand = bind("cmdExpand");
  };
  struct Choice {
    QString *ip, *port, *name;
  };

  void Form_Load(const QList<ListenerEntry>& list);
  bool isOn(const ListenerEntry& entry) const;
  void cmdAble_Click(int index);
  void cmdExpand_Click();
  void showColumns();
  void select(int row);
  void turnOff(const QString& type);
  std::optional<Choice> choiceOf(const QString& type);

  AppState& state_;
  Panel panel_;
  bool expanded_ = false;
};

}  // namespace korvane

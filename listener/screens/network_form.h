// frmNetwork: the services of the cabin's network, and which of each type this console uses.
#pragma once

#include "core/form/panel.h"
#include "core/palette.h"
#include "core/prompt.h"
#include "listener/listener_list.h"

namespace korvane {

class NetworkForm {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    AppState& state;
    Messages& messages;
  };
  explicit NetworkForm(Uses uses);

  // Shows the list; nothing while it is shown already. Yields.
  void loadit(const QList<ListenerEntry>& list);

  // A choice of the type ("MOVIES", "MUSIC" or "X10") has gone: its socket is to be closed.
  std::function<void(const QString& type)> choiceCleared;

  Form& form() { return form_; }

 private:
  enum Column { Description = 1, Type, Ip, Port, On };
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Grid* grid = bind("Grid");
    Slider* VscrollAllSongs = bind("VscrollAllSongs");
    std::array<Button*, 2> cmdAble = bind("cmdAble");
    Button* cmdExpand = bind("cmdExpand");
    Button* cmdDone = bind("cmdDone");
  };
  struct Choice {
    QString *ip, *port, *name;
  };

  void Form_Load(const QList<ListenerEntry>& list);
  void cmdAble_Click(int index);
  void cmdExpand_Click();
  void showColumns();
  void select(int row);
  std::optional<Choice> choiceOf(const QString& type);

  Uses uses_;
  Form form_;
  Panel panel_;
  bool expanded_ = false;
};

}  // namespace korvane

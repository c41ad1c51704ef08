// The panel of clsSearch: a text field, the kind of list, and up to ten rows that follow each key.
#pragma once

#include "core/form/form.h"
#include "core/form/panel.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "library/data/song_search.h"

namespace korvane {

class SearchPanel {
 public:
  struct Uses {
    Messages& messages;
    Screen& screen;
    const Palette& palette;
    const AppState& state;
    Database& database;
  };
  // `add` takes the title and path of a song that was picked.
  using Add = std::function<void(const QString& title, const QString& path)>;
  SearchPanel(Form& form, Uses uses, Add add);

  void open();
  void close();
  bool shown() const { return panel_.gridSearch->visible(); }

  void txtSearch_Change();
  void txtSearch_Click();  // Yields.
  void cmdSearchKind_Click(int index);
  void gridSearch_Click(int row);

  // Shows or hides a keyboard on the form that types into the field: with the panel, and when the
  // field is pressed. Without one a press on the field asks for the text.
  std::function<void(bool)> showKeyboard;
  // The keyboard has come up, or gone (0): the rows end above `keyboardTop`. Their top is returned.
  int keyboardShown(int keyboardTop);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    TextBox* txtSearch = bind("txtSearch");
    std::array<Button*, 3> cmdSearchKind = bind("cmdSearchKind");
    Grid* gridSearch = bind("gridSearch");
  };
  void choose(int kind);
  void find();
  void focusField();

  Form& form_;
  Uses uses_;
  Add add_;
  Panel panel_;
  clsSearch search_;
  int kind_ = 0;
  std::vector<std::pair<Control*, Rect>> moved_;  // for the keyboard, and where they stood
};

}  // namespace korvane

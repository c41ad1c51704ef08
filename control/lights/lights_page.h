// The lights on the More tab: rows (ssX10), or with LightTiles tiles (shtX10) and scenes, the
// buttons cmdX10 that act on the chosen lamp, and what the link is like (lblX10).
//
// A held button Dim, and a held tile, repeat by RepeatTimer until the finger leaves.
#pragma once

#include "control/lights/lamp_cells.h"
#include "control/lights/scenes.h"
#include "core/paging.h"
#include "core/prompt.h"

namespace korvane {

class LightsPage {
 public:
  struct Uses {  // all of it outlives the page
    Form& form;
    const AppState& state;
    const Palette& palette;
    Settings& settings;
    Pump& pump;
    Paging& paging;
    Messages& messages;
    Lamps& lamps;
  };
  explicit LightsPage(Uses uses);

  void open();  // reads the settings, connects and shows; again while it is open. Yields.
  void close();
  bool isOpen() const { return panel_.framex10->visible(); }

  void cmdX10_Press(int index);    // Dim begins to repeat. Yields.
  void cmdX10_Release(int index);  // and ends
  void cmdX10_Click(int index);    // the others. Yields.
  void ssX10_RowChange(int row);   // whether the lamp of that row can dim decides of the buttons

  void shtX10_Press(int cell);  // held, the lamp dims, or grows brighter by turns
  void shtX10_Release();
  void shtX10_Click(int cell);  // switches the lamp and chooses it. Yields.

  // The scenes: 0 is "All off", 1 to 8 are the owner's, 9 keeps what burns as another. Yields.
  void cmdScene_Press(int index);  // held, a scene is taken away after a question
  void cmdScene_Release();
  void cmdScene_Click(int index);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* framex10 = bind("framex10");
    Grid* ssX10 = bind("ssX10");
    Sheet* shtX10 = bind("shtX10");
    Label* lblX10 = bind("lblX10");
    Label* lblLamp = bind("lblLamp");
    std::array<Button*, 4> cmdX10 = bind("cmdX10");
    std::array<Button*, Scenes::kMost + 2> cmdScene = bind("cmdScene");
  };

  bool tiles() const { return panel_.shtX10->visible(); }
  void fillRows();
  void fillTiles();
  void placeScenes();
  void dressPage();
  void showLink();
  void levelsChanged();
  void canDim(bool dims);
  void choose(int cell);
  void showChosen();
  const Lamp* chosen() const;
  void press(LampCommand command);
  void dimAgain(int unit, LampCommand command);
  void allOff();
  void play(const Scene& scene);
  void keepScene();
  void removeScene(size_t place);

  const Uses uses_;
  Panel panel_;
  Scenes scenes_;
  std::shared_ptr<LampCells> cells_;
  int ticks_ = 0;                   // of RepeatTimer since the finger came
  bool held_ = false;               // the finger has dimmed: its click does nothing more
  QHash<int, LampCommand> turned_;  // which way a lamp was dimmed last
};

}  // namespace korvane

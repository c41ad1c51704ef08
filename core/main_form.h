// What the screens of frmMain share: which list shows, which command is marked, and the places that
// controls go back to.
#pragma once

#include "core/app_state.h"
#include "core/form/control_set.h"
#include "core/form/panel.h"
#include "core/graphics.h"

namespace korvane {

class MainForm {
 public:
  MainForm(Form& form, AppState& state);

  void HideAllGrids();
  // Clears the marks of the list commands and shows their normal pictures; the favourites' mark
  // brings both mode images back too, unless the playlist editor has their place.
  void ResetSelections();
  // The picture of a list command, "b" added when pressed.
  QString topPicture(int index, bool pressed) const;
  void markTop(int index);  // Tag "1" and the pressed picture

  // Remembers the place of every control (at most 131) and of the lists, to go back to.
  void rememberPlaces();
  void rememberGrids();
  void positionControl(Control& control) const;  // unknown names stay where they are
  const std::array<Rect, 11>& gridRects() const { return gridRects_; }

  void setBackground(const QString& group) {
    form_.picture = Picture{group, u"background"_s, nullptr};
  }
  void showPlayState(PlayMode mode);  // by the pictures of play, pause and stop
  // What these say instead, whoever plays: of a show whose tab has the transport to itself.
  std::optional<PlayMode> showMode;
  void showSteps();  // the buttons previous and next
  void showTransport(const QString& play, const QString& pause, const QString& stop);

  Form& form() { return form_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Grid*, 11> grid = bind("Grid");
    std::array<Image*, 7> cmdTop = bind("cmdTop");
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    std::array<Image*, 2> optMode = bind("optMode");
  };

  Form& form_;
  AppState& state_;
  Panel panel_;
  std::vector<ControlRect> controlRects_;
  std::array<Rect, 11> gridRects_{};
};

}  // namespace korvane

#include "core/main_form.h"

namespace korvane {
namespace {

constexpr size_t kMostRects = 131;
constexpr int kPlaylistCommand = 2, kFavouritesCommand = 6;

}  // namespace

MainForm::MainForm(Form& form, AppState& state) : form_(form), state_(state), panel_(form) {}

void MainForm::HideAllGrids() {
  for (Grid* grid : panel_.grid) grid->visible = false;
}

QString MainForm::topPicture(int index, bool pressed) const {
  static constexpr const char* names[] = {"artist", "album", "playlist", "song",
                                          "search", "back",  "Favorites"};
  QString picture = QString::fromLatin1(names[index]);
  if (index == kPlaylistCommand && state_.jukeboxMode) picture = u"jukebox"_s;
  return pressed ? picture + u'b' : picture;
}

void MainForm::markTop(int index) {
  Image* image = panel_.cmdTop.at(static_cast<size_t>(index));
  image->tag = u"1"_s;
  image->setPicture(u"Music"_s, topPicture(index, true));
}

void MainForm::ResetSelections() {
  for (Image* image : panel_.cmdTop) {
    if (!image->tagged()) continue;
    image->tag = QString();
    image->setPicture(u"Music"_s, topPicture(image->index, false));
    if (image->index == kFavouritesCommand)
      for (Image* mode : panel_.optMode) mode->visible = !state_.playListEditing;
  }
}

void MainForm::rememberPlaces() {
  controlRects_.clear();
  for (const auto& control : form_.controls()) {
    if (controlRects_.size() == kMostRects) break;
    if (control->kind == Kind::Timer) continue;
    const Rect rect = control->rect();
    controlRects_.push_back(
        {control->name, control->index, rect.height, rect.left, rect.top, rect.width});
  }
}

void MainForm::rememberGrids() {
  for (size_t i = 0; i < panel_.grid.size(); ++i) gridRects_[i] = panel_.grid[i]->rect();
}

void MainForm::positionControl(Control& control) const {
  for (const ControlRect& saved : controlRects_)
    if (saved.Name == control.name && saved.Index == control.index)
      control.rect = Rect{saved.Left, saved.Top, saved.Width, saved.Height};
}

void MainForm::showSteps() {
  for (const TransportButton step : {TransportButton::Previous, TransportButton::Next})
    panel_.cmdControls[at(step)]->visible = true;
}

void MainForm::showTransport(const QString& play, const QString& pause, const QString& stop) {
  panel_.cmdControls[1]->setPicture(u"Music"_s, play);
  panel_.cmdControls[2]->setPicture(u"Music"_s, pause);
  panel_.cmdControls[3]->setPicture(u"Music"_s, stop);
}

void MainForm::showPlayState(PlayMode mode) {
  mode = showMode.value_or(mode);
  if (mode == PlayMode::Paused)
    showTransport(u"play"_s, u"pauseb"_s, u"stop"_s);
  else if (mode == PlayMode::Playing)
    showTransport(u"playb"_s, u"pause"_s, u"stop"_s);
  else
    showTransport(u"play"_s, u"pause"_s, u"stopb"_s);
}

}  // namespace korvane

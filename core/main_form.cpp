#include "core/main_form.h"

#include "core/form/binder.h"

namespace korvane {
namespace {

constexpr size_t kMostRects = 131;
constexpr int kPlaylistCommand = 2, kFavouritesCommand = 6;

}  // namespace

MainForm::MainForm(Form& form, AppState& state) : form_(form), state_(state) {
  Binder bind(form, "main form");
  bind(grid_, "Grid");
  bind(cmdTop_, "cmdTop");
  bind(cmdControls_, "cmdControls");
  bind(optMode_, "optMode");
}

void MainForm::HideAllGrids() {
  for (Grid* grid : grid_) grid->visible = false;
}

QString MainForm::topPicture(int index, bool pressed) const {
  static constexpr const char* names[] = {"artist", "album", "playlist", "song",
                                          "search", "back",  "Favorites"};
  QString picture = QString::fromLatin1(names[index]);
  if (index == kPlaylistCommand && state_.jukeboxMode) picture = u"jukebox"_s;
  return pressed ? picture + u'b' : picture;
}

void MainForm::markTop(int index) {
  Image* image = cmdTop_.at(static_cast<size_t>(index));
  image->tag = u"1"_s;
  image->setPicture(u"Music"_s, topPicture(index, true));
}

void MainForm::ResetSelections() {
  for (Image* image : cmdTop_) {
    if (!image->tagged()) continue;
    image->tag = QString();
    image->setPicture(u"Music"_s, topPicture(image->index, false));
    if (image->index == kFavouritesCommand)
      for (Image* mode : optMode_) mode->visible = !state_.playListEditing;
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
  for (size_t i = 0; i < grid_.size(); ++i) gridRects_[i] = grid_[i]->rect();
}

void MainForm::positionControl(Control& control) const {
  for (const ControlRect& saved : controlRects_)
    if (saved.Name == control.name && saved.Index == control.index)
      control.rect = Rect{saved.Left, saved.Top, saved.Width, saved.Height};
}

void MainForm::showTransport(const QString& play, const QString& pause, const QString& stop) {
  cmdControls_[1]->setPicture(u"Music"_s, play);
  cmdControls_[2]->setPicture(u"Music"_s, pause);
  cmdControls_[3]->setPicture(u"Music"_s, stop);
}

void MainForm::showPlayState(PlayMode mode) {
  if (mode == PlayMode::Paused)
    showTransport(u"play"_s, u"pauseb"_s, u"stop"_s);
  else if (mode == PlayMode::Playing)
    showTransport(u"playb"_s, u"pause"_s, u"stop"_s);
  else
    showTransport(u"play"_s, u"pause"_s, u"stopb"_s);
}

}  // namespace korvane

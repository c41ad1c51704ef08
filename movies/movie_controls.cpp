#include "movies/movie_controls.h"

namespace korvane {
namespace {

constexpr double kStepSeconds = 10;
constexpr int kSaidMs = 2500;

}  // namespace

VideoFit videoFitOf(const QString& stored) {
  if (stored == "FILLED"_L1) return VideoFit::Filled;
  return stored == "STRETCHED"_L1 ? VideoFit::Stretched : VideoFit::Whole;
}

QString stored(VideoFit fit) {
  switch (fit) {
    case VideoFit::Whole:
      return u"WHOLE"_s;
    case VideoFit::Filled:
      return u"FILLED"_s;
    case VideoFit::Stretched:
      return u"STRETCHED"_s;
  }
  Q_UNREACHABLE();
}

MovieControls::MovieControls(Uses uses) : uses_(uses), panel_(uses.form) {
  panel_.MovieControlsTimer->interval = kShownMs;
  panel_.MovieHoldTimer->interval = kHoldMs;
  connect();
}

void MovieControls::connect() {
  Form& form = uses_.form;
  const auto on = [&form](QStringView name, Event::Type type, std::function<void()> act) {
    form.on(name, type, [act = std::move(act)](auto&, auto&) { act(); });
  };
  on(u"MovieControlsTimer", Event::Tick, [this] {
    if (!held_) hide();
  });
  on(u"MovieHoldTimer", Event::Tick, [this] { unlock(); });
  on(u"cmdMovieLocked", Event::Press, [this] { panel_.MovieHoldTimer->enabled = true; });
  on(u"cmdMovieLocked", Event::Release, [this] { panel_.MovieHoldTimer->enabled = false; });
  on(u"cmdMovieLeave", Event::Click, [this] { uses_.full.set(false); });
  on(u"sldMovie", Event::Press, [this] { held_ = uses_.state.sliderHeld = true; });
  on(u"sldMovie", Event::Scroll, [this] { moved(); });
  on(u"sldMovie", Event::Release, [this] {
    held_ = uses_.state.sliderHeld = false;
    uses_.transport.moveTo(std::round(panel_.sldMovie->value()));
    stayShown();
  });
  for (const Event::Type type : {Event::Change, Event::Scroll})
    on(u"sldMovieLevel", type, [this] {
      panel_.scrollVolume->moveTo(panel_.sldMovieLevel->value());
      stayShown();
    });
}

void MovieControls::picture_Click() {
  const bool controls = uses_.settings.flag(key::MovieControls);
  if (!uses_.full.on()) {
    if (controls) uses_.full.set(true);
    return;
  }
  if (!controls) return uses_.full.set(false);
  if (locked_) {
    panel_.cmdMovieLocked->visible = true;
    return stayShown();
  }
  panel_.framMovie->visible() ? hide() : show();
}

void MovieControls::show() {
  panel_.framMovie->visible = true;
  panel_.framMovieLevel->visible = uses_.transport.levelMaximum() > 0;
  panel_.cmdMovieLeave->visible = false;
  stayShown();
  update();
}

void MovieControls::hide() {
  panel_.framMovie->visible = panel_.framMovieLevel->visible = false;
  panel_.cmdMovieLocked->visible = false;
  panel_.MovieControlsTimer->enabled = panel_.MovieHoldTimer->enabled = false;
  letPicturePressed();
}

void MovieControls::stayShown() {
  panel_.MovieControlsTimer->enabled = false;
  panel_.MovieControlsTimer->enabled = true;
}

void MovieControls::unlock() {
  panel_.MovieHoldTimer->enabled = false;
  panel_.cmdMovieLocked->visible = false;
  locked_ = false;
  show();
}

void MovieControls::fullScreenChanged() {
  locked_ = held_ = false;
  hide();
}

// The disc's own buttons are pressed on its picture: always in the page; in full screen while a
// menu shows, where a small button leaves. While a title plays a touch is the console's.
void MovieControls::letPicturePressed() {
  const bool controls = uses_.settings.flag(key::MovieControls);
  const bool menu = uses_.full.on() && controls && disc() && uses_.dvd.inMenu() && !locked_;
  panel_.MSWebDVD1->drawerPressed = !uses_.full.on() || menu;
  panel_.cmdMovieLeave->visible = menu && !panel_.framMovie->visible();
}

void MovieControls::update() {
  letPicturePressed();
  if (!panel_.framMovie->visible()) return;
  const bool plays = uses_.transport.mode() == PlayMode::Playing;
  panel_.cmdMovie[PlayPause]->setPicture(u"movies"_s, plays ? u"bigpause"_s : u"bigplay"_s);
  for (const Button of : {PreviousChapter, NextChapter, Menu})
    panel_.cmdMovie[of]->visible = disc();
  panel_.cmdMovie[Fit]->visible =
      !disc() && uses_.settings.str(key::MovieFit).compare(u"NO"_s, Qt::CaseInsensitive) != 0;
  const auto several = [this](TrackKind kind, int least) {
    const auto tracks = disc() ? uses_.dvd.player().tracks(kind) : uses_.video.tracks(kind);
    return tracks.size() >= least;
  };
  panel_.cmdMovie[Sound]->visible = several(TrackKind::Sound, 2);
  panel_.cmdMovie[Subtitles]->visible = several(TrackKind::Subtitles, 1);
  // Its upper end is the loudest place.
  panel_.sldMovieLevel->minimum = panel_.scrollVolume->maximum();
  panel_.sldMovieLevel->maximum = 0;
  panel_.sldMovieLevel->value = panel_.scrollVolume->value();
  if (held_) return;
  const double length = panel_.Slider1->maximum();
  panel_.sldMovie->maximum = length;
  panel_.sldMovie->value = panel_.Slider1->value();
  panel_.lblMovieTime->caption = minutesAndSeconds(panel_.Slider1->value());
  panel_.lblMovieLength->caption = minutesAndSeconds(length);
}

void MovieControls::moved() {
  const QString at = minutesAndSeconds(panel_.sldMovie->value());
  panel_.sldMovie->bubble = at;
  panel_.lblMovieTime->caption = at;
}

void MovieControls::step(double seconds) {
  const double to = panel_.Slider1->value() + seconds;
  uses_.transport.moveTo(std::clamp(to, 0.0, panel_.Slider1->maximum()));
}

void MovieControls::cmdMovie_Click(int index) {
  stayShown();
  using enum TransportButton;
  const auto press = [this](TransportButton button) {
    uses_.players.press(uses_.transport, button);
  };
  switch (static_cast<Button>(index)) {
    case PlayPause:
      press(uses_.transport.mode() == PlayMode::Playing ? Pause : Play);
      break;
    case Back:
      step(-kStepSeconds);
      break;
    case On:
      step(kStepSeconds);
      break;
    case PreviousChapter:
      press(Previous);
      break;
    case NextChapter:
      press(Next);
      break;
    case Sound:
      nextTrack(TrackKind::Sound);
      break;
    case Subtitles:
      nextTrack(TrackKind::Subtitles);
      break;
    case Menu:
      uses_.dvd.cmdMenuforDVD_Click();
      return hide();
    case Fit:
      nextFit();
      break;
    case Lock:
      locked_ = true;
      hide();
      return uses_.says.say(u"Locked. Touch, then hold the lock to open it."_s, kSaidMs);
    case Leave:
      return uses_.full.set(false);
  }
  update();
}

// Round the tracks; of the subtitles none is one of them.
void MovieControls::nextTrack(TrackKind kind) {
  const auto go = [&](auto& player) {
    QList<MediaTrack> tracks = player.tracks(kind);
    if (kind == TrackKind::Subtitles) tracks.prepend({MediaTrack::kNone, u"none"_s});
    if (tracks.isEmpty()) return;
    qsizetype at = 0;
    while (at < tracks.size() && tracks[at].id != player.track(kind)) ++at;
    const MediaTrack& next = tracks[(at + 1) % tracks.size()];
    player.setTrack(kind, next.id);
    uses_.says.say((kind == TrackKind::Sound ? u"Sound: "_s : u"Subtitles: "_s) + next.name,
                   kSaidMs);
  };
  disc() ? go(uses_.dvd.player()) : go(uses_.video);
}

void MovieControls::applyFit() {
  panel_.MoviePic->fit = videoFitOf(uses_.settings.upper(key::MovieFit));
}

void MovieControls::nextFit() {
  const VideoFit fits[] = {VideoFit::Filled, VideoFit::Stretched, VideoFit::Whole};
  const QString words[] = {u"The picture fills the screen"_s, u"The picture is stretched"_s,
                           u"The whole picture"_s};
  const size_t now = static_cast<size_t>(panel_.MoviePic->fit());
  panel_.MoviePic->fit = fits[now];
  uses_.says.say(words[now], kSaidMs);
  uses_.settings.write(key::MovieFit, stored(fits[now]));
}

}  // namespace korvane

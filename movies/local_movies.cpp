#include "movies/local_movies.h"

namespace korvane {
namespace {

constexpr int kTickMs = 500;
constexpr double kMarkEverySeconds = 30;  // a cut of the power loses no more

}  // namespace

const LocalMovies::Entry LocalMovies::kCommands[] = {
    {"STATUS"_L1, &LocalMovies::status},
    {"PLAY"_L1, &LocalMovies::play},
    {"STOP"_L1, &LocalMovies::stop},
    {"PAUSE"_L1, &LocalMovies::pause},
    {"DURATION"_L1, &LocalMovies::duration},
    {"MUTE=TRUE"_L1, &LocalMovies::muteOn},
    {"MUTE=FALSE"_L1, &LocalMovies::muteOff},
    {"VOLUME"_L1, &LocalMovies::volume},
    {"CURRENTPOSITION"_L1, &LocalMovies::currentPosition},
    {"NORMAL"_L1, &LocalMovies::resize},
    {"FULLSCREEN"_L1, &LocalMovies::resize},
};

LocalMovies::LocalMovies(Uses uses) : uses_(std::move(uses)), panel_(uses_.form) {
  uses_.video.setEvents(this);
  uses_.connection.setSeat(this);
  panel_.movieTimer->interval = kTickMs;
}

LocalMovies::~LocalMovies() {
  uses_.video.setEvents(nullptr);
  uses_.connection.setSeat(nullptr);
}

void LocalMovies::perform(const MovieCommand& command) {
  for (const Entry& entry : kCommands)
    if (entry.command == command.command) return (this->*entry.action)(command);
}

void LocalMovies::status(const MovieCommand&) {
  replyVolume();
}

void LocalMovies::play(const MovieCommand& command) {
  if (command.argument1.isEmpty()) return;
  const bool begins = uses_.movies.getState().isEmpty();
  if (begins) {
    path_ = command.argument1;
    resumeAt_ = uses_.settings.flag(key::MovieResume) ? uses_.marks.secondsOf(path_) : 0;
  }
  uses_.movies.PlayMovie(path_);
  panel_.movieTimer->enabled = true;
  showLength();
  uses_.pump.doEvents();
}

void LocalMovies::showLength() {
  if (!uses_.shows()) return;
  const double length = uses_.movies.getduration();
  panel_.Slider1->maximum = length > 0 ? length : 1;
  uses_.presenter.DisplayDuration(length);
}

void LocalMovies::stop(const MovieCommand&) {
  remember();
  path_.clear();
  uses_.movies.StopMovie();
  panel_.movieTimer->enabled = false;
  reply({u"MOVIE"_s, u"STOP"_s});
}

void LocalMovies::pause(const MovieCommand&) {
  if (uses_.movies.getState() != "PLAYING"_L1) return;
  uses_.movies.PauseMovie();
  panel_.movieTimer->enabled = false;
  remember();
  reply({u"MOVIEPLAYERSTATE"_s, u"PAUSED"_s});
}

void LocalMovies::duration(const MovieCommand&) {
  reply({u"MOVIEDURATION"_s, numberText(uses_.movies.getduration())});
}

void LocalMovies::setMute(bool on) {
  uses_.video.setMute(on);
  uses_.dvd.setMute(on);
}

void LocalMovies::muteOn(const MovieCommand&) {
  setMute(true);
}

void LocalMovies::muteOff(const MovieCommand&) {
  setMute(false);
}

void LocalMovies::volume(const MovieCommand& command) {
  if (const auto asked = numberOf(command.argument1.toLatin1())) uses_.level.set(*asked);
  reply({u"VOLUME"_s, command.argument1});
  levelSet();
}

void LocalMovies::currentPosition(const MovieCommand& command) {
  const auto seconds = numberOf(command.argument1.toLatin1());
  if (!seconds) return;
  const double length = uses_.movies.getduration();
  uses_.movies.setPosition(std::clamp(*seconds, 0.0, length > 0 ? length : *seconds));
  if (!panel_.movieTimer->enabled()) showPosition();
}

void LocalMovies::resize(const MovieCommand&) {
  uses_.movies.ResizeWindow();
}

// The end of a file whose player never reports it is where its position stands at its length.
void LocalMovies::movieTimer_Timer() {
  if (uses_.state.sliderHeld || path_.isEmpty()) return;
  const double position = uses_.movies.getPosition(), length = uses_.movies.getduration();
  if (length > 0 && position >= length) return endOfMovie();
  const auto marks = [](double at) { return static_cast<int>(at / kMarkEverySeconds); };
  if (marks(position) != marks(panel_.Slider1->value())) remember();
  showPosition();
}

void LocalMovies::showPosition() {
  if (!uses_.shows()) return;
  uses_.presenter.showPosition(uses_.movies.getPosition());
  uses_.presenter.ShowSliderTimes();
  moved();
}

void LocalMovies::endOfMovie() {
  if (path_.isEmpty()) return;
  uses_.marks.forget(path_);
  path_.clear();
  uses_.movies.StopMovie();
  panel_.movieTimer->enabled = false;
  reply({u"MOVIEPLAYERSTATE"_s, u"STOP"_s});
}

void LocalMovies::durationKnown(double seconds) {
  if (path_.isEmpty()) return;
  reply({u"MOVIEDURATION"_s, numberText(seconds)});
  goOnWhereItWasLeft();
}

void LocalMovies::goOnWhereItWasLeft() {
  const double at = std::exchange(resumeAt_, 0);
  if (at <= 0 || at >= uses_.movies.getduration()) return;
  uses_.movies.setPosition(at);
  resumed(at);
}

void LocalMovies::failed(const QString& description) {
  path_.clear();
  uses_.movies.StopMovie();
  panel_.movieTimer->enabled = false;
  reply({u"MOVIEERROR"_s, u" Unable to play that movie \n"_s + description});
}

void LocalMovies::remember() {
  if (path_.isEmpty() || resumeAt_ > 0 || !uses_.settings.flag(key::MovieResume)) return;
  uses_.marks.remember(path_, uses_.movies.getPosition(), uses_.movies.getduration());
}

void LocalMovies::close() {
  remember();
  path_.clear();
  uses_.movies.StopMovie();
  uses_.dvd.Stop();
}

void LocalMovies::reply(std::initializer_list<QString> fields) {
  uses_.connection.localListenerReply(replyRecord(fields));
}

void LocalMovies::replyVolume() {
  reply({u"MAXVOLUME"_s, QString::number(uses_.level.maximum())});
  reply({u"VOLUME"_s, QString::number(uses_.level.now())});
}

}  // namespace korvane

#include "services/listener/movie_service.h"

namespace korvane {
namespace {

// Of what one console sends and all are sent: a long one would fill their queues.
constexpr qsizetype kLongestTitle = 1000;

}  // namespace

const MovieService::Entry MovieService::kCommands[] = {
    {"PLAY", &MovieService::play},
    {"STOP", &MovieService::stop},
    {"PAUSE", &MovieService::pause},
    {"DURATION", &MovieService::duration},
    {"CURRENTPOSITION", &MovieService::currentPosition},
    {"FULLSCREEN", &MovieService::fullScreen},
    {"NORMALSCREEN", &MovieService::normalScreen},
    {"PREVCHAPTER", &MovieService::prevChapter},
    {"NEXTCHAPTER", &MovieService::nextChapter},
    {"ENTER", &MovieService::keyEnter},
    {"UPPER", &MovieService::keyUpper},
    {"RIGHT", &MovieService::keyRight},
    {"LOWER", &MovieService::keyLower},
    {"LEFT", &MovieService::keyLeft},
};

MovieService::MovieService(Uses uses) : uses_(std::move(uses)) {
  uses_.listener.add(*this);
  uses_.video.setEvents(this);
  uses_.dvd.setEvents(this);
  uses_.movieTimer.tick = [this] { tick(); };
  uses_.screen.setLarge(large_);
}

MovieService::~MovieService() {
  letGo();
  uses_.movieTimer.tick = nullptr;
  uses_.dvd.setEvents(nullptr);
  uses_.video.setEvents(nullptr);
  uses_.listener.remove(*this);
}

bool MovieService::takes(QByteArrayView target) const {
  return target == "MOVIE" || target == "DVDP";
}

void MovieService::perform(const Command& command) {
  for (const Entry& entry : kCommands)
    if (entry.command == command.name) return (this->*entry.perform)(command);
}

void MovieService::left(Peer peer) {
  echo_.forget(peer);
  if (owner_ == peer) owner_ = 0;
}

void MovieService::setVolume(int level) {
  uses_.video.setVolume(level);
  uses_.dvd.setVolume(level);
}

void MovieService::setMute(bool on) {
  uses_.video.setMute(on);
  uses_.dvd.setMute(on);
}

void MovieService::status(Peer peer) {
  if (source_ != Source::None) {
    tell(peer, {u"MOVIEDURATION"_s, numberText(length())});
    tell(peer, {u"MOVIEPLAYING"_s, title_});
  }
  tell(peer, {u"MOVIEPLAYERSTATE"_s, stateText()});
  if (source_ != Source::None && large_) tell(peer, {u"MOVIESCREEN"_s, u"NORMAL"_s});
}

void MovieService::play(const Command& command) {
  if (state() == State::Paused && command.argument1.isEmpty()) return resume();
  if (command.target == "DVDP") return playDisc(command, uses_.settings.dvd, u"DVD"_s);
  const QString& asked = command.argument1;
  if (asked.isEmpty()) return tell(command.peer, {u"MOVIEPLAYERSTATE"_s, stateText()});
  const MediaRoots& roots = uses_.settings.roots;
  if (const auto file = findBelow(uses_.files, roots, kMovieEndings, asked))
    return playFile(command, *file);
  if (const auto folder = findDiscBelow(uses_.files, roots, asked))
    return playDisc(command, *folder, command.argument2);
  uses_.log.warn(u"connection %1 asks for a movie that is not here: %2"_s.arg(command.peer)
                     .arg(printable(asked)));
  tell(command.peer, {u"MOVIEERROR"_s, u"File not found"_s});
}

void MovieService::resume() {
  uses_.listener.starts(*this);
  discPlays() ? uses_.dvd.Play() : uses_.video.play();
  uses_.movieTimer.start(uses_.settings.tickMs);
  tellAll({u"PAUSETOPLAY"_s});
  tellState();
}

// The player is called before anything is sent besides: what is asked for shows first.
void MovieService::playFile(const Command& command, const QString& path) {
  uses_.listener.starts(*this);
  if (discPlays()) letGo();
  uses_.screen.showFrames(uses_.video.picture());
  uses_.video.open(path);
  uses_.video.play();
  source_ = Source::File;
  begun(command, command.argument2, path);
}

void MovieService::playDisc(const Command& command, const QString& folder, const QString& title) {
  uses_.listener.starts(*this);
  letGo();
  uses_.screen.showDisc(uses_.dvd);
  uses_.dvd.setDVDDirectory(folder);
  uses_.dvd.Play();
  source_ = Source::Disc;
  begun(command, title, folder);
}

void MovieService::begun(const Command& command, const QString& title, const QString& path) {
  owner_ = command.peer;
  path_ = path;
  nameAsked_ =
      command.argument1.isEmpty()
          ? u"the DVD"_s
          : FileSystem::slashed(command.argument1).section(u'/', -1, -1, QString::SectionSkipEmpty);
  title_ = title.left(kLongestTitle);
  tellAll({u"MOVIEDURATION"_s, numberText(length())});
  tellAll({u"MOVIEPLAYING"_s, title_});
  tellState();
  if (large_) tellAll({u"MOVIESCREEN"_s, u"NORMAL"_s});
  uses_.listener.lightPlay(*this, owner_);
  uses_.movieTimer.start(uses_.settings.tickMs);
  uses_.log.say(u"connection %1 plays %2"_s.arg(command.peer)
                    .arg(printable(path.isEmpty() ? nameAsked_ : path)));
}

void MovieService::stop(const Command& command) {
  const bool echo = echo_.take(command.peer, uses_.listener.nowMs()) && state() == State::Playing &&
                    owner_ != command.peer;
  if (echo || !end(command.peer)) tell(command.peer, {u"MOVIEPLAYERSTATE"_s, stateText()});
}

// False when nothing had played.
bool MovieService::end(Peer asker) {
  if (source_ == Source::None) return false;
  letGo();
  echo_.note(uses_.listener.peers(*this), asker, uses_.listener.nowMs());
  tellState();
  return true;
}

void MovieService::letGo() {
  uses_.movieTimer.stop();
  if (source_ == Source::File) uses_.video.close();
  if (source_ == Source::Disc) uses_.dvd.Stop();
  source_ = Source::None;
  uses_.screen.showNothing();
}

void MovieService::pause(const Command&) {
  if (state() != State::Playing) return;
  uses_.movieTimer.stop();
  discPlays() ? uses_.dvd.Pause() : uses_.video.pause();
  tellState();
}

void MovieService::duration(const Command& command) {
  tell(command.peer, {u"MOVIEDURATION"_s, numberText(length())});
}

void MovieService::currentPosition(const Command& command) {
  const std::optional<double> asked = numberIn(command.argument1);
  if (!asked || source_ == Source::None) return;
  const double seconds = std::clamp(*asked, 0.0, length() > 0 ? length() : std::max(*asked, 0.0));
  if (discPlays())
    uses_.dvd.setCurrentTime(static_cast<int>(seconds));
  else
    uses_.video.setPosition(seconds);
  if (state() == State::Paused) tellPosition();  // no tick will tell it
}

void MovieService::fullScreen(const Command&) {
  setLarge(true);
}

void MovieService::normalScreen(const Command&) {
  setLarge(false);
}

// A console's button offers the other size than the one at hand, and takes its caption from this.
void MovieService::setLarge(bool large) {
  large_ = large;
  uses_.screen.setLarge(large);
  tellAll({u"MOVIESCREEN"_s, large ? u"NORMAL"_s : u"FULL"_s});
}

void MovieService::prevChapter(const Command&) {
  if (discPlays()) uses_.dvd.PlayPrevChapter();
}

void MovieService::nextChapter(const Command&) {
  if (discPlays()) uses_.dvd.PlayNextChapter();
}

void MovieService::keyEnter(const Command&) {
  if (discPlays()) uses_.dvd.ActivateButton();
}

void MovieService::arrow(DvdPlayer::Arrow towards) {
  if (discPlays()) uses_.dvd.SelectButton(towards);
}

void MovieService::keyUpper(const Command&) {
  arrow(DvdPlayer::Upper);
}

void MovieService::keyRight(const Command&) {
  arrow(DvdPlayer::Right);
}

void MovieService::keyLower(const Command&) {
  arrow(DvdPlayer::Lower);
}

void MovieService::keyLeft(const Command&) {
  arrow(DvdPlayer::Left);
}

void MovieService::tick() {
  if (state() != State::Playing) return uses_.movieTimer.stop();
  tellPosition();
}

// Of a disc's menu too, which has no time: a console takes a Listener that is silent for lost.
void MovieService::tellPosition() {
  if (source_ == Source::File) {
    const double position = uses_.video.position();
    return tellAll({u"MOVIETIMER"_s, fileTimes(position, length()), numberText(position)});
  }
  const DvdPlayer& dvd = uses_.dvd;
  const QString text =
      dvd.CurrentDomain() == DvdPlayer::Title
          ? discTimes(dvd.CurrentChapter(), dvd.chapters(), dvd.CurrentTime(), dvd.TotalTitleTime())
          : u"DVD menu"_s;
  tellAll({u"DVDMOVIETIMER"_s, text, QString::number(dvd.CurrentTime()),
           QString::number(dvd.TotalTitleTime())});
}

void MovieService::endOfMovie() {
  if (source_ == Source::File) ended();
}

void MovieService::endOfDisc() {
  if (discPlays()) ended();
}

void MovieService::ended() {
  tellAll({u"ENDOFSTREAM"_s});
  end(0);
}

void MovieService::durationKnown(double seconds) {
  if (source_ == Source::File) tellAll({u"MOVIEDURATION"_s, numberText(seconds)});
}

void MovieService::DVDNotify(DvdPlayer::Notice notice) {
  if (!discPlays()) return;
  if (notice == DvdPlayer::DiscEjected) end(0);
  if (notice == DvdPlayer::TitleChange || notice == DvdPlayer::ChapterStart ||
      notice == DvdPlayer::DomainChange)
    tellPosition();
}

void MovieService::failed(const QString& description) {
  if (source_ == Source::None) return;
  uses_.log.warn(description);
  tell(owner_, {u"MOVIEERROR"_s, withoutPath(description, path_, nameAsked_)});
  end(0);
}

MovieService::State MovieService::state() const {
  switch (source_) {
    case Source::None:
      return State::Stopped;
    case Source::File:
      return uses_.video.state() == VideoPlayer::Paused ? State::Paused : State::Playing;
    case Source::Disc:
      return uses_.dvd.state() == DvdPlayer::Paused ? State::Paused : State::Playing;
  }
  return State::Stopped;
}

double MovieService::length() const {
  if (source_ == Source::File) return uses_.video.duration();
  return discPlays() ? uses_.dvd.TotalTitleTime() : 0;
}

QString MovieService::stateText() const {
  switch (state()) {
    case State::Stopped:
      break;
    case State::Paused:
      return u"PAUSED"_s;
    case State::Playing:
      return u"PLAYING"_s;
  }
  return u"STOP"_s;
}

}  // namespace korvane
